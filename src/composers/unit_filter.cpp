#include "composers/unit_filter.h"

#include "units/gen_unit.h"
#include "units/unit.h"

namespace {

bool IsSpecial(const CUnit& unit) {
    return unit.SpecialProp(CUnit::SharpShooter) != 0 || unit.SpecialProp(CUnit::Medic) != 0 ||
           unit.SpecialProp(CUnit::Ferocious) != 0 || unit.SpecialProp(CUnit::Officer) > 0 ||
           unit.SpecialProp(CUnit::HeroicSave) > 0;
}

}  // namespace

bool MUnitFilter::Selects(std::int32_t filter, const CGenUnit& entry) {
    const auto isSingle = [&entry] { return entry.GenUnitClass() == CGenUnit::Single; };
    switch (filter) {
        case All:
            return true;
        case Infantry:
            return entry.UnitType() == CUnit::Infantry;
        case Vehicles:
            return entry.UnitType() == CUnit::Vehicle;
        case Robots:
            return entry.UnitType() == CUnit::SlaveRobot || entry.UnitType() == CUnit::AutonomousRobot;
        case Squads:
            return entry.GenUnitClass() == CGenUnit::Squad;
        case Flyers:
            return isSingle() && entry.SingleUnit().SpecialProp(CUnit::Flyer) != 0;
        case Specials:
            return isSingle() && IsSpecial(entry.SingleUnit());
        default:
            return false;
    }
}
