#include "equipment/equipment.h"

#include <cmath>

#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"

void CEquipment::SetFullInfo(bool full) {
    fullInfo_ = MFileFormat::FlagWord(full);
}

void CEquipment::SetVersion(std::int16_t version) {
    version_ = version;
    CalculatePointCost();
}

void CEquipment::SetAreaOfEffect(std::int16_t radius) {
    areaOfEffect_ = radius;
    CalculatePointCost();
}

void CEquipment::SetTargetingBonus(std::int16_t bonus) {
    targetingBonus_ = bonus;
    CalculatePointCost();
}

double CEquipment::AreaFactor() const {
    return MNumberText::Finite(std::pow(2.0, areaOfEffect_ / 3.0));
}

std::string CEquipment::AreaAndTargetingStr() const {
    std::string text;
    if (areaOfEffect_ > 0) text += "Area of Effect " + std::to_string(areaOfEffect_) + "cm Radius, ";
    if (targetingBonus_ > 0) text += "Targeting Bonus +" + std::to_string(targetingBonus_) + ", ";
    return text;
}

bool CEquipment::WriteInfo(CProfile* profile, const std::string& section) const {
    return Trap([&] {
        if (profile == nullptr) return false;
        const std::string points =
            MFileFormat::FormatRealField(baseCost_) + "," + MFileFormat::FormatRealField(pointCost_);
        return profile->WriteProfile(section, "ENTRY", Tag()) &&
               profile->WriteProfile(section, "VERSION", std::to_string(version_)) &&
               profile->WriteProfile(section, "FULLINFO", std::to_string(fullInfo_)) &&
               profile->WriteProfile(section, "NAME", name_) && profile->WriteProfile(section, "DESCR", descr_) &&
               profile->WriteProfile(section, "KEY", key_) && profile->WriteProfile(section, "CLASS", class_) &&
               profile->WriteProfile(section, "POINTS", points) && WriteProperties(*profile, section);
    });
}

bool CEquipment::ReadInfo(CProfile* profile, const std::string& section) {
    return Trap([&] {
        std::string text;
        if (profile == nullptr || !profile->ReadProfile(section, "ENTRY", text) || text != Tag()) return false;
        // The version of a record is checked and dropped: what is read becomes a record of this version.
        if (profile->ReadProfile(section, "VERSION", text)) MNumberText::ToInt16(text);
        if (!profile->ReadProfile(section, "FULLINFO", text)) return false;
        fullInfo_ = MNumberText::ToInt16(text);
        if (!profile->ReadProfile(section, "NAME", name_)) return false;
        descr_.clear();
        profile->ReadProfile(section, "DESCR", descr_);
        key_.clear();
        profile->ReadProfile(section, "KEY", key_);
        if (!profile->ReadProfile(section, "CLASS", class_)) return false;
        if (!profile->ReadProfile(section, "POINTS", text)) return false;
        const MNumberText::CCommaList points(text);
        baseCost_ = MNumberText::ToReal(points.Item(0));
        pointCost_ = MNumberText::ToReal(points.Item(1));
        return ReadProperties(*profile, section);
    });
}

bool CEquipment::ImportInfoV1(CSequentialInput& file, bool readTag) {
    return Trap([&] {
        if (readTag && !file.ReadTag(Tag())) return false;
        fullInfo_ = file.ReadInt16();
        file.ReadInt16();
        file.ReadText();
        file.ReadInt16();
        name_ = file.ReadText();
        descr_ = file.ReadText();
        class_ = file.ReadText();
        ImportProperties(file);
        if (!file.SkipToTag("#P")) return false;
        baseCost_ = file.ReadReal();
        pointCost_ = file.ReadReal();
        return true;
    });
}

namespace MEquipmentRules {

double Power(double base, std::int16_t word) {
    if (word == 0) return 1;
    if (word == 1) return base;
    return MNumberText::Finite(std::pow(base, word));
}

std::string WithoutLastSeparator(std::string text) {
    if (!text.empty()) text.resize(text.size() - 2);
    return text;
}

}  // namespace MEquipmentRules
