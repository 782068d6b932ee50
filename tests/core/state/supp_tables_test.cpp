#include "core/state/supp_tables.h"

#include "support/core_test.h"

namespace {

class SuppTablesTest : public CoreTest {
  protected:
    void ExpectWarning(const std::string& what) {
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "Error while " + what + ").");
    }
    void ExpectInvalidClass(const std::string& name) {
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Invalid Weapon Class: \"" + name + "\".");
    }
    std::string AllowedTo(const CEquipment& item) const {
        std::string classes;
        for (const char* unitClass : {"infantry", "Vehicle", "Robot"})
            classes += tables_.IsEqAllowed(item, unitClass) ? unitClass : "";
        return classes;
    }
    std::string WeaponAllowedTo(const std::string& name) const {
        CWeapon weapon;
        weapon.SetWeaponClass(name);
        return AllowedTo(weapon);
    }
    std::string AccessoryAllowedTo(const std::string& name) const {
        CAccessory accessory;
        accessory.SetAccClass(name);
        return AllowedTo(accessory);
    }

    CSuppTables tables_;
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
    EXPECT_EQ(WeaponAllowedTo("RIFLE"), "infantry");
    EXPECT_EQ(AccessoryAllowedTo("armour"), "Robot");
    EXPECT_EQ(ErrorOf([&] { (void)tables_.IsEqAllowed(CEqItem(), "Robot"); }), 91);

    EXPECT_EQ(tables_.GetBasePointCost("rifle"), 2);  // 2.5 and 3.5 go to the even neighbour
    EXPECT_EQ(tables_.GetBasePointCost("bow"), 4);
    EXPECT_EQ(tables_.GetPenCategories("RIFLE")->Element(1) + tables_.GetPenCategories("RIFLE")->Element(4), "2");
    ExpectInvalidClass("\u00C9p");
    EXPECT_EQ(tables_.GetBasePointCost("\xC9p"), 0);
    ExpectInvalidClass("Bow");
    EXPECT_EQ(tables_.GetPenCategories("Bow"), nullptr);
}

TEST_F(SuppTablesTest, BrokenTablesTellWhyAndKeepWhatWasRead) {
    const std::string taken = "457: This key is already associated with an element of this collection";
    const std::tuple<const char*, const char*, std::string> kCases[] = {
        {"#VD_VER", "#VD", "0: "},
        {"#CU\"", "#cu\"", "0: "},
        {"\"3\",\"4\"\r\n", "\"3\"\r\n", "62: Input past end of file"},
        {"\"6\",\"7\"", "\"6\"", "0: "},
        {"7,0,0", "7,0,40000", "6: Overflow"},
        {"\"Bow\",\"3.5\"", "\"rifle\",\"3.5\"", taken},
        {"\"Bow\"", "\"RIFLE\"", taken}};
    for (const auto& [from, to, reason] : kCases) {
        ExpectWarning("reading support tables (" + reason);
        EXPECT_FALSE(tables_.ReadInfo(Save("t", Changed(kRules, from, to)))) << to;
    }
    EXPECT_EQ(tables_.UnitClasses().Count(), 1);
    EXPECT_EQ(tables_.AccessoryClasses().Count(), 0);
    ExpectWarning("reading support tables (53: File not found");
    EXPECT_FALSE(tables_.ReadInfo(folder_ / "none"));
    EXPECT_EQ(tables_.UnitClasses().Count(), 0);
}

TEST_F(SuppTablesTest, ShippedRulesServeEveryClass) {
    const std::string shipped = SOURCE_DIR "/data/support_tables.txt";
    ASSERT_TRUE(tables_.ReadInfo(shipped) && tables_.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), ReadBytes(shipped));
    ExpectWarning("writing support tables (76: Path not found");
    EXPECT_FALSE(tables_.WriteInfo(folder_ / "none/out"));
    EXPECT_GE(tables_.WeaponClasses().Count(), 10);
    EXPECT_GE(tables_.AccessoryClasses().Count(), 6);
    for (const std::string& name : tables_.WeaponClasses()) {
        const auto row = tables_.GetPenCategories(name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_LT(std::stoi(row->Element(1)), std::stoi(row->Element(2))) << name;
        EXPECT_LT(std::stoi(row->Element(2)), std::stoi(row->Element(3))) << name;
        EXPECT_TRUE(WeaponAllowedTo(name) != "" && tables_.GetBasePointCost(name) > 0) << name;
    }
    for (const std::string& name : tables_.AccessoryClasses())
        EXPECT_NE(AccessoryAllowedTo(name), "") << name;
}

}  // namespace
