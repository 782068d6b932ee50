// The three documents as whole files: round trips, broken files, imports.

#include <functional>

#include "equipment/army_tables.h"
#include "support/core_test.h"
#include "support/sample_documents.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace {

using DocumentTest = CoreTest;

std::unique_ptr<CDocument> NewDocument(char kind) {
    if (kind == 'q') return std::make_unique<CArmyTables>();
    if (kind == 'l') return std::make_unique<CArmyList>();
    return std::make_unique<CArmyRoster>();
}

TEST_F(DocumentTest, NewDocumentsHaveEmptyListsWithTheirFlags) {
    const struct {
        char kind;
        std::string bytes;
    } kCases[] = {
        {'q', Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=#ARMYTBLS", "VERSION=0", "NAME=", "DESCR=", "[WEAPONLIST]",
                     "ENTRY=#EL", "SORTED=1", "INDEXED=1", "COUNT=0", "[ACCESSORYLIST]", "ENTRY=#EL", "SORTED=1",
                     "INDEXED=1", "COUNT=0"})},
        {'l', Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=#ARMYLIST", "VERSION=0",
                     "NAME=", "DESCR=", "PICTURE=", "[UNITLIST]", "ENTRY=#UL", "SORTED=1", "INDEXED=1", "COUNT=0"})},
        {'r', Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=#ARMYROSTER", "VERSION=0",
                     "NAME=", "DESCR=", "PICTURE=", "[UNITLIST]", "ENTRY=#UL", "SORTED=0", "INDEXED=0", "COUNT=0"})},
    };
    for (const auto& c : kCases) {
        const auto document = NewDocument(c.kind);
        EXPECT_TRUE(document->WriteInfo(folder_ / "d"));
        EXPECT_EQ(ReadBytes(folder_ / "d"), c.bytes);
    }
}

TEST_F(DocumentTest, FilesComeBackByteForByte) {
    const std::string samples = SOURCE_DIR "/data/sample/Harrow March.v2";
    const struct {
        char kind;
        std::string bytes;
    } kCases[] = {{'q', kTables},
                  {'l', kList},
                  {'r', kRoster},
                  {'l', Changed(kList, "FULLINFO=1", "FULLINFO=-1")},
                  {'l', Changed(kList, "SORTED=1", "SORTED=2")},
                  {'q', ReadBytes(samples + "q")},
                  {'l', ReadBytes(samples + "l")},
                  {'r', ReadBytes(samples + "r")}};
    for (const auto& c : kCases) {
        ASSERT_FALSE(c.bytes.empty());
        WriteBytes(folder_ / "d", c.bytes);
        const auto document = NewDocument(c.kind);
        ASSERT_TRUE(document->ReadInfo(folder_ / "d"));
        EXPECT_TRUE(document->WriteInfo(folder_ / "out"));
        EXPECT_EQ(ReadBytes(folder_ / "out"), c.bytes);
        EXPECT_TRUE(document->WriteInfo(folder_ / "out"));
        EXPECT_EQ(ReadBytes(folder_ / "out"), c.bytes);
    }
}

TEST_F(DocumentTest, ReadingReplacesWhatWasThere) {
    WriteBytes(folder_ / "d", kList);
    CArmyList list;
    list.SetVersion(7);
    ASSERT_TRUE(list.ReadInfo(folder_ / "d") && list.ReadInfo(folder_ / "d"));
    EXPECT_EQ(list.ArmyUnits().Count(), 2);
    EXPECT_EQ(list.Version(), 7);
    // A file that can't be read empties the list and leaves the texts.
    EXPECT_FALSE(list.ReadInfo(folder_ / "none"));
    EXPECT_EQ(list.ArmyUnits().Count(), 0);
    EXPECT_EQ(list.PictureFile(), "p.png");
    // Texts that the file lacks become empty once they are reached.
    WriteBytes(folder_ / "d", Changed(Changed(kList, "PICTURE=", "X="), "DESCR=", "X="));
    EXPECT_TRUE(list.ReadInfo(folder_ / "d"));
    EXPECT_EQ(list.PictureFile() + list.Descr(), "");
    list.Clear();
    EXPECT_EQ(list.Name(), "");
    EXPECT_EQ(list.Version(), 7);
}

