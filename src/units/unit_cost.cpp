// The prices of units. Every sum is taken in the order given here: costs are compared to the last digit.

#include <array>

#include "core/files/int16.h"
#include "core/files/number_text.h"
#include "units/unit.h"

namespace {

// A skill of 7 is what nobody has: 7 less the skill is how good it is.
constexpr int kNoSkill = 7;

}  // namespace

void CUnit::CalculatePointCost() {
    if (!FullInfo()) return;
    if (version_ >= 2) {
        CalculatePointCostV2();
    } else {
        CalculatePointCostV1();
    }
    pointCost_ = MNumberText::Finite(quantity_ * pointCost_);
    equippedPointCost_ = MNumberText::Finite(quantity_ * equippedPointCost_);
}

void CUnit::CalculatePointCostV2() {
    CalculateModelCost(Edition::Second);
}

void CUnit::CalculatePointCostV1() {
    CalculateModelCost(Edition::First);
}

void CUnit::CalculateModelCost(Edition edition) {
    const bool second = edition == Edition::Second;
    const auto stat = [this](Stat index) { return CInt16(stats_[index]); };
    const auto base = [this](Stat index) { return CInt16(baseStats_[index]); };
    const auto lacks = [this](Stat index) { return stats_[index] == 0 && baseStats_[index] > 0; };
    const auto gains = [this](Stat index) { return stats_[index] > 0 && baseStats_[index] == 0; };
    double& cost = pointCost_;
    double& equipped = equippedPointCost_;

    const double armour = PFPointCost(stats_[PF]);
    cost = (((stat(MV) - base(MV)).Value() + typeBaseCost_) + armour) + ((base(DP) - stat(DP)) * 2).Value();

    // Giving up a skill pays back less than the skill is worth.
    if (lacks(SS)) {
        cost = cost - ((kNoSkill - base(SS)) * 3).Value();
    } else if (gains(SS)) {
        cost = ((kNoSkill - stat(SS)) * 5).Value() + cost;
    } else {
        cost = ((base(SS) - stat(SS)) * 5).Value() + cost;
    }
    if (lacks(FA)) {
        cost = cost - ((kNoSkill - base(FA)) * 3).Value();
    } else if (second && gains(FA)) {
        cost = ((kNoSkill - stat(FA)) * 3).Value() + cost;
    } else {
        cost = ((base(FA) - stat(FA)) * 3).Value() + cost;
    }

    // The floor holds for the stats alone: what follows comes on top of it.
    if (cost < 2.0) cost = 2.0;

    const std::int16_t officer = specials_[Officer];
    if (officer > 0) cost = (CInt16(officer) * 2).Value() + cost;
    if (second) {
        if (specials_[HeroicSave] > 0) cost = (CInt16(specials_[HeroicSave]) * 5).Value() + cost;
        if (specials_[Medic] != 0) cost = cost + 5.0;
        if (specials_[SharpShooter] != 0) cost = cost + 5.0;
        if (specials_[Ferocious] != 0) cost = cost + 4.0;
    }

    equipped = cost;
    for (const CEqItem& item : EqList())
        equipped = MNumberText::Finite(equipped + item.PointCost());

    if (type_ != Infantry) {
        const double crew = second ? CrewPointCostV2() : CrewPointCostV1();
        cost = crew + cost;
        equipped = crew + equipped;
    } else if (officer > 0) {
        cost = cost + cost;
        equipped = MNumberText::Finite(equipped + equipped);
    }
    if (specials_[Flyer] != 0) {
        cost = cost * 1.5;
        equipped = MNumberText::Finite(equipped * 1.5);
    }
}

double CUnit::PFPointCost(std::int16_t pf) {
    constexpr std::array<double, 6> kCosts = {0, 2, 4, 7, 10, 14};
    if (pf >= 0 && static_cast<std::size_t>(pf) < kCosts.size()) return kCosts[static_cast<std::size_t>(pf)];
    return 14 + ((CInt16(pf) - 5) * 5).Value();
}

// A place inside costs half of what the hull's protection costs.
double CUnit::CrewPointCostV1() const {
    const double half = PFPointCost(stats_[PF]) / 2.0;
    const CInt16 outside = CInt16(crew_[PartiallyExposed]) * 5 + CInt16(crew_[FullyExposed]) * 2;
    return outside.Value() + half * crew_[Enclosed] + (half + 2.0) * crew_[LifeSupported];
}

double CUnit::CrewPointCostV2() const {
    const CInt16 outside = CInt16(crew_[PartiallyExposed]) * 4 + CInt16(crew_[FullyExposed]) * 2;
    double half = PFPointCost(stats_[PF]) / 2.0;
    if (half < 4.0) half = 4.0;
    return (half * crew_[Enclosed] + outside.Value()) + (half + 2.0) * crew_[LifeSupported];
}
