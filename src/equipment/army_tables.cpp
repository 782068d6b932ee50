#include "equipment/army_tables.h"

#include "core/files/sequential.h"

void CArmyTables::InitLists() {
    for (CEqList* list : {&weapons_, &accessories_}) {
        list->Clear();
        list->SetIndexed(true);
        list->SetSorted(true);
    }
}

bool CArmyTables::IsEqAllowed(const CEquipment& item) const {
    if (dynamic_cast<const CWeapon*>(&item) != nullptr) return weapons_.Exists(item.Name());
    if (dynamic_cast<const CAccessory*>(&item) != nullptr) return accessories_.Exists(item.Name());
    return false;
}

bool CArmyTables::IsEqAllowed(const CEqItem& item) const {
    return !item.IsEmpty() && IsEqAllowed(item.Item());
}

bool CArmyTables::WriteLists(CProfile& profile) const {
    return weapons_.WriteInfo(&profile, "WEAPONLIST") && accessories_.WriteInfo(&profile, "ACCESSORYLIST");
}

bool CArmyTables::ReadLists(CProfile& profile) {
    return weapons_.ReadInfo(&profile, "WEAPONLIST") && accessories_.ReadInfo(&profile, "ACCESSORYLIST");
}

bool CArmyTables::ImportLists(CSequentialInput& file) {
    return file.ReadTag("#ARMYWP") && weapons_.ImportInfoV1(file, true) && file.ReadTag("#ARMYAC") &&
           accessories_.ImportInfoV1(file, true);
}
