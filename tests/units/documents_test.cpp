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
    std::vector<std::pair<char, std::string>> cases = {
        {'l', Changed(Changed(kList, "FULLINFO=1", "FULLINFO=-1"), "SORTED=1", "SORTED=2")}};
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
    ASSERT_TRUE(list.ReadInfo(Save("d", kList)) && list.ReadInfo(folder_ / "d"));
    EXPECT_EQ(list.ArmyUnits().Count(), 2);
    // A file that can't be read empties the list and leaves the texts; one that lacks them empties them.
    EXPECT_FALSE(list.ReadInfo(folder_ / "none"));
    EXPECT_EQ(list.ArmyUnits().Count(), 0);
    EXPECT_EQ(list.PictureFile(), "p.png");
    EXPECT_TRUE(list.ReadInfo(Save("d", Changed(Changed(kList, "PICTURE=", "X="), "DESCR=", "X="))));
    EXPECT_EQ(list.PictureFile() + list.Descr(), "");
}

TEST_F(DocumentTest, TruncatedFilesFailWhereverTheyEnd) {
    // With the number of characters that the file can do without.
    const std::tuple<char, bool, std::string, std::size_t> kCases[] = {
        {'q', false, kTables, 2},  {'l', false, kList, 4},  {'r', false, kRoster, 4},
        {'q', true, kTablesV1, 5}, {'l', true, kListV1, 2}, {'r', true, kRosterV1, 2}};
    for (const auto& [kind, import, bytes, tail] : kCases) {
        const auto document = NewDocument(kind);
        for (std::size_t size = 0; size <= bytes.size(); ++size) {
            const std::string path = Save("d", bytes.substr(0, size));
            const bool ok = import ? document->ImportInfoV1(path) : document->ReadInfo(path);
            ASSERT_EQ(ok, size >= bytes.size() - tail) << kind << import << " cut at " << size;
        }
    }
}

TEST_F(DocumentTest, BrokenFilesFailAndKeepWhatWasRead) {
    const std::tuple<const char*, const char*, const char*, bool, std::int32_t> kCases[] = {
        {"another document", "#ARMYLIST", "#ARMYROSTER", false, 0},
        {"version of another program", "2_2", "32767_-1_x", true, 2},
        {"document version out of range", "VERSION=0", "VERSION=99999", false, 0},
        {"a list without its tag", "#UL", "#EL", false, 0},
        {"COUNT out of range", "COUNT=2", "COUNT=2147483648", false, 0},
        {"COUNT as high as it goes", "COUNT=2", "COUNT=2147483647", false, 2},
        {"COUNT below 0", "COUNT=2", "COUNT=-1", true, 0},
        {"four stats", "STATS=10,5,6,0,6", "STATS=10,5,6,0", false, 0},
        {"a stat whose price overflows", "STATS=10", "STATS=-32768", false, 0},
        {"specials as fractions", "PROP3=0,0,0,0,0,0", "PROP3=0,0.5,0,0,0,x", true, 2},
        {"no equipment list", "[UNITLIST_1_EQLIST]", "[X]", false, 0},
        {"no member", "[UNITLIST_2_UNITLIST_1]", "[X]", false, 1},
        {"a key twice: the first counts", "[UNITLIST]\r\n", "[UNITLIST]\r\nCOUNT=1\r\n", true, 1},
        {"two of one name: the later one is lost", "NAME=Squad", "NAME=guard", true, 1},
    };
    CArmyList list;
    for (const auto& [what, from, to, ok, units] : kCases) {
        EXPECT_EQ(list.ReadInfo(Save("d", Changed(kList, from, to))), ok) << what;
        EXPECT_EQ(list.ArmyUnits().Count(), units) << what;
        EXPECT_TRUE(list.ArmyUnits().Sorted() && list.ArmyUnits().Indexed()) << what;
    }
    for (const char* key : {"APPVERSION", "SORTED", "COUNT", "NAME=Guard", "TYPE", "POINTS", "STATS", "PROP2", "PROP3"})
        EXPECT_FALSE(list.ReadInfo(Save("d", Changed(kList, key, "X")))) << key;
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
}

TEST_F(DocumentTest, OldDocumentsAreImported) {
    CArmyTables tables;
    ASSERT_TRUE(tables.ImportInfoV1(Save("q", kTablesV1)));
    EXPECT_EQ(tables.ArmyWeapons().Item("laser").PointCost(), 7.5);
    EXPECT_EQ(tables.ArmyAccessories().Item("plate").AsAccessory()->PF(), 2);
    EXPECT_TRUE(tables.ArmyWeapons().Sorted());
    CAccessory laser;
    laser.SetName("Laser");
    EXPECT_FALSE(tables.IsEqAllowed(laser)) << "it holds a weapon of that name";
    EXPECT_FALSE(tables.IsEqAllowed(CEqItem())) << "an empty wrapper";
    for (const char* tag : {"#VD_VER", "#ARMYTBLS", "#ARMYWP", "#ARMYAC", "#EL", "#W", "#P"})
        EXPECT_FALSE(tables.ImportInfoV1(Save("q", Changed(kTablesV1, tag, "#X")))) << tag;
    EXPECT_FALSE(tables.ImportInfoV1(Save("q", Changed(kTablesV1, "\"#EL\",1", "\"#EL\",2147483647"))));
    EXPECT_EQ(tables.ArmyWeapons().Count(), 1);

    CArmyList list;
    ASSERT_TRUE(list.ImportInfoV1(Save("l", kListV1)));
    EXPECT_EQ(list.ArmyUnits().Item("squad").EquippedPointCost(), 8);
    EXPECT_TRUE(list.WriteInfo(folder_ / "out") && list.ReadInfo(folder_ / "out"));
    EXPECT_EQ(list.ArmyUnits().Item("guard").EquippedPointCost(), 12.5);
    ASSERT_TRUE(list.ImportInfoV1(Save("l", Changed(kListV1, "Guard", "*not_found*"))));
    EXPECT_TRUE(list.WriteInfo(folder_ / "out") && list.ReadInfo(folder_ / "out")) << "with a name that reads as none";
    EXPECT_EQ(list.ArmyUnits().Count(), 2);

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
        text += "[" + section + Lines({"]", "ENTRY=#MU", "FULLINFO=1", "NAME=n", "QUANTITY=1", "POINTS=0,0"});
        section += "_UNITLIST";
        text += "[" + section + Lines({"]", "ENTRY=#UL", "SORTED=0", "INDEXED=0", depth > 0 ? "COUNT=1" : "COUNT=0"});
    }
    return text;
}

TEST_F(DocumentTest, NestingHasALimitInBothForms) {
    CArmyRoster roster;
    EXPECT_TRUE(roster.ReadInfo(Save("d", NestedSquads(300))));
    EXPECT_FALSE(roster.ReadInfo(Save("d", NestedSquads(CMultUnit::kDeepestNesting + 1))));

    std::string old = "\"#VD_VER\",1,0\r\n\"#ARMYROSTER\",0,0,0,\"n\",\"d\",\"\"\r\n\"#UL\",1\r\n";
    for (int level = 0; level < 100'000; ++level)
        old += "\"#MU\",1,2,\"h\",0,\"n\",\"d\",0,0,1\r\n";
    EXPECT_FALSE(roster.ImportInfoV1(Save("d", old)));
}

}  // namespace
