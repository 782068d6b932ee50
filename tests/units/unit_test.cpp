#include "units/unit.h"

#include <array>

#include "core/files/profile.h"
#include "core/files/sequential.h"
#include "support/core_test.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"

namespace {

using UnitTest = CoreTest;

std::shared_ptr<CEqItem> WeaponOf(double cost) {
    auto item = std::make_shared<CEqItem>();
    item->NewItem(CEqItem::Weapon);
    item->SetName("w");
    item->AsWeapon()->SetPenMultiplier(1);
    item->AsWeapon()->SetBaseCost(cost);
    return item;
}

TEST(UnitCost, FollowsBothEditionsOfTheRules) {
    const struct {
        const char* what;
        std::int32_t type;
        std::array<std::int16_t, CUnit::StatCount> stats;  // MV, SS, FA, PF, DP
        std::array<std::int16_t, CUnit::CrewPlaceCount> crew;
        std::array<std::int16_t, CUnit::SpecialCount> specials;
        double weapon, second, equipped, first;
    } kCases[] = {
        {"SS 4, FA 4", 0, {10, 4, 4, 0, 6}, {}, {}, 0, 21, 21, 21},
        {"SS 0, FA 0, a medic: floor first", 0, {10, 0, 0, 0, 6}, {}, {0, 0, 1}, 0, 7, 7, 2},
        {"MV 12, DP 4, PF 3", 0, {12, 6, 6, 3, 4}, {}, {}, 0, 18, 18, 18},
        {"officer 2", 0, {10, 6, 6, 0, 6}, {}, {0, 0, 0, 2}, 10, 18, 38, 18},
        {"sharpshooter, heroic, ferocious", 0, {10, 6, 6, 0, 6}, {}, {0, 1, 0, 0, 2, -1}, 0, 24, 24, 5},
        {"vehicle, officer isn't doubled", 1, {10, 0, 0, 0, 0}, {1}, {0, 0, 0, 2}, 0, 11, 11, 11},
        {"vehicle PF 2, one inside", 1, {10, 0, 0, 2, 0}, {1, 0, 1}, {}, 0, 15, 15, 13},
        {"vehicle, one life supported", 1, {10, 0, 0, 5, 0}, {1, 0, 0, 1}, {}, 0, 30, 30, 30},
        {"vehicle, one partly exposed", 1, {10, 0, 0, 0, 0}, {1, 1}, {}, 0, 11, 11, 12},
        {"vehicle SS 5: gained", 1, {10, 5, 0, 0, 0}, {1}, {}, 0, 17, 17, 17},
        {"vehicle FA 4: gained", 1, {10, 0, 4, 0, 0}, {1}, {}, 0, 16, 16, 4},
        {"flying vehicle with a weapon", 1, {10, 0, 0, 0, 0}, {1}, {1}, 3, 10.5, 15, 10.5},
        {"autonomous robot DP 3", 3, {10, 6, 0, 0, 3}, {}, {}, 0, 11, 11, 11},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        CUnit unit;
        unit.SetUnitType(c.type);
        for (std::int32_t i = 0; i < CUnit::SpecialCount; ++i) {
            unit.SetSpecialProp(i, c.specials[static_cast<std::size_t>(i)]);
            if (i < CUnit::StatCount) unit.SetStatValue(i, c.stats[static_cast<std::size_t>(i)]);
            if (i < CUnit::CrewPlaceCount) unit.SetCrew(i, c.crew[static_cast<std::size_t>(i)]);
        }
        if (c.weapon != 0) unit.AddItem(WeaponOf(c.weapon));
        EXPECT_EQ(unit.PointCost(), c.second);
        EXPECT_EQ(unit.EquippedPointCost(), c.equipped);
        unit.SetVersion(1);
        EXPECT_EQ(unit.PointCost(), c.first);
        unit.SetQuantity(3);
        EXPECT_EQ(unit.PointCost(), 3 * c.first);
    }
}

TEST(UnitStats, AreHeldWithinTheirLimits) {
    const std::tuple<std::int32_t, std::int32_t, std::int16_t, std::int16_t> kCases[] = {
        {0, 0, 25, 20}, {1, 0, 25, 25}, {0, 1, 1, 2}, {0, 1, 9, 6}, {0, 1, 0, 0},
        {0, 1, -3, 0},  {1, 2, 1, 2},   {2, 2, 7, 6}, {0, 3, 9, 5}, {1, 3, 9, 9},
        {0, 4, 1, 2},   {1, 4, 1, 1},   {3, 4, 9, 6}, {0, 7, 5, 0}, {0, -1, 5, 0}};
    for (const auto& [type, stat, value, held] : kCases) {
        CUnit unit;
        unit.SetUnitType(type);
        unit.SetStatValue(stat, value);
        EXPECT_EQ(unit.StatValue(stat), held) << type << " " << stat << " " << value;
    }
    CUnit unit;
    unit.SetSpecialProp(CUnit::Medic, 1);
    unit.SetUnitType(CUnit::AutonomousRobot);
    EXPECT_EQ(unit.SpecialProp(CUnit::Medic) + unit.StatValue(CUnit::DP), 0 + 6) << "the type leaves the stats";
    unit.SetCrew(1, -2);
    unit.SetQuantity(0);
    EXPECT_EQ(unit.Crew(1) + unit.Quantity(), 0 + 1);
    EXPECT_EQ(ErrorOf([&] { unit.SetCrew(4, 1); }), 9);
    EXPECT_EQ(ErrorOf([&] { unit.SetSpecialProp(CUnit::HeroicSave, 6554); }), 6);
}

TEST(UnitEquipment, ArmourChangesPfWithinItsLimit) {
    const auto armour = std::make_shared<CEqItem>();
    armour->NewItem(CEqItem::Accessory);
    armour->AsAccessory()->SetPF(3);
    armour->AsAccessory()->SetAccProperty(CAccessory::IndividualArmour, true);
    CUnit unit;
    unit.SetStatValue(CUnit::PF, 4);
    EXPECT_TRUE(unit.AddItem(armour));
    EXPECT_EQ(unit.StatValue(CUnit::PF), 5);
    EXPECT_FALSE(armour->FullInfo() || unit.RemoveItem(2));
    EXPECT_TRUE(unit.RemoveItem(1));
    EXPECT_EQ(unit.PointCost(), 9);  // PF 2
}

TEST(UnitSummary, IsFrozenAndScaled) {
    CUnit unit;
    unit.AddItem(WeaponOf(1));
    unit.SetQuantity(3);
    unit.SetFullInfo(false);
    unit.SetQuantity(2);
    unit.SetSpecialProp(CUnit::Officer, 2);
    CUnit copy;
    copy.Clone(unit);
    EXPECT_EQ(copy.PointCost(), 10);
    EXPECT_EQ(copy.EquippedPointCost(), 12);
}

std::shared_ptr<CGenUnit> Single(const std::string& name, double cost, std::int16_t quantity = 1) {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Single);
    unit->SetName(name);
    unit->AsUnit()->AddItem(WeaponOf(cost - 5));  // plain infantry costs 5
    unit->SetQuantity(quantity);
    return unit;
}

