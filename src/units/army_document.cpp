#include "units/army_document.h"

#include "core/files/profile.h"
#include "core/files/sequential.h"

CArmyDocument::CArmyDocument(bool keyed) : keyed_(keyed) {
    ResetUnits();
}

void CArmyDocument::ResetUnits() {
    units_.Clear();
    units_.SetIndexed(keyed_);
    units_.SetSorted(keyed_);
}

void CArmyDocument::Clear() {
    CDocument::Clear();
    pictureFile_.clear();
}

bool CArmyDocument::WriteHead(CProfile& profile) const {
    return profile.WriteProfile("TOP", "PICTURE", pictureFile_);
}

void CArmyDocument::ReadHead(CProfile& profile) {
    pictureFile_.clear();
    profile.ReadProfile("TOP", "PICTURE", pictureFile_);
}

void CArmyDocument::ImportHead(CSequentialInput& file) {
    pictureFile_ = file.ReadText();
}

bool CArmyDocument::WriteLists(CProfile& profile) const {
    return units_.WriteInfo(&profile, "UNITLIST");
}

bool CArmyDocument::ReadLists(CProfile& profile) {
    return units_.ReadInfo(&profile, "UNITLIST");
}

bool CArmyDocument::ImportLists(CSequentialInput& file) {
    return units_.ImportInfoV1(file, keyed_);
}
