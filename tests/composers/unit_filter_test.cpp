#include "composers/unit_filter.h"

#include <functional>
#include <vector>

#include "composers/unit_info.h"
#include "support/core_test.h"
#include "units/mult_unit.h"
#include "units/unit.h"
#include "units/unit_list.h"

namespace {

std::shared_ptr<CGenUnit> MakeUnit(std::int32_t type, const std::string& name = "X") {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Single);
    unit->SingleUnit().SetUnitType(type);
    for (std::int32_t special = 0; special < CUnit::SpecialCount; ++special)
        unit->SingleUnit().SetSpecialProp(special, 0);
    unit->SetName(name);
    return unit;
}

std::shared_ptr<CGenUnit> With(std::int32_t type, std::int32_t special, std::int16_t value) {
    auto unit = MakeUnit(type);
    unit->SingleUnit().SetSpecialProp(special, value);
    return unit;
}

std::shared_ptr<CGenUnit> MakeSquad() {
    auto squad = std::make_shared<CGenUnit>();
    squad->NewUnit(CGenUnit::Squad);
    squad->SquadUnit().Add(With(CUnit::Infantry, CUnit::Flyer, 1), "");
    return squad;
}

TEST(UnitFilterTest, EachFilterSelectsItsKindOfEntry) {
    using namespace MUnitFilter;
    const struct {
        const char* what;
        std::shared_ptr<CGenUnit> entry;
        std::vector<std::int32_t> filters;
    } cases[] = {
        {"infantry", MakeUnit(CUnit::Infantry), {All, Infantry}},
        {"vehicle", MakeUnit(CUnit::Vehicle), {All, Vehicles}},
        {"slave robot", MakeUnit(CUnit::SlaveRobot), {All, Robots}},
        {"autonomous robot", MakeUnit(CUnit::AutonomousRobot), {All, Robots}},
        {"squad of flyers", MakeSquad(), {All, Squads}},
        {"flyer", With(CUnit::Vehicle, CUnit::Flyer, 1), {All, Vehicles, Flyers}},
        {"flag of minus one", With(CUnit::Vehicle, CUnit::Flyer, -1), {All, Vehicles, Flyers}},
        {"sharp shooter", With(CUnit::Infantry, CUnit::SharpShooter, 1), {All, Infantry, Specials}},
        {"medic", With(CUnit::Infantry, CUnit::Medic, -1), {All, Infantry, Specials}},
        {"ferocious", With(CUnit::Infantry, CUnit::Ferocious, 1), {All, Infantry, Specials}},
        {"officer", With(CUnit::Infantry, CUnit::Officer, 2), {All, Infantry, Specials}},
        {"negative officer", With(CUnit::Infantry, CUnit::Officer, -1), {All, Infantry}},
        {"heroic save", With(CUnit::SlaveRobot, CUnit::HeroicSave, 1), {All, Robots, Specials}},
        {"negative save", With(CUnit::Infantry, CUnit::HeroicSave, -1), {All, Infantry}},
    };
    for (const auto& c : cases) {
        std::vector<std::int32_t> selecting;
        for (std::int32_t filter = -1; filter <= FilterCount; ++filter) {
            if (Selects(filter, *c.entry)) selecting.push_back(filter);
        }
        EXPECT_EQ(selecting, c.filters) << c.what;
    }
    EXPECT_EQ(ErrorOf([] { Selects(Infantry, CGenUnit()); }), 91);
}

TEST(UnitInfoTest, TextTellsOfTheEntryUnderTheNameGiven) {
    CUnitList units;
    units.SetIndexed(true);
    auto medic = With(CUnit::Infantry, CUnit::Medic, 1);
    medic->SetName("Ren\xE9");
    medic->SetDescr("First line.");
    const std::string cost = "Point Cost: " + std::to_string(static_cast<int>(medic->EquippedPointCost()));
    units.Add(medic);
    EXPECT_EQ(MUnitInfo::Text(units, "REN\xC9"), "REN\xC9:\r\n" + cost + "\r\nMedic\r\nFirst line.");
    EXPECT_EQ(MUnitInfo::TextIfKnown(units, "Ren\xE9"), MUnitInfo::Text(units, "Ren\xE9"));
    EXPECT_EQ(MUnitInfo::TextIfKnown(units, "Ghost"), "Ghost:\r\nUNABLE TO RETRIEVE INFORMATION");
    EXPECT_EQ(ErrorOf([&] { MUnitInfo::Text(units, "Ghost"); }), 5);
}

}  // namespace
