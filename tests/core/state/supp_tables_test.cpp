#include "core/state/supp_tables.h"

#include "support/core_test.h"

namespace {

class SuppTablesTest : public CoreTest {
  protected:
    void ExpectWarning(const std::string& why) {
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "Error while reading support tables (" + why + ").");
    }
    std::string AllowedTo(const auto& item) const {
        std::string classes;
        for (const char* unitClass : {"infantry", "Vehicle", "Robot"})
            classes += tables_.IsEqAllowed(item, unitClass) ? unitClass : "";
        return classes;
    }

    CSuppTables tables_;
    CWeapon weapon_;
    CAccessory accessory_;
};

const std::string kRules =
    "\"#VD_VER\",2,2\r\n7,0,0\r\n\"#CU\",1\r\n\"Infantry\"\r\n"
    "\"#CW\",2\r\n\"Rifle\"\r\n\"Bow\"\r\n\"#CA\",1\r\n\"Armour\"\r\n"
    "\"#CUW\",1\r\n\"Infantry\",\"Rifle\"\r\n\"#CUA\",1\r\n\"ROBOT\",\"Armour\"\r\n"
    "\"#CWBaP\",2\r\n\"Rifle\",\"2.5\"\r\n\"Bow\",\"3.5\"\r\n"
    "\"#CWRan\",1\r\n\"Rifle\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\"\r\n"
    "\"#CWPen\",1\r\n\"Rifle\",\"2\",\"3\",\"4\"\r\n";

TEST_F(SuppTablesTest, AnswersByClassWithoutRegardToCase) {
    ASSERT_TRUE(tables_.ReadInfo(Save("t", kRules)));
    weapon_.SetWeaponClass("RIFLE");
    accessory_.SetAccClass("armour");
    EXPECT_EQ(AllowedTo(weapon_) + AllowedTo(accessory_) + AllowedTo(CEqItem()), "infantryRobot");
    EXPECT_EQ(tables_.GetBasePointCost("rifle"), 2);  // 2.5 and 3.5 go to the even neighbour
    EXPECT_EQ(tables_.GetBasePointCost("bow"), 4);
    EXPECT_EQ(tables_.GetPenCategories("RIFLE")->Element(1) + tables_.GetPenCategories("RIFLE")->Element(4), "2");
    platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Invalid Weapon Class: \"\u00C9p\".");
    EXPECT_EQ(tables_.GetBasePointCost("\xC9p"), 0);
}

TEST_F(SuppTablesTest, BrokenTablesTellWhyAndKeepWhatWasRead) {
    const std::tuple<const char*, const char*, std::string> kCases[] = {
        {"#CU\"", "#cu\"", "0: "},
        {"\"3\",\"4\"\r\n", "\"3\"\r\n", "62: Input past end of file"},
        {"\"6\",\"7\"", "\"6\"", "0: "},
        {"7,0,0", "7,0,40000", "6: Overflow"},
        {"\"Bow\"", "\"RIFLE\"", "457: This key is already associated with an element of this collection"}};
    for (const auto& [from, to, reason] : kCases) {
        ExpectWarning(reason);
        EXPECT_FALSE(tables_.ReadInfo(Save("t", Changed(kRules, from, to)))) << to;
    }
    EXPECT_EQ(tables_.UnitClasses().Count(), 1);
    ExpectWarning("53: File not found");
    EXPECT_FALSE(tables_.ReadInfo(folder_ / "none"));
}

TEST_F(SuppTablesTest, ShippedRulesServeEveryClass) {
    const std::string shipped = SOURCE_DIR "/data/support_tables.txt";
    ASSERT_TRUE(tables_.ReadInfo(shipped) && tables_.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), ReadBytes(shipped));
    EXPECT_TRUE(tables_.WeaponClasses().Count() >= 10 && tables_.AccessoryClasses().Count() >= 6);
    for (const std::string& name : tables_.WeaponClasses()) {
        weapon_.SetWeaponClass(name);
        EXPECT_TRUE(AllowedTo(weapon_) != "" && tables_.GetBasePointCost(name) > 0) << name;
        EXPECT_NE(tables_.GetPenCategories(name), nullptr) << name;
    }
}

}  // namespace