TEST(Squad, SumsItsMembers) {
    auto squad = std::make_shared<CGenUnit>();
    squad->NewUnit(CGenUnit::Squad);
    const auto ten = Single("ten", 10);
    squad->AsSquad()->Add(ten, "");
    squad->AsSquad()->Add(Single("five", 5), "");
    squad->SetQuantity(2);
    ten->AsUnit()->SetStatValue(CUnit::SS, 2);  // a summary now
    EXPECT_EQ(squad->EquippedPointCost(), 30);
    EXPECT_EQ(squad->PointCost(), 20);

    CMultUnit outer;
    outer.Add(squad, "");
    outer.SetQuantity(3);
    CMultUnit copy;
    copy.Clone(outer);
    copy.Item(1).AsSquad()->Remove(1);
    EXPECT_EQ(copy.EquippedPointCost(), 30);
    copy.SetQuantity(0);
    EXPECT_EQ(copy.EquippedPointCost(), 10) << "one at least";
    EXPECT_EQ(outer.EquippedPointCost(), 90);

    CArmyRoster roster;
    EXPECT_EQ(roster.Add(Single("a", 10, 3)) + roster.Add(Single("a", 12.5)), 1 + 2);
    EXPECT_FALSE(roster.ArmyUnits().Item(1).FullInfo());
    EXPECT_EQ(roster.PointCost(), 42.5);
}

TEST_F(UnitTest, OldUnitsAreImportedAndPricedAnew) {
    // MV 10, SS 6, FA 3, PF 0, DP 6; no crew; officer 0, flyer 0
    const std::string first = "\"#U\",1,1,\"h\",0,\"n\",\"d\",0,\"Inf\",\"\",10,6,3,0,6,0,0,0,0,0,0,\"#P\",99,98,";
    const std::string second = Changed(Changed(first, "1,1,", "1,2,"), "\"#P\"", "1,0,0,\"#P\"");
    const std::tuple<const char*, std::string, bool, double, std::int16_t> kCases[] = {
        {"first records count FA upward: 3 is 4", first + "\"#EL\",0", true, 11, 4},
        {"FA 9 would be below 0", Changed(first, "10,6,3", "10,6,9") + "\"#EL\",0", true, 2, 0},
        {"second records, a medic", second + "\"#EL\",0", true, 19, 3},
        {"broken equipment is priced all the same", second + "\"#EL\",1,\"#X\"", false, 19, 3},
        {"no end", Changed(second, "#P", "#Q"), false, 5, 3},
    };
    for (const auto& [what, bytes, ok, cost, fa] : kCases) {
        CSequentialInput file(Save("f", bytes));
        CUnit unit;
        EXPECT_EQ(unit.ImportInfoV1(file, true), ok) << what;
        EXPECT_EQ(unit.PointCost(), cost) << what;
        EXPECT_EQ(unit.StatValue(CUnit::FA), fa) << what;
    }
}

TEST_F(UnitTest, OldSquadsCarryTheirMembers) {
    const std::string member = "\"#U\",0,2,\"h\",0,\"m\",\"d\",0,\"Infantry\",\"\",\"#P\",3,4\r\n";
    const std::string head = "\"#MU\",1,2,\"h\",0,\"S\",\"d\",90,91,";
    const std::tuple<std::string, bool, std::int32_t, double> kCases[] = {
        {head + "2\r\n" + member + member, true, 2, 8},
        {head + "-5", true, 0, 0},
        {head + "2147483647\r\n" + member, false, 1, 4},
        {"\"#MU\",0,2,\"h\",0,\"S\",\"d\",90,91,7", true, 0, 0}};
    for (const auto& [bytes, ok, members, cost] : kCases) {
        CSequentialInput file(Save("f", bytes));
        CMultUnit squad;
        EXPECT_EQ(squad.ImportInfoV1(file, true), ok) << bytes;
        EXPECT_EQ(squad.Count(), members) << bytes;
        EXPECT_EQ(squad.EquippedPointCost(), cost) << bytes;
    }
}

}  // namespace
