#include "units/army_roster.h"

#include <utility>

#include "core/files/number_text.h"

double CArmyRoster::PointCost() const {
    double total = 0;
    for (const CGenUnit& unit : ArmyUnits())
        total = MNumberText::Finite(total + unit.EquippedPointCost());
    return total;
}

std::int32_t CArmyRoster::Add(std::shared_ptr<CGenUnit> unit) {
    unit->SetFullInfo(false);
    return ArmyUnits().Add(std::move(unit));
}
