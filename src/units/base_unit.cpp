#include "units/base_unit.h"

#include "core/files/number_text.h"
#include "core/files/profile.h"

bool CBaseUnit::WriteQuantityAndPoints(CProfile& profile, const std::string& section) const {
    return profile.WriteProfile(section, "QUANTITY", std::to_string(quantity_)) &&
           WritePoints(profile, section, pointCost_, equippedPointCost_);
}

bool CBaseUnit::ReadQuantityAndPoints(CProfile& profile, const std::string& section) {
    std::string text;
    quantity_ = 1;
    if (profile.ReadProfile(section, "QUANTITY", text)) quantity_ = MNumberText::ToInt16(text);
    return ReadPoints(profile, section, pointCost_, equippedPointCost_);
}
