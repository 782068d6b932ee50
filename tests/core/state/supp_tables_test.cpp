#include "core/state/supp_tables.h"

#include "core/files/hide_utils.h"
#include "core/files/sequential.h"
#include "support/core_test.h"

namespace {

class SuppTablesTest : public CoreTest {
  protected:
    std::string Write(const std::string& bytes) {
        WriteBytes(folder_ / "t", bytes);
        return folder_ / "t";
    }
    void ExpectWarning(const std::string& reason) {
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "Error while reading support tables (" + reason + ").");
    }
};

const std::string kRules = Lines({"\"#VD_VER\",2,2",
                                  "7,0,0",
                                  "\"#CU\",1",
                                  "\"Infantry\"",
                                  "\"#CW\",2",
                                  "\"Rifle\"",
                                  "\"Bow\"",
                                  "\"#CA\",1",
                                  "\"Armour\"",
                                  "\"#CUW\",1",
                                  "\"Infantry\",\"Rifle\"",
                                  "\"#CUA\",1",
                                  "\"ROBOT\",\"Armour\"",
                                  "\"#CWBaP\",2",
                                  "\"Rifle\",\"2.5\"",
                                  "\"Bow\",\"3.5\"",
                                  "\"#CWRan\",1",
                                  "\"Rifle\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\"",
                                  "\"#CWPen\",1",
                                  "\"Rifle\",\"2\",\"3\",\"4\""});

TEST_F(SuppTablesTest, AnswersByClassWithoutRegardToCase) {
    CSuppTables tables;
    ASSERT_TRUE(tables.ReadInfo(Write(kRules)));
    EXPECT_EQ(tables.Version(), 0);
    EXPECT_EQ(*tables.WeaponClasses().Item(2), "Bow");
    EXPECT_TRUE(tables.AccessoryClasses().Exists("armour"));

    CWeapon weapon;
    weapon.SetWeaponClass("RIFLE");
    CAccessory accessory;
    accessory.SetAccClass("armour");
    EXPECT_TRUE(tables.IsEqAllowed(weapon, "infantry"));
    EXPECT_FALSE(tables.IsEqAllowed(weapon, "Robot"));
    EXPECT_TRUE(tables.IsEqAllowed(accessory, "Robot"));
    EXPECT_FALSE(tables.IsEqAllowed(accessory, "Infantry"));
    CEqItem item;
    EXPECT_EQ(ErrorOf([&] { (void)tables.IsEqAllowed(item, "Robot"); }), 91);
    item.NewItem(CEqItem::Accessory);
    EXPECT_FALSE(tables.IsEqAllowed(item, "Robot"));

    EXPECT_EQ(tables.GetBasePointCost("rifle"), 2);  // 2.5 and 3.5 go to the even neighbour
    EXPECT_EQ(tables.GetBasePointCost("bow"), 4);
    EXPECT_EQ(tables.GetPenCategories("RIFLE")->Element(1), "2");
    EXPECT_EQ(tables.GetPenCategories("RIFLE")->Element(4), "");
    platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Invalid Weapon Class: \"\u00C9p\u00E9e\".");
    EXPECT_EQ(tables.GetBasePointCost("\xC9p\xE9"
                                      "e"),
              0);
    platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Invalid Weapon Class: \"Bow\".");
    EXPECT_EQ(tables.GetPenCategories("Bow"), nullptr);
    ASSERT_TRUE(tables.ReadInfo(Write(Changed(kRules, "\"3.5\"", "\"40000\""))));
    platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Invalid Weapon Class: \"Bow\".");
    EXPECT_EQ(tables.GetBasePointCost("Bow"), 0);
}

TEST_F(SuppTablesTest, WritesWhatItReads) {
    CSuppTables tables;
    ASSERT_TRUE(tables.ReadInfo(Write(kRules)));
    tables.SetVersion(7);
    EXPECT_TRUE(tables.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), kRules);
    platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "Error while writing support tables (76: Path not found).");
    EXPECT_FALSE(tables.WriteInfo(folder_ / "none/out"));
}