TEST_F(DocumentTest, TruncatedFilesFailWhereverTheyEnd) {
    const struct {
        char kind;
        const std::string& bytes;
        std::string tail;  // what the file can do without
        bool import;
    } kCases[] = {{'q', kTables, "\r\n", false},     {'l', kList, "25\r\n", false}, {'r', kRoster, "25\r\n", false},
                  {'q', kTablesV1, "2.5\r\n", true}, {'l', kListV1, "\r\n", true},  {'r', kRosterV1, "\r\n", true}};
    for (const auto& c : kCases) {
        ASSERT_TRUE(c.bytes.ends_with(c.tail));
        const auto document = NewDocument(c.kind);
        for (std::size_t size = 0; size <= c.bytes.size(); ++size) {
            WriteBytes(folder_ / "d", c.bytes.substr(0, size));
            const bool ok = c.import ? document->ImportInfoV1(folder_ / "d") : document->ReadInfo(folder_ / "d");
            ASSERT_EQ(ok, size >= c.bytes.size() - c.tail.size()) << c.kind << c.import << " cut at " << size;
        }
    }
}

TEST_F(DocumentTest, BrokenFilesFailAndKeepWhatWasRead) {
    const struct {
        const char* what;
        const char* from;
        const char* to;
        bool ok;
        std::int32_t units;
    } kCases[] = {
        {"another document", "#ARMYLIST", "#ARMYROSTER", false, 0},
        {"no version of the program", "APPVERSION", "X", false, 0},
        {"version without its mark", "2_2", "22", false, 0},
        {"half a version", "2_2", "2_", false, 0},
        {"version that isn't one", "2_2", "2_x", false, 0},
        {"version of another program", "2_2", "32767_-1_x", true, 2},
        {"document version out of range", "VERSION=0", "VERSION=99999", false, 0},
        {"no document version", "VERSION=0", "X=0", true, 2},
        {"a list without its tag", "#UL", "#EL", false, 0},
        {"no SORTED", "SORTED=1", "X=1", false, 0},
        {"no INDEXED", "INDEXED=1", "X=1", false, 0},
        {"no COUNT", "COUNT=2", "X=2", false, 0},
        {"COUNT that is no number", "COUNT=2", "COUNT=two", false, 0},
        {"COUNT out of range", "COUNT=2", "COUNT=2147483648", false, 0},
        {"COUNT as high as it goes", "COUNT=2", "COUNT=2147483647", false, 2},
        {"COUNT too low", "COUNT=2", "COUNT=1", true, 1},
        {"COUNT below 0", "COUNT=2", "COUNT=-1", true, 0},
        {"unknown kind of unit", "#U\r", "#V\r", false, 0},
        {"no NAME", "NAME=Guard", "X=Guard", false, 0},
        {"no TYPE", "TYPE=0", "X=0", false, 0},
        {"no SUBCLASS", "SUBCLASS=", "X=", false, 0},
        {"no POINTS", "POINTS=20,25", "X=20,25", false, 0},
        {"one cost", "POINTS=20,25", "POINTS=20", false, 0},
        {"no STATS", "STATS", "X", false, 0},
        {"four stats", "STATS=10,5,6,0,6", "STATS=10,5,6,0", false, 0},
        {"a stat beyond 16 bits", "STATS=10", "STATS=40000", false, 0},
        {"a stat whose price overflows", "STATS=10", "STATS=-32768", false, 0},
        {"QUANTITY beyond 16 bits", "QUANTITY=2", "QUANTITY=32768", false, 0},
        {"no QUANTITY", "QUANTITY=2", "X=2", true, 2},
        {"specials as fractions", "PROP3=0,0,0,0,0,0", "PROP3=0,0.5,0,0,0,x", true, 2},
        {"a level that is no number", "PROP3=0,0,0,0,0,0", "PROP3=x,0,0,0,0,0", false, 0},
        {"equipment of an unknown kind", "#W", "#X", false, 0},
        {"no equipment list", "[UNITLIST_1_EQLIST]", "[X]", false, 0},
        {"no member", "[UNITLIST_2_UNITLIST_1]", "[X]", false, 1},
        {"a key twice: the first counts", "[UNITLIST]\r\n", "[UNITLIST]\r\nCOUNT=1\r\n", true, 1},
        {"names in small letters", "[UNITLIST_2_UNITLIST_1]", "[unitlist_2_unitlist_1]", true, 2},
        {"two of one name: the later one is lost", "NAME=Squad", "NAME=guard", true, 1},
    };
    for (const auto& c : kCases) {
        WriteBytes(folder_ / "d", Changed(kList, c.from, c.to));
        CArmyList list;
        EXPECT_EQ(list.ReadInfo(folder_ / "d"), c.ok) << c.what;
        EXPECT_EQ(list.ArmyUnits().Count(), c.units) << c.what;
        EXPECT_TRUE(list.ArmyUnits().Sorted() && list.ArmyUnits().Indexed()) << c.what;
    }
    CArmyList list;
    EXPECT_FALSE(list.ReadInfo(folder_.Path()));
    EXPECT_FALSE(list.ImportInfoV1(folder_.Path()));
    WriteBytes(folder_ / "d", kListV1);
    EXPECT_FALSE(list.ReadInfo(folder_ / "d"));
    WriteBytes(folder_ / "d", kList);
    EXPECT_FALSE(list.ImportInfoV1(folder_ / "d"));
}

