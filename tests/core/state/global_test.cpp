#include "core/state/global.h"

#include <utility>

#include "core/files/hide_utils.h"
#include "core/files/profile.h"
#include "core/state/app.h"
#include "core/state/supp_tables.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"
#include "support/sample_documents.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace fs = std::filesystem;

namespace {

class GlobalTest : public CoreTest {
  protected:
    GlobalTest() {
        MGlobal::Reset();
        MApp::CreateProfile();
        Scramble({"\"#VD_VER\",2,2", "0,0,0", "\"#CU\",0", "\"#CW\",0", "\"#CA\",0", "\"#CUW\",0", "\"#CUA\",0",
                  "\"#CWBaP\",1", "\"Rifle\",\"12\"", "\"#CWRan\",0", "\"#CWPen\",0"});
    }
    ~GlobalTest() override { MGlobal::Reset(); }

    void Scramble(std::initializer_list<std::string> lines) {
        std::string text;
        for (const std::string& line : lines)
            text += MHideUtils::EncodeLine(line) + "\r\n";
        Save("SuppData.vdx", text);
    }
    void Load(const std::string& equipment = "", const std::string& list = "", const std::string& roster = "") {
        if (!equipment.empty()) MGlobal::SetEquipmentFile(Save("a.v2q", equipment));
        if (!list.empty()) MGlobal::SetArmyListFile(Save("a.v2l", list));
        if (!roster.empty()) MGlobal::SetArmyRosterFile(Save("a.v2r", roster));
        MGlobal::LoadWorkingFiles();
        EXPECT_FALSE(fs::is_regular_file(folder_ / "SuppData.tmp"));
    }
    void Expect(BoxKind kind, const std::string& text) { platform_.ExpectBox(kind, BoxButtons::Ok, text); }
    void ExpectQuestion(const std::string& document, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, document + " modified, save changes to file?",
                            answer);
    }
};

TEST_F(GlobalTest, FirstRunMakesTheDataFolderOrTellsInItalianWhatIsInItsPlace) {
    MGlobal::ReadWorkingFileNames();
    MGlobal::CheckDataFolder();
    EXPECT_EQ(MGlobal::FileExists(folder_ / "Data"), -1);
    fs::remove(folder_ / "Data");
    Expect(BoxKind::Warning, "Attenzione, esiste un file con nome " + Save("Data", "") +
                                 ". Questo file deve essere rimosso o rinominato perche' questo programma funzioni "
                                 "correttamente.");
    MGlobal::CheckDataFolder();
    Save("SuppData.tmp", "left behind by a crash");
    Load();
    MGlobal::PromptSaveModified(-1);
    EXPECT_EQ(MGlobal::EnsureExtension("/a/b.V2Q", ".v2q"), "/a/b.V2Q.v2q");
    EXPECT_EQ(MGlobal::EnsureExtension("/a/b.v2q", ".v2q"), "/a/b.v2q");
}

TEST_F(GlobalTest, WorkingFilesComeFromTheSettings) {
    EXPECT_TRUE(MApp::Profile().WriteProfile("Files", "EquipmentFile", Save("a.v2q", kTables)));
    EXPECT_TRUE(MApp::Profile().WriteProfile("Files", "ArmyListFile", Save("a.v2l", kList)));
    EXPECT_TRUE(MApp::Profile().WriteProfile("Files", "ArmyRosterFile", Save("a.v2r", kRoster)));
    MGlobal::ReadWorkingFileNames();
    Load();
    EXPECT_EQ(MGlobal::ArmyTables().ArmyWeapons().Count() + MGlobal::ArmyList().ArmyUnits().Count(), 1 + 2);
    EXPECT_EQ(MGlobal::ArmyRoster().PointCost(), 25);
}

TEST_F(GlobalTest, EachFailureToLoadHasItsMessage) {
    fs::remove(folder_ / "SuppData.vdx");
    Expect(BoxKind::Critical, "Cannot find support tables.");
    Expect(BoxKind::Warning, "Error while reading equipment tables.");
    Expect(BoxKind::Warning, "Error while reading army list.");
    Expect(BoxKind::Warning, "Error while reading army roster.");
    Load("no tables", kRoster, Changed(kRoster, "COUNT=1", "COUNT=2"));
    EXPECT_EQ(MGlobal::ArmyRoster().ArmyUnits().Count(), 1);
    try {
        MGlobal::SuppTables();
        ADD_FAILURE() << "there are no tables";
    } catch (const CRuntimeError& error) {
        EXPECT_EQ(error.what(), error.Description() + "\r\n" + folder_.Path() + "/SuppData.vdx");
    }

    MGlobal::Reset();
    Scramble({"\"#VD_VER\",2,2", "0,0,0", "\"#CX\",0"});
    Expect(BoxKind::Warning, "Error while reading support tables (0: ).");
    Expect(BoxKind::Critical, "Error while reading support tables.");
    Load();
    fs::create_directory(folder_ / "SuppData.tmp");
    Expect(BoxKind::Critical,
           "Error while reading support tables (check disk space and file permission to the application directory).");
    Load();
    fs::remove(folder_ / "SuppData.tmp");
    Save("SuppData.vdx", "a\tb\r\n");
    EXPECT_EQ(ErrorOf([&] { Load(); }), 5);  // ends the run
    EXPECT_FALSE(fs::exists(folder_ / "SuppData.tmp"));
}

