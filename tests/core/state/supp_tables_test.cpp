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
    EXPECT_EQ(*tables_.WeaponClasses().Item(2), "Bow");
    EXPECT_TRUE(tables_.AccessoryClasses().Exists("armour"));

    CWeapon weapon;
    weapon.SetWeaponClass("RIFLE");
    CAccessory accessory;
    accessory.SetAccClass("armour");
    EXPECT_TRUE(tables_.IsEqAllowed(weapon, "infantry") && tables_.IsEqAllowed(accessory, "Robot"));
    EXPECT_FALSE(tables_.IsEqAllowed(weapon, "Robot") || tables_.IsEqAllowed(accessory, "Infantry"));
    EXPECT_EQ(ErrorOf([&] { (void)tables_.IsEqAllowed(CEqItem(), "Robot"); }), 91);

    EXPECT_EQ(tables_.GetBasePointCost("rifle"), 2);  // 2.5 and 3.5 go to the even neighbour
    EXPECT_EQ(tables_.GetBasePointCost("bow"), 4);
    EXPECT_EQ(tables_.GetPenCategories("RIFLE")->Element(1), "2");
    EXPECT_EQ(tables_.GetPenCategories("RIFLE")->Element(4), "");
    ExpectInvalidClass("\u00C9p");
    EXPECT_EQ(tables_.GetBasePointCost("\xC9p"), 0);
    ExpectInvalidClass("Bow");
    EXPECT_EQ(tables_.GetPenCategories("Bow"), nullptr);
    ASSERT_TRUE(tables_.ReadInfo(Save("t", Changed(kRules, "\"3.5\"", "\"40000\""))));
    ExpectInvalidClass("Bow");
    EXPECT_EQ(tables_.GetBasePointCost("Bow"), 0);
}

TEST_F(SuppTablesTest, WritesWhatItReads) {
    ASSERT_TRUE(tables_.ReadInfo(Save("t", kRules)));
    tables_.SetVersion(7);
    EXPECT_TRUE(tables_.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), kRules);
    ExpectWarning("writing support tables (76: Path not found");
    EXPECT_FALSE(tables_.WriteInfo(folder_ / "none/out"));
}

TEST_F(SuppTablesTest, BrokenTablesTellWhyAndKeepWhatWasRead) {
    const std::string taken = "457: This key is already associated with an element of this collection";
    const std::tuple<const char*, const char*, std::string> kCases[] = {
        {"#VD_VER", "#VD", "0: "},
        {"#CU\"", "#cu\"", "0: "},
        {"\"3\",\"4\"\r\n", "\"3\"\r\n", "62: Input past end of file"},
        {"\"#CWPen\",1", "\"#CWPen\",2", "62: Input past end of file"},
        {"\"6\",\"7\"", "\"6\"", "0: "},
        {"\"Bow\",\"3.5\"", "\"rifle\",\"3.5\"", taken},
        {"7,0,0", "7,0,40000", "6: Overflow"},
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
    EXPECT_GE(tables_.WeaponClasses().Count(), 10);
    EXPECT_GE(tables_.AccessoryClasses().Count(), 6);
    const auto allowed = [&](const CEquipment& item) {
        return tables_.IsEqAllowed(item, "Infantry") || tables_.IsEqAllowed(item, "Vehicle") ||
               tables_.IsEqAllowed(item, "Robot");
    };
    for (const std::string& name : tables_.WeaponClasses()) {
        CWeapon weapon;
        weapon.SetWeaponClass(name);
        EXPECT_TRUE(allowed(weapon) && tables_.GetBasePointCost(name) > 0) << name;
        const auto row = tables_.GetPenCategories(name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_LT(std::stoi(row->Element(1)), std::stoi(row->Element(2))) << name;
        EXPECT_LT(std::stoi(row->Element(2)), std::stoi(row->Element(3))) << name;
    }
    for (const std::string& name : tables_.AccessoryClasses()) {
        CAccessory accessory;
        accessory.SetAccClass(name);
        EXPECT_TRUE(allowed(accessory)) << name;
    }
}

TEST(Tuple, KeepsItsWidth) {
    CTuple row;
    row.SetElement(1, "b");
    row.SetElement(2, "ignored");
    row.SetElements(3);
    row.SetElements(0);
    EXPECT_EQ(row.Elements(), 3);
    EXPECT_EQ(row.Element(1) + row.Element(2) + row.Element(-1), "b");
}

}  // namespace