TEST_F(DocumentTest, FileValuesAreTakenAsTheyStand) {
    // Out of every setter's limits: priced by the same rules.
    const std::string odd =
        Changed(Changed(kList, "STATS=10,5,6,0,6", "STATS=10,1,6,7,6"), "QUANTITY=2", "QUANTITY=-2");
    WriteBytes(folder_ / "d", odd);
    CArmyList list;
    ASSERT_TRUE(list.ReadInfo(folder_ / "d"));
    const CGenUnit& unit = list.ArmyUnits().Item("guard");
    EXPECT_EQ(unit.AsUnit()->StatValue(CUnit::SS), 1);
    EXPECT_EQ(unit.Quantity(), -2);
    EXPECT_EQ(unit.PointCost(), -2 * (5 + 24 + 25));
    EXPECT_EQ(unit.EquippedPointCost(), -2 * (5 + 24 + 25 + 2.5));
    // SORTED=0 keeps the order of the file.
    WriteBytes(folder_ / "d", Changed(Changed(kList, "SORTED=1", "SORTED=0"), "NAME=Guard", "NAME=Zeal"));
    ASSERT_TRUE(list.ReadInfo(folder_ / "d"));
    EXPECT_EQ(list.ArmyUnits().Item(1).Key(), "ZEAL");
    WriteBytes(folder_ / "d", Changed(kList, "NAME=Guard", "NAME=Zeal"));
    ASSERT_TRUE(list.ReadInfo(folder_ / "d"));
    EXPECT_EQ(list.ArmyUnits().Item(2).Key(), "ZEAL");
}

TEST_F(DocumentTest, SummarySquadOfARosterCostsNothing) {
    WriteBytes(folder_ / "d", Changed(kRoster, "ENTRY=#U\r", "ENTRY=#MU\r"));
    CArmyRoster roster;
    ASSERT_TRUE(roster.ReadInfo(folder_ / "d"));
    EXPECT_TRUE(roster.WriteInfo(folder_ / "out"));
    EXPECT_NE(ReadBytes(folder_ / "out").find("POINTS=20,25\r\n"), std::string::npos);  // nothing asked for it yet
    EXPECT_EQ(roster.PointCost(), 0);
    EXPECT_TRUE(roster.WriteInfo(folder_ / "out"));
    EXPECT_NE(ReadBytes(folder_ / "out").find("POINTS=0,0\r\n"), std::string::npos);
}