TEST_F(GlobalTest, AsksAboutModifiedDocumentsInOrder) {
    Load();
    MGlobal::SetEquipmentFile(folder_ / "none/a.v2q");
    MGlobal::SetArmyListFile(folder_ / "a.v2l");
    for (std::int16_t index = 0; index < 4; ++index)
        MGlobal::SetFileModified(index, true);
    ExpectQuestion("Army Roster", BoxAnswer::No);
    MGlobal::PromptSaveModified(1);
    ExpectQuestion("Equipment List", BoxAnswer::Yes);
    Expect(BoxKind::Warning, "Error while writing equipment list.");
    ExpectQuestion("Army List", BoxAnswer::Yes);
    ExpectQuestion("Army Roster", BoxAnswer::Yes);
    Expect(BoxKind::Warning, "Error while saving army roster.");  // it has no path
    MGlobal::PromptSaveModified(-1);
    EXPECT_TRUE(!MGlobal::IsFileModified(0) && MGlobal::IsFileModified(1) && MGlobal::IsFileModified(2));
    EXPECT_EQ(MGlobal::FileExists(folder_ / "a.v2l"), 1);
}

TEST_F(GlobalTest, ListTakesEquipmentThenSquadsTheirMembersAndTheRosterItsUnits) {
    const std::string more = Lines({"[UNITLIST_2]", "ENTRY=#MU", "FULLINFO=0", "NAME=SQUAD", "QUANTITY=2", "POINTS=1,1",
                                    "[UNITLIST_3]", "ENTRY=#MU", "FULLINFO=0", "NAME=lost \xE9", "POINTS=1,1"});
    Load(kTables, Changed(kList, "QUANTITY=2\r\nPOINTS=20,25\r\nSTATS", "QUANTITY=1\r\nPOINTS=20,25\r\nSTATS"),
         Changed(kRoster, "COUNT=1", "COUNT=3") + more);
    CUnitList& units = MGlobal::ArmyList().ArmyUnits();
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(), "");
    EXPECT_EQ(units.Item("guard").EquippedPointCost(), 20);  // 10, and the weapon of 10
    EXPECT_EQ(units.Item("squad").EquippedPointCost(), 3 * 2 * 20);

    CUnitList& roster = MGlobal::ArmyRoster().ArmyUnits();
    EXPECT_EQ(MGlobal::SyncRosterWithArmyList(), "\r\nlost \xE9");
    EXPECT_EQ(roster.Item(1).EquippedPointCost(), 2 * 20);
    EXPECT_EQ(roster.Item(2).EquippedPointCost(), 2 * 2 * 20);
    roster.Item(3).SetFullInfo(true);
    EXPECT_EQ(MGlobal::SyncRosterWithArmyList(), "");

    MGlobal::ArmyTables().Clear();
    units.Item("squad").AsSquad()->Units().Item(1).SetName("Gone");
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(), "\r\nUNIT: Guard, WEAPON: Laser\r\nUNIT: Gone");
}

std::shared_ptr<CGenUnit> Summary(CGenUnit::Kind kind, const std::string& name) {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(kind);
    unit->SetName(name);
    unit->SetFullInfo(false);
    return unit;
}

// A squad that holds another name so many times.
void AddSquad(const std::string& name, int times, const std::string& member, CGenUnit::Kind kind = CGenUnit::Squad) {
    CUnitList& units = MGlobal::ArmyList().ArmyUnits();
    units.Add(Summary(CGenUnit::Squad, name));
    for (int i = 0; i < times; ++i)
        units.Item(name).AsSquad()->Units().Add(Summary(kind, member));
}

