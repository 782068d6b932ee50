#include "equipment/equipment.h"

#include <cmath>

#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"

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
        return profile != nullptr && WriteIdentity(*profile, section, Tag()) &&
               profile->WriteProfile(section, "CLASS", class_) &&
               WritePoints(*profile, section, baseCost_, pointCost_) && WriteProperties(*profile, section);
    });
}

bool CEquipment::ReadInfo(CProfile* profile, const std::string& section) {
    return Trap([&] {
        return profile != nullptr && ReadIdentity(*profile, section, Tag()) &&
               profile->ReadProfile(section, "CLASS", class_) && ReadPoints(*profile, section, baseCost_, pointCost_) &&
               ReadProperties(*profile, section);
    });
}

bool CEquipment::ImportInfoV1(CSequentialInput& file, bool readTag) {
    return Trap([&] {
        if (readTag && !file.ReadTag(Tag())) return false;
        ImportIdentity(file);
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
