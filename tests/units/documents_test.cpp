// The three documents as whole files: round trips, broken files, imports.

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

TEST_F(DocumentTest, FilesComeBackByteForByte) {
    std::vector<std::pair<char, std::string>> cases = {{'l', Changed(kList, "FULLINFO=1", "FULLINFO=-1")},
                                                       {'l', Changed(kList, "SORTED=1", "SORTED=2")}};
    for (const char kind : {'q', 'l', 'r'})
        cases.emplace_back(kind, ReadBytes(SOURCE_DIR "/data/sample/Harrow March.v2" + std::string(1, kind)));
    for (const auto& [kind, bytes] : cases) {
        ASSERT_FALSE(bytes.empty());
        const auto document = NewDocument(kind);
        ASSERT_TRUE(document->ReadInfo(Save("d", bytes)) && document->WriteInfo(folder_ / "out"));
        EXPECT_EQ(ReadBytes(folder_ / "out"), bytes);
    }
}

TEST_F(DocumentTest, ReadingReplacesWhatWasThere) {
    CArmyList list;
    Save("d", kList);
    ASSERT_TRUE(list.ReadInfo(folder_ / "d") && list.ReadInfo(folder_ / "d"));
    EXPECT_EQ(list.ArmyUnits().Count(), 2);
    // A file that can't be read empties the list and leaves the texts.
    EXPECT_FALSE(list.ReadInfo(folder_ / "none"));
    EXPECT_EQ(list.ArmyUnits().Count(), 0);
    EXPECT_EQ(list.PictureFile(), "p.png");
    // Texts that the file lacks become empty once they are reached.
    EXPECT_TRUE(list.ReadInfo(Save("d", Changed(Changed(kList, "PICTURE=", "X="), "DESCR=", "X="))));
    EXPECT_EQ(list.PictureFile() + list.Descr(), "");
    list.Clear();
    EXPECT_EQ(list.Name() + std::to_string(list.ArmyUnits().Count()), "0");
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
        const auto document = NewDocument(c.kind);
        for (std::size_t size = 0; size <= c.bytes.size(); ++size) {
            const std::string path = Save("d", c.bytes.substr(0, size));
            const bool ok = c.import ? document->ImportInfoV1(path) : document->ReadInfo(path);
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
        {"version without its mark", "2_2", "22", false, 0},
        {"version of another program", "2_2", "32767_-1_x", true, 2},
        {"document version out of range", "VERSION=0", "VERSION=99999", false, 0},
        {"a list without its tag", "#UL", "#EL", false, 0},
        {"COUNT out of range", "COUNT=2", "COUNT=2147483648", false, 0},
        {"COUNT as high as it goes", "COUNT=2", "COUNT=2147483647", false, 2},
        {"COUNT too low", "COUNT=2", "COUNT=1", true, 1},
        {"COUNT below 0", "COUNT=2", "COUNT=-1", true, 0},
        {"unknown kind of unit", "#U\r", "#V\r", false, 0},
        {"four stats", "STATS=10,5,6,0,6", "STATS=10,5,6,0", false, 0},
        {"a stat whose price overflows", "STATS=10", "STATS=-32768", false, 0},
        {"no QUANTITY", "QUANTITY=2", "X=2", true, 2},
        {"specials as fractions", "PROP3=0,0,0,0,0,0", "PROP3=0,0.5,0,0,0,x", true, 2},
        {"a level that is no number", "PROP3=0,0,0,0,0,0", "PROP3=x,0,0,0,0,0", false, 0},
        {"no equipment list", "[UNITLIST_1_EQLIST]", "[X]", false, 0},
        {"no member", "[UNITLIST_2_UNITLIST_1]", "[X]", false, 1},
        {"a key twice: the first counts", "[UNITLIST]\r\n", "[UNITLIST]\r\nCOUNT=1\r\n", true, 1},
        {"two of one name: the later one is lost", "NAME=Squad", "NAME=guard", true, 1},
    };
    CArmyList list;
    for (const auto& c : kCases) {
        EXPECT_EQ(list.ReadInfo(Save("d", Changed(kList, c.from, c.to))), c.ok) << c.what;
        EXPECT_EQ(list.ArmyUnits().Count(), c.units) << c.what;
        EXPECT_TRUE(list.ArmyUnits().Sorted() && list.ArmyUnits().Indexed()) << c.what;
    }
    for (const char* key : {"APPVERSION", "SORTED", "INDEXED", "COUNT", "NAME=Guard", "TYPE", "SUBCLASS", "POINTS",
                            "STATS", "PROP2", "PROP3"}) {
        EXPECT_FALSE(list.ReadInfo(Save("d", Changed(kList, key, "X")))) << key;
    }
    EXPECT_FALSE(list.ReadInfo(Save("d", kListV1)) || list.ImportInfoV1(Save("d", kList)));
}

