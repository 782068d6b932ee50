#include <functional>

#include "core/files/profile.h"
#include "core/files/sequential.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"

namespace {

using EquipmentTest = CoreTest;

CWeapon Weapon(double base, float multiplier, const std::function<void(CWeapon&)>& set = nullptr) {
    CWeapon weapon;
    weapon.SetBaseCost(base);
    weapon.SetPenMultiplier(multiplier);
    if (set) set(weapon);
    return weapon;
}

auto With(std::initializer_list<std::int32_t> properties) {
    return [properties = std::vector<std::int32_t>(properties)](CWeapon& weapon) {
        for (const std::int32_t property : properties)
            weapon.SetWeaponProperty(property, true);
    };
}

TEST(WeaponCost, FollowsTheRules) {
    const std::tuple<const char*, CWeapon, double> kCases[] = {
        {"area 1", Weapon(10, 1, [](CWeapon& w) { w.SetAreaOfEffect(1); }), 12.599210498948732},
        {"area -3 halves", Weapon(10, 1, [](CWeapon& w) { w.SetAreaOfEffect(-3); }), 5},
        {"flame before automatic", Weapon(10, 1.5f, With({0, 8})), 45},
        {"acid and gases", Weapon(1, 2, With({1, 2, 3})), 24},
        {"one use, needs reloading", Weapon(10, 1, With({6, 11})), 3.75},
        {"all other factors", Weapon(10, 1, With({4, 5, 7, 8, 9, 10})), 67.5},
        {"targeting below nothing", Weapon(10, 1, [](CWeapon& w) { w.SetTargetingBonus(-3); }), -5},
        {"penetration costs nothing itself", Weapon(10, 1, [](CWeapon& w) { w.SetPen(9); }), 10},
        {"multiplier 0", Weapon(10, 0, With({0, 1, 8})), 0},
        {"multiplier enters as a single", Weapon(10, 1.1f), static_cast<double>(1.1f) * 10},
    };
    for (const auto& [what, weapon, cost] : kCases)
        EXPECT_EQ(weapon.PointCost(), cost) << what;
}

TEST(WeaponCost, FaultsReachTheCallerAndKeepTheCost) {
    CWeapon weapon = Weapon(10, 1);
    EXPECT_EQ(ErrorOf([&] { weapon.SetTargetingBonus(6554); }), 6);
    EXPECT_EQ(weapon.TargetingBonus(), 6554);
    EXPECT_EQ(weapon.PointCost(), 10);
    weapon.SetTargetingBonus(0);
    EXPECT_EQ(ErrorOf([&] { weapon.SetAreaOfEffect(32767); }), 6);
    weapon.SetAreaOfEffect(0);
    EXPECT_EQ(ErrorOf([&] { weapon.SetBaseCost(1e308), With({5, 8})(weapon); }), 6);
    for (const std::int32_t unknown : {-1, 12})
        EXPECT_EQ(ErrorOf([&] { weapon.SetWeaponProperty(unknown, true); }), 9);
}

TEST(AccessoryCost, SuggestsAndLeavesThePriceAlone) {
    CAccessory accessory;
    accessory.SetPointCost(7);
    accessory.SetPF(2);
    accessory.SetAreaOfEffect(6);
    EXPECT_EQ(accessory.BaseCost(), 40);
    accessory.SetAccProperty(CAccessory::OneUse, true);
    EXPECT_EQ(accessory.BaseCost(), 20);
    accessory.SetAccProperty(CAccessory::Recharge, true);
    accessory.SetAccProperty(CAccessory::NeedsReloading, true);
    EXPECT_EQ(accessory.BaseCost(), 11.25);
    EXPECT_EQ(accessory.SpecialPropertiesStr(),
              "Recharge 1 Turn, One Use, Needs Reloading, Area of Effect 6cm Radius, PF 2");
    EXPECT_EQ(ErrorOf([&] { accessory.SetPF(6554); }), 6);
    EXPECT_EQ(accessory.BaseCost(), 11.25);
    EXPECT_EQ(ErrorOf([&] { accessory.SetAccProperty(4, true); }), 9);
    EXPECT_EQ(accessory.PointCost(), 7);

    CAccessory armour;
    armour.SetAccProperty(CAccessory::IndividualArmour, true);
    armour.SetPF(3);
    EXPECT_EQ(armour.BaseCost(), 0);
    armour.SetTargetingBonus(-2);
    EXPECT_EQ(armour.BaseCost(), -10);
    EXPECT_EQ(armour.SpecialPropertiesStr(), "Individual Armour, PF 3");
}

TEST_F(EquipmentTest, RecordsInOddStates) {
    const std::string w = Lines({"[S]", "ENTRY=#W", "VERSION=2", "FULLINFO=1", "NAME=n", "DESCR=d", "CLASS=Rifle",
                                 "POINTS=10,1", "PROP2=1,0,0,0,0,0,0,0,0,1,1,0", "PROP3=4,1.5,0,0"});
    const std::string a = Lines({"[S]", "ENTRY=#I", "VERSION=2", "FULLINFO=1", "NAME=n", "DESCR=d", "CLASS=Armour",
                                 "POINTS=99,12.5", "PROP1=2,0", "PROP2=1,0,0,0,0"});
    const struct {
        const char* what;
        std::string record;
        bool ok;
        double cost;  // of the item that is read or half read
    } kCases[] = {
        // (10 + 5) x 1.5 x 2 x 2 for Automatic Fire and Off Table Support
        {"a full weapon is priced anew", w, true, 90},
        {"version out of range", Changed(w, "VERSION=2", "VERSION=32768"), false, 0},
        {"no flag", Changed(w, "FULLINFO=1", "X=1"), false, 0},
        {"no name", Changed(w, "NAME", "X"), false, 0},
        {"no description", Changed(w, "DESCR", "X"), true, 90},
        {"no class", Changed(w, "CLASS", "X"), false, 0},
        {"one cost", Changed(w, "POINTS=10,1", "POINTS=10"), false, 0},
        {"costs that are no numbers", Changed(w, "POINTS=10,1", "POINTS=x,y"), true, 30},
        {"a summary keeps its cost", Changed(w, "FULLINFO=1", "FULLINFO=0"), true, 1},
        {"words are numbers", Changed(w, "1,1,0\r", "2,-1,0\r"), true, 45},  // 15 x 1.5 x 4 x 1/2
        {"three numbers", Changed(w, "4,1.5,0,0", "4,1.5,0"), false, 1},
        {"cost beyond a double", Changed(w, "4,1.5,0,0", "4,1.5,32000,0"), false, 15},
        {"accessory: no price, PF 2 for one use", a, true, 12.5},
        {"accessory: full record without its numbers", Changed(a, "PROP2", "X"), false, 12.5},
        {"accessory: no armour line", Changed(a, "PROP1", "X"), false, 12.5},
    };
    for (const auto& c : kCases) {
        CProfile profile = CProfile::ForReading(Save("f", c.record));
        CEqItem item;
        EXPECT_EQ(item.ReadInfo(&profile, "S"), c.ok) << c.what;
        EXPECT_EQ(item.PointCost(), c.cost) << c.what;
        EXPECT_EQ(item.Item().Version(), 2) << c.what;
        EXPECT_TRUE(!c.ok || item.AsWeapon() != nullptr || item.Item().BaseCost() == 5) << c.what;
    }
}

TEST_F(EquipmentTest, OldRecordsAreImported) {
    CSequentialInput file(Save("f",
                               "\"#W\",1,2,\"h\",0,\"Old\",\"d\",\"Rifle\","
                               "3,1.5,1,0,0,0,0,0,0,0,1,0,0,0,3,2,\"later\",9,\"#P\",8,77.5"));
    CEqItem item;
    ASSERT_TRUE(item.ImportInfoV1(file));
    EXPECT_EQ(item.AsWeapon()->SpecialPropertiesStr(),
              "Flame, Needs Reloading, Area of Effect 3cm Radius, Targeting Bonus +2");
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

TEST(EquipmentWrapper, IsAnErrorWhileEmptyAndClonesEitherKind) {
    CEqItem item;
    EXPECT_FALSE(item.WriteInfo(nullptr, "S") || item.ReadInfo(nullptr, "S"));
    EXPECT_EQ(ErrorOf([&] { item.Clone(CEqItem()); }), 91);
    item.NewItem(CEqItem::Accessory);
    item.NewItem(3);  // drops the content and leaves the kind
    EXPECT_EQ(item.EqType(), CEqItem::Accessory);
    EXPECT_EQ(ErrorOf([&] { item.CalculatePointCost(); }), 91);

    CEqItem source;
    source.SetItem(std::make_shared<CWeapon>(Weapon(4, 1)));
    source.AsWeapon()->SetVersion(7);
    source.SetFullInfo(false);
    item.Clone(source);
    EXPECT_EQ(item.EqType(), CEqItem::Weapon);
    EXPECT_EQ(item.PointCost(), 4);
    EXPECT_EQ(item.Item().Version(), 2);
    EXPECT_FALSE(item.FullInfo());
}

}  // namespace
