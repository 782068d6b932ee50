#include "composers/unit_filter.h"

#include <vector>

#include "support/core_test.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace {

std::shared_ptr<CGenUnit> With(CUnit::Type type, std::int32_t special, std::int16_t value) {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Single);
    unit->SingleUnit().SetUnitType(type);
    unit->SingleUnit().SetSpecialProp(special, value);
    return unit;
}

TEST(UnitFilterTest, EachFilterSelectsItsKindOfEntry) {
    using namespace MUnitFilter;
    auto flyers = std::make_shared<CGenUnit>();
    flyers->NewUnit(CGenUnit::Squad);
    flyers->SquadUnit().Add(With(CUnit::Infantry, CUnit::Flyer, 1), "");
    const std::tuple<const char*, std::shared_ptr<CGenUnit>, std::vector<std::int32_t>> kEntries[] = {
        {"squad of flyers", flyers, {All, Squads}},
        {"autonomous robot", With(CUnit::AutonomousRobot, CUnit::Flyer, 0), {All, Robots}},
        {"flyer, -1 is set", With(CUnit::Vehicle, CUnit::Flyer, -1), {All, Vehicles, Flyers}},
        {"sharp shooter", With(CUnit::Infantry, CUnit::SharpShooter, 1), {All, Infantry, Specials}},
        {"medic", With(CUnit::Infantry, CUnit::Medic, -1), {All, Infantry, Specials}},
        {"officer of -1 is none", With(CUnit::Infantry, CUnit::Officer, -1), {All, Infantry}},
        {"save of -1 is none", With(CUnit::Infantry, CUnit::HeroicSave, -1), {All, Infantry}},
    };
    for (const auto& [what, entry, filters] : kEntries) {
        std::vector<std::int32_t> selecting;
        for (std::int32_t filter = -1; filter <= FilterCount; ++filter) {
            if (Selects(filter, *entry)) selecting.push_back(filter);
        }
        EXPECT_EQ(selecting, filters) << what;
    }
}

}  // namespace