TEST_F(GlobalTest, OneUpdateCopiesSoMuchAndLeavesNothingHalfMade) {
    Load();
    AddSquad("S", 1, "s");
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(), "") << "it holds itself";

    MGlobal::ArmyList().ArmyUnits().Add(Summary(CGenUnit::Single, "A"));  // 5 points
    AddSquad("B", 698, "A", CGenUnit::Single);
    AddSquad("C", 1, "B");
    for (int i = 100; i < 300; ++i)
        AddSquad("S" + std::to_string(i), 2, "C");  // 1,398 members: the 143rd takes one of its two
    EXPECT_EQ(ErrorOf([] { MGlobal::SyncArmyListWithEquipment(); }), 7);
    ASSERT_TRUE(MGlobal::ArmyList().WriteInfo(folder_ / "out"));
    const std::string saved = ReadBytes(folder_ / "out");
    for (const std::string entry : {"S241\r\nQUANTITY=1\r\nPOINTS=6980,", "S242\r\nQUANTITY=1\r\nPOINTS=3490,"})
        EXPECT_NE(saved.find("KEY=" + entry), std::string::npos) << "not priced by what it holds: " << entry;

    auto deep = Summary(CGenUnit::Squad, "deep");
    for (int depth = 0; depth < 2'000; ++depth) {
        const auto outer = Summary(CGenUnit::Squad, "deep");
        outer->AsSquad()->Units().Add(std::exchange(deep, outer));
    }
    EXPECT_EQ(ErrorOf([&] { CGenUnit().Clone(*deep); }), 28);

    const auto guard = Summary(CGenUnit::Single, "Guard");
    MGlobal::ArmyList().ArmyUnits().Add(guard);
    for (int i = 0; i < 30; ++i) {
        guard->AsUnit()->EqList().Add(std::make_shared<CEqItem>());
        guard->AsUnit()->EqList().Item(i + 1).NewItem(CEqItem::Weapon);
    }
    CUnitList& roster = MGlobal::ArmyRoster().ArmyUnits();
    for (int i = 0; i < 6'667; ++i)
        roster.Add(Summary(CGenUnit::Single, "Guard"));
    EXPECT_EQ(ErrorOf([] { MGlobal::SyncRosterWithArmyList(); }), 7) << "more than 200,000 items";
    for (const std::int32_t entry : {6'666, 6'667})
        EXPECT_EQ(roster.Item(entry).AsUnit()->EqList().Count(), entry == 6'666 ? 30 : 0) << "entry " << entry;
}

TEST_F(GlobalTest, EquipmentIsPricedFromTheRules) {
    Load(kTables);
    MGlobal::ArmyTables().ArmyAccessories().Item(1).SetFullInfo(false);
    EXPECT_EQ(MGlobal::RecalculateEquipment(), "\r\nACCESSORY: Plate");
    EXPECT_EQ(MGlobal::ArmyTables().ArmyWeapons().Item("laser").PointCost(), 12);
}

// As a player does it. Costs are worked out from the stats: infantry 5 + MV over 10 + PF price + 2 a DP below 6 + 5 an
// SS below 6 + 3 an FA below 6.
TEST_F(GlobalTest, SampleOfThePreviousReleaseIsImportedBottomUp) {
    const std::string sample = SOURCE_DIR "/data/v1/Tallow Guard.vd";
    Load();
    ASSERT_TRUE(MGlobal::ArmyTables().ImportInfoV1(sample + "q"));
    ASSERT_TRUE(MGlobal::ArmyList().ImportInfoV1(sample + "l"));
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(), "");
    const std::pair<const char*, double> kCosts[] = {
        // Officer 2 with Heroic Save 1, doubled; snuffer 2, hymnal 4, coat 0. PF 2 is 4, DP 4, SS 5, FA 4.
        {"abb\xC9 of the wick", (5 + 4 + 2 * 2 + 5 + 2 * 3 + 2 * 2 + 5 + 2 + 4) * 2},
        // Sergeant, doubled, with arms of 9; four guardsmen 5 + 2 + 5, rifle 4; sister 5 + 2 + 2 and 5 as a medic,
        // arms 5.
        {"Candle Watch", (5 + 2 + 2 + 5 + 3 + 2 + 9) * 2 + 4 * (12 + 4) + 14 + 5},
    };
    for (const auto& [name, cost] : kCosts)
        EXPECT_EQ(MGlobal::ArmyList().ArmyUnits().Item(name).EquippedPointCost(), cost) << name;
    ASSERT_TRUE(MGlobal::ArmyRoster().ImportInfoV1(sample + "r"));
    EXPECT_EQ(MGlobal::SyncRosterWithArmyList(), "");
    // Abbe, two watches, muster, two outriders, warden, wagon, crawler.
    EXPECT_EQ(MGlobal::ArmyRoster().PointCost(), 78 + 2 * 139 + 87.5 + 2 * 48.375 + 50.75 + 70.25 + 103);
}

}  // namespace