TEST_F(DocumentTest, OldDocumentsAreImported) {
    WriteBytes(folder_ / "q", kTablesV1);
    CArmyTables tables;
    ASSERT_TRUE(tables.ImportInfoV1(folder_ / "q"));
    EXPECT_EQ(tables.Name() + "/" + tables.Descr(), "Old/d");
    EXPECT_EQ(tables.ArmyWeapons().Item("laser").PointCost(), 7.5);
    EXPECT_EQ(tables.ArmyAccessories().Item("plate").AsAccessory()->PF(), 2);

    WriteBytes(folder_ / "l", kListV1);
    CArmyList list;
    ASSERT_TRUE(list.ImportInfoV1(folder_ / "l"));
    EXPECT_EQ(list.PictureFile(), "old.bmp");
    EXPECT_EQ(list.ArmyUnits().Item("guard").EquippedPointCost(), 12.5);
    EXPECT_EQ(list.ArmyUnits().Item("squad").EquippedPointCost(), 8);
    EXPECT_TRUE(list.WriteInfo(folder_ / "out") && list.ReadInfo(folder_ / "out"));
    EXPECT_EQ(list.ArmyUnits().Item("guard").EquippedPointCost(), 12.5);

    WriteBytes(folder_ / "r", kRosterV1);
    CArmyRoster roster;
    ASSERT_TRUE(roster.ImportInfoV1(folder_ / "r"));
    EXPECT_EQ(roster.PointCost(), 8);
    EXPECT_FALSE(roster.ArmyUnits().Indexed());

    for (const char* change : {"#VD_VER", "#ARMYTBLS", "#ARMYWP", "#ARMYAC", "#EL", "#W", "#P"}) {
        WriteBytes(folder_ / "q", Changed(kTablesV1, change, "#X"));
        EXPECT_FALSE(tables.ImportInfoV1(folder_ / "q")) << change;
    }
    WriteBytes(folder_ / "q", Changed(kTablesV1, "\"#EL\",1", "\"#EL\",2147483647"));
    EXPECT_FALSE(tables.ImportInfoV1(folder_ / "q"));
    EXPECT_EQ(tables.ArmyWeapons().Count(), 1);
}

std::string NestedSquads(int depth) {
    std::string text = kRoster.substr(0, kRoster.find("[UNITLIST_1]"));
    std::string section = "UNITLIST";
    for (int level = 0; level < depth; ++level) {
        section += "_1";
        text += "[" + section +
                Lines({"]", "ENTRY=#MU", "VERSION=2", "FULLINFO=1", "NAME=n", "DESCR=", "KEY=", "QUANTITY=1",
                       "POINTS=0,0"});
        section += "_UNITLIST";
        text += "[" + section +
                Lines({"]", "ENTRY=#UL", "SORTED=0", "INDEXED=0", level + 1 < depth ? "COUNT=1" : "COUNT=0"});
    }
    return text;
}

TEST_F(DocumentTest, NestingHasALimitInBothForms) {
    CArmyRoster roster;
    WriteBytes(folder_ / "d", NestedSquads(300));
    ASSERT_TRUE(roster.ReadInfo(folder_ / "d"));
    EXPECT_EQ(roster.PointCost(), 0);
    EXPECT_TRUE(roster.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), NestedSquads(300));
    WriteBytes(folder_ / "d", NestedSquads(CMultUnit::kDeepestNesting + 1));
    EXPECT_FALSE(roster.ReadInfo(folder_ / "d"));

    std::string old = "\"#VD_VER\",1,0\r\n\"#ARMYROSTER\",0,0,0,\"n\",\"d\",\"\"\r\n\"#UL\",1\r\n";
    for (int level = 0; level < 100'000; ++level)
        old += "\"#MU\",1,2,\"h\",0,\"n\",\"d\",0,0,1\r\n";
    WriteBytes(folder_ / "d", old);
    EXPECT_FALSE(roster.ImportInfoV1(folder_ / "d"));
}

}  // namespace
