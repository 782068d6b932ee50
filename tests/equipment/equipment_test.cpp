#include "core/files/profile.h"
#include "core/files/sequential.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"

namespace {

using EquipmentTest = CoreTest;

TEST(WeaponCost, FollowsTheRules) {
    // Base cost, multiplier, area, targeting bonus, properties; the cost.
    const std::tuple<const char*, double, float, std::int16_t, std::int16_t, std::vector<std::int32_t>, double>
        kCases[] = {
            {"area 1", 10, 1, 1, 0, {}, 12.599210498948732},
            {"area -3 halves", 10, 1, -3, 0, {}, 5},
            {"flame before automatic", 10, 1.5f, 0, 0, {0, 8}, 45},
            {"acid and gases", 1, 2, 0, 0, {1, 2, 3}, 24},
            {"one use, needs reloading", 10, 1, 0, 0, {6, 11}, 3.75},
            {"all other factors", 10, 1, 0, 0, {4, 5, 7, 8, 9, 10}, 67.5},
            {"targeting below nothing", 10, 1, 0, -3, {}, -5},
            {"multiplier enters as a single", 10, 1.1f, 0, 0, {}, static_cast<double>(1.1f) * 10},
        };
    for (const auto& [what, base, multiplier, area, targeting, properties, cost] : kCases) {
        CWeapon weapon;
        weapon.SetBaseCost(base);
        weapon.SetPenMultiplier(multiplier);
        weapon.SetAreaOfEffect(area);
        weapon.SetTargetingBonus(targeting);
        for (const std::int32_t property : properties)
            weapon.SetWeaponProperty(property, true);
        EXPECT_EQ(weapon.PointCost(), cost) << what;
        EXPECT_EQ(ErrorOf([&] { weapon.SetTargetingBonus(6554); }), 6) << what;
        EXPECT_EQ(weapon.PointCost(), cost) << what << ", after a fault";
    }
}

TEST(AccessoryCost, SuggestsAndLeavesThePriceAlone) {
    CAccessory accessory;
    accessory.SetPointCost(7);
    accessory.SetPF(2);
    accessory.SetAreaOfEffect(6);
    accessory.SetAccProperty(CAccessory::OneUse, true);
    EXPECT_EQ(accessory.BaseCost(), 20);
    accessory.SetAccProperty(CAccessory::Recharge, true);
    accessory.SetAccProperty(CAccessory::NeedsReloading, true);
    EXPECT_EQ(ErrorOf([&] { accessory.SetPF(6554); }), 6);
    EXPECT_EQ(accessory.BaseCost(), 11.25);
    EXPECT_EQ(accessory.PointCost(), 7);

    CAccessory armour;
    armour.SetAccProperty(CAccessory::IndividualArmour, true);
    armour.SetPF(3);
    EXPECT_EQ(armour.BaseCost(), 0);
    armour.SetTargetingBonus(-2);
    EXPECT_EQ(armour.BaseCost(), -10);
}

TEST_F(EquipmentTest, RecordsInOddStates) {
    const std::string w = Lines({"[S]", "ENTRY=#W", "VERSION=2", "FULLINFO=1", "NAME=n", "DESCR=d", "CLASS=Rifle",
                                 "POINTS=10,1", "PROP2=1,0,0,0,0,0,0,0,0,1,1,0", "PROP3=4,1.5,0,0"});
    const std::string a = Lines({"[S]", "ENTRY=#I", "VERSION=2", "FULLINFO=1", "NAME=n", "DESCR=d", "CLASS=Armour",
                                 "POINTS=99,12.5", "PROP1=2,0", "PROP2=1,0,0,0,0"});
    // With the cost of the item that is read or half read.
    const std::tuple<const char*, std::string, bool, double> kCases[] = {
        // (10 + 5) x 1.5 x 2 x 2 for Automatic Fire and Off Table Support
        {"a full weapon is priced anew", w, true, 90},
        {"version out of range", Changed(w, "VERSION=2", "VERSION=32768"), false, 0},
        {"a summary keeps its cost", Changed(w, "FULLINFO=1", "FULLINFO=0"), true, 1},
        {"words are numbers", Changed(w, "1,1,0\r", "2,-1,0\r"), true, 45},  // 15 x 1.5 x 4 x 1/2
        {"three numbers", Changed(w, "4,1.5,0,0", "4,1.5,0"), false, 1},
        {"cost beyond a double", Changed(w, "4,1.5,0,0", "4,1.5,32000,0"), false, 15},
        {"accessory: no price, PF 2 for one use", a, true, 12.5},
        {"accessory: no armour line", Changed(a, "PROP1", "X"), false, 12.5},
    };
    for (const auto& [what, record, ok, cost] : kCases) {
        CProfile profile = CProfile::ForReading(Save("f", record));
        CEqItem item;
        EXPECT_EQ(item.ReadInfo(&profile, "S"), ok) << what;
        EXPECT_EQ(item.PointCost(), cost) << what;
        EXPECT_TRUE(!ok || item.AsWeapon() != nullptr || item.Item().BaseCost() == 5) << what;
    }
}

TEST_F(EquipmentTest, OldRecordsAreImported) {
    CSequentialInput file(Save("f",
                               "\"#W\",1,2,\"h\",0,\"Old\",\"d\",\"Rifle\","
                               "3,1.5,1,0,0,0,0,0,0,0,1,0,0,0,3,2,\"later\",9,\"#P\",8,77.5"));
    CEqItem item;
    ASSERT_TRUE(item.ImportInfoV1(file));
    EXPECT_EQ(item.PointCost(), 77.5);  // what the file says, until something changes
    item.CalculatePointCost();
    EXPECT_EQ(item.PointCost(), (8 + 5 + 2 * 5) * 1.5 * 2 * 0.75);

    // Summaries, a full accessory, and one without the tag that ends the numbers.
    const std::tuple<const char*, bool, double> kCases[] = {
        {"\"#W\",0,2,\"h\",0,\"Short\",\"d\",\"Rifle\",\"#P\",1,2", true, 2},
        {"\"#I\",0,2,\"h\",0,\"Short\",\"d\",\"Any\",2,1,\"#P\",1,3", true, 3},
        {"\"#I\",1,2,\"h\",0,\"Long\",\"d\",\"Any\",2,0,0,0,1,0,0,\"#P\",1,4", true, 4},
        {"\"#I\",1,2,\"h\",0,\"Long\",\"d\",\"Any\",2,0,0,0,1,0,0,1,4", false, 0}};
    for (const auto& [bytes, ok, cost] : kCases) {
        CSequentialInput input(Save("f", bytes));
        EXPECT_EQ(item.ImportInfoV1(input), ok) << bytes;
        CEqItem copy;
        copy.Clone(item);
        EXPECT_EQ(copy.PointCost(), cost) << bytes;
    }
}

}  // namespace
