#include "core/files/record.h"

#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/sequential.h"

void CRecord::SetFullInfo(bool full) {
    fullInfo_ = MFileFormat::FlagWord(full);
}

void CRecord::SetVersion(std::int16_t version) {
    version_ = version;
    CalculatePointCost();
}

bool CRecord::WriteIdentity(CProfile& profile, const std::string& section, const char* tag) const {
    return profile.WriteProfile(section, "ENTRY", tag) &&
           profile.WriteProfile(section, "VERSION", std::to_string(version_)) &&
           profile.WriteProfile(section, "FULLINFO", std::to_string(fullInfo_)) &&
           profile.WriteProfile(section, "NAME", Name()) && profile.WriteProfile(section, "DESCR", descr_) &&
           profile.WriteProfile(section, "KEY", key_);
}

bool CRecord::ReadIdentity(CProfile& profile, const std::string& section, const char* tag) {
    std::string text;
    if (!profile.ReadProfile(section, "ENTRY", text) || text != tag) return false;
    // The version of a record is checked and dropped: what is read becomes a record of this version.
    if (profile.ReadProfile(section, "VERSION", text)) MNumberText::ToInt16(text);
    if (!profile.ReadProfile(section, "FULLINFO", text)) return false;
    fullInfo_ = MNumberText::ToInt16(text);
    if (!profile.ReadProfile(section, "NAME", text)) return false;
    SetName(text);
    descr_.clear();
    profile.ReadProfile(section, "DESCR", descr_);
    key_.clear();
    profile.ReadProfile(section, "KEY", key_);
    return true;
}

std::int16_t CRecord::ImportIdentity(CSequentialInput& file) {
    fullInfo_ = file.ReadInt16();
    const std::int16_t recordVersion = file.ReadInt16();
    file.ReadText();
    file.ReadInt16();
    // A name that a file takes for none would make all of the document unreadable.
    const std::string name = file.ReadText();
    SetName(MFileFormat::AsFileGivesBack(name).empty() ? "" : name);
    descr_ = file.ReadText();
    return recordVersion;
}

bool CRecord::WritePoints(CProfile& profile, const std::string& section, double first, double second) {
    return profile.WriteProfile(section, "POINTS",
                                MFileFormat::FormatRealField(first) + "," + MFileFormat::FormatRealField(second));
}

bool CRecord::ReadPoints(CProfile& profile, const std::string& section, double& first, double& second) {
    std::string text;
    if (!profile.ReadProfile(section, "POINTS", text)) return false;
    const MNumberText::CCommaList points(text);
    first = MNumberText::ToReal(points.Item(0));
    second = MNumberText::ToReal(points.Item(1));
    return true;
}