TEST_F(DocumentTest, FileValuesAreTakenAsTheyStand) {
    // Out of every setter's limits: priced by the same rules. SORTED=0 keeps the order of the file.
    std::string odd = Changed(Changed(kList, "STATS=10,5,6,0,6", "STATS=10,1,6,7,6"), "QUANTITY=2", "QUANTITY=-2");
    odd = Changed(Changed(odd, "SORTED=1", "SORTED=0"), "NAME=Guard", "NAME=Zeal");
    CArmyList list;
    ASSERT_TRUE(list.ReadInfo(Save("d", odd)));
    EXPECT_EQ(list.ArmyUnits().Item(1).PointCost(), -2 * (5 + 24 + 25));
    EXPECT_EQ(list.ArmyUnits().Item("zeal").EquippedPointCost(), -2 * (5 + 24 + 25 + 2.5));
    // The summary of a squad keeps its costs until somebody asks for them: it has no members.
    CArmyRoster roster;
    ASSERT_TRUE(roster.ReadInfo(Save("d", Changed(kRoster, "ENTRY=#U\r", "ENTRY=#MU\r"))));
    EXPECT_TRUE(roster.WriteInfo(folder_ / "out"));
    EXPECT_TRUE(ReadBytes(folder_ / "out").ends_with("POINTS=20,25\r\n"));
    EXPECT_EQ(roster.PointCost(), 0);
}

TEST_F(DocumentTest, OldDocumentsAreImported) {
    CArmyTables tables;
    ASSERT_TRUE(tables.ImportInfoV1(Save("q", kTablesV1)));
    EXPECT_EQ(tables.Name() + "/" + tables.Descr(), "Old/d");
    EXPECT_EQ(tables.ArmyWeapons().Item("laser").PointCost(), 7.5);
    EXPECT_EQ(tables.ArmyAccessories().Item("plate").AsAccessory()->PF(), 2);
    EXPECT_TRUE(tables.ArmyWeapons().Sorted() && tables.ArmyAccessories().Indexed());
    for (const char* tag : {"#VD_VER", "#ARMYTBLS", "#ARMYWP", "#ARMYAC", "#EL", "#W", "#P"})
        EXPECT_FALSE(tables.ImportInfoV1(Save("q", Changed(kTablesV1, tag, "#X")))) << tag;
    EXPECT_FALSE(tables.ImportInfoV1(Save("q", Changed(kTablesV1, "\"#EL\",1", "\"#EL\",2147483647"))));
    EXPECT_EQ(tables.ArmyWeapons().Count(), 1);

    CArmyList list;
    ASSERT_TRUE(list.ImportInfoV1(Save("l", kListV1)));
    EXPECT_EQ(list.PictureFile(), "old.bmp");
    EXPECT_EQ(list.ArmyUnits().Item("squad").EquippedPointCost(), 8);
    EXPECT_TRUE(list.WriteInfo(folder_ / "out") && list.ReadInfo(folder_ / "out"));
    EXPECT_EQ(list.ArmyUnits().Item("guard").EquippedPointCost(), 12.5);

    CArmyRoster roster;
    ASSERT_TRUE(roster.ImportInfoV1(Save("r", kRosterV1)));
    EXPECT_EQ(roster.PointCost(), 8);
    EXPECT_FALSE(roster.ArmyUnits().Sorted() || roster.ArmyUnits().Indexed());
}

std::string NestedSquads(int depth) {
    std::string text = kRoster.substr(0, kRoster.find("[UNITLIST_1]"));
    std::string section = "UNITLIST";
    while (depth-- > 0) {
        section += "_1";
        text += "[" + section +
                Lines({"]", "ENTRY=#MU", "VERSION=2", "FULLINFO=1", "NAME=n", "DESCR=", "KEY=", "QUANTITY=1",
                       "POINTS=0,0"});
        section += "_UNITLIST";
        text += "[" + section + Lines({"]", "ENTRY=#UL", "SORTED=0", "INDEXED=0", depth > 0 ? "COUNT=1" : "COUNT=0"});
    }
    return text;
}

TEST_F(DocumentTest, NestingHasALimitInBothForms) {
    CArmyRoster roster;
    ASSERT_TRUE(roster.ReadInfo(Save("d", NestedSquads(300))) && roster.WriteInfo(folder_ / "out"));
    EXPECT_EQ(ReadBytes(folder_ / "out"), NestedSquads(300));
    EXPECT_FALSE(roster.ReadInfo(Save("d", NestedSquads(CMultUnit::kDeepestNesting + 1))));

    std::string old = "\"#VD_VER\",1,0\r\n\"#ARMYROSTER\",0,0,0,\"n\",\"d\",\"\"\r\n\"#UL\",1\r\n";
    for (int level = 0; level < 100'000; ++level)
        old += "\"#MU\",1,2,\"h\",0,\"n\",\"d\",0,0,1\r\n";
    EXPECT_FALSE(roster.ImportInfoV1(Save("d", old)));
}

}  // namespace