TEST_F(SuppTablesTest, BrokenTablesTellWhyAndKeepWhatWasRead) {
    const struct {
        const char* from;
        const char* to;
        const char* reason;
    } kCases[] = {{"#VD_VER", "#VD", "0: "},
                  {"#CU\"", "#cu\"", "0: "},
                  {"\"3\",\"4\"\r\n", "\"3\"\r\n", "62: Input past end of file"},
                  {"\"#CWPen\",1", "\"#CWPen\",2", "62: Input past end of file"},
                  {"\"6\",\"7\"", "\"6\"", "0: "},
                  {"\"Bow\",\"3.5\"", "\"rifle\",\"3.5\"",
                   "457: This key is already associated with an element of this collection"},
                  {"7,0,0", "7,0,40000", "6: Overflow"}};
    for (const auto& c : kCases) {
        ExpectWarning(c.reason);
        CSuppTables tables;
        EXPECT_FALSE(tables.ReadInfo(Write(Changed(kRules, c.from, c.to)))) << c.to;
    }
    CSuppTables tables;
    ExpectWarning("457: This key is already associated with an element of this collection");
    EXPECT_FALSE(tables.ReadInfo(Write(Changed(kRules, "\"Bow\"", "\"RIFLE\""))));
    EXPECT_EQ(tables.UnitClasses().Count(), 1);
    EXPECT_EQ(tables.AccessoryClasses().Count(), 0);
    ExpectWarning("53: File not found");
    EXPECT_FALSE(tables.ReadInfo(folder_ / "none"));
    EXPECT_EQ(tables.UnitClasses().Count(), 0);
}

TEST_F(SuppTablesTest, ShippedRulesSurviveScramblingAndServeEveryClass) {
    const std::string plain = ReadBytes(SOURCE_DIR "/data/support_tables.txt");
    std::string scrambled;
    for (std::size_t at = 0; at < plain.size();) {
        const std::size_t end = plain.find("\r\n", at);
        ASSERT_NE(end, std::string::npos);
        scrambled += MHideUtils::EncodeLine(plain.substr(at, end - at)) + "\r\n";
        at = end + 2;
    }
    WriteBytes(folder_ / "v", scrambled);
    ASSERT_EQ(MHideUtils::DecodeFile(folder_ / "v", folder_ / "t"), 0);
    EXPECT_EQ(ReadBytes(folder_ / "t"), plain);
    CSuppTables tables;
    ASSERT_TRUE(tables.ReadInfo(folder_ / "t"));
    EXPECT_TRUE(tables.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), plain);
    EXPECT_GE(tables.WeaponClasses().Count(), 10);
    EXPECT_GE(tables.AccessoryClasses().Count(), 6);
    const auto allowed = [&](const CEquipment& item) {
        return tables.IsEqAllowed(item, "Infantry") || tables.IsEqAllowed(item, "Vehicle") ||
               tables.IsEqAllowed(item, "Robot");
    };
    for (const std::string& name : tables.WeaponClasses()) {
        CWeapon weapon;
        weapon.SetWeaponClass(name);
        EXPECT_TRUE(allowed(weapon)) << name;
        EXPECT_GT(tables.GetBasePointCost(name), 0) << name;
        const auto row = tables.GetPenCategories(name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_TRUE(std::stoi(row->Element(1)) < std::stoi(row->Element(2)) &&
                    std::stoi(row->Element(2)) < std::stoi(row->Element(3)))
            << name;
    }
    for (const std::string& name : tables.AccessoryClasses()) {
        CAccessory accessory;
        accessory.SetAccClass(name);
        EXPECT_TRUE(allowed(accessory)) << name;
    }
}

TEST_F(SuppTablesTest, RowsKeepTheirWidth) {
    CTuple row;
    EXPECT_EQ(row.Elements(), 2);
    row.SetElement(1, "b");
    row.SetElement(2, "ignored");
    row.SetElements(3);
    row.SetElements(0);
    EXPECT_EQ(row.Elements(), 3);
    EXPECT_EQ(row.Element(1) + row.Element(2) + row.Element(-1), "b");
    const std::int16_t number = MTextOutput::Open(Write(""));
    row.WriteInfo(number, true);
    MTextOutput::Close(number);
    EXPECT_EQ(ReadBytes(folder_ / "t"), "3,\"\",\"b\",\"\"\r\n");
    CSequentialInput file(folder_ / "t");
    CTuple read;
    read.ReadInfo(file, true);
    EXPECT_EQ(read.Elements(), 3);
    EXPECT_EQ(read.Element(1), "b");
}

}  // namespace
