#include "core/state/global.h"

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

TEST_F(GlobalTest, FirstRunShowsNothing) {
    MGlobal::ReadWorkingFileNames();
    EXPECT_EQ(MGlobal::DataFolder(), folder_ / "Data");
    for (int run = 0; run < 2; ++run) {
        MGlobal::CheckDataFolder();
        EXPECT_EQ(MGlobal::PathKind(folder_ / "Data"), 1);
    }
    Save("SuppData.tmp", "left behind by a crash");
    Load();
    EXPECT_EQ(MGlobal::SyncRosterWithArmyList() + MGlobal::SyncArmyListWithEquipment(), "");
    MGlobal::PromptSaveModified(-1);
    EXPECT_FALSE(MGlobal::IsFileModified(3) || MGlobal::IsFileModified(-1));
}

TEST_F(GlobalTest, FileInPlaceOfTheDataFolderIsToldInItalian) {
    Save("Data", "");
    MGlobal::ReadWorkingFileNames();
    Expect(BoxKind::Warning, "Attenzione, esiste un file con nome " + (folder_ / "Data") +
                                 ". Questo file deve essere rimosso o rinominato perche' questo programma funzioni "
                                 "correttamente.");
    MGlobal::CheckDataFolder();
    EXPECT_EQ(MGlobal::FileExists(folder_ / "Data"), 1);
    EXPECT_EQ(MGlobal::FileExists(folder_.Path()), -1);
    EXPECT_EQ(MGlobal::FileExists(folder_ / "none"), 0);
}

TEST_F(GlobalTest, WorkingFilesComeFromTheSettings) {
    EXPECT_TRUE(MApp::Profile().WriteProfile("Files", "EquipmentFile", Save("a.v2q", kTables)));
    EXPECT_TRUE(MApp::Profile().WriteProfile("Files", "ArmyListFile", Save("a.v2l", kList)));
    EXPECT_TRUE(MApp::Profile().WriteProfile("Files", "ArmyRosterFile", Save("a.v2r", kRoster)));
    MGlobal::ReadWorkingFileNames();
    Load();
    EXPECT_EQ(MGlobal::ArmyTables().ArmyWeapons().Count(), 1);
    EXPECT_EQ(MGlobal::ArmyList().ArmyUnits().Count(), 2);
    EXPECT_EQ(MGlobal::ArmyRoster().PointCost(), 25);
}

TEST_F(GlobalTest, EachFailureToLoadHasItsMessage) {
    EXPECT_EQ(ErrorOf([] { (void)MGlobal::SuppTables(); }), 91);
    fs::remove(folder_ / "SuppData.vdx");
    Expect(BoxKind::Critical, "Cannot find support tables.");
    Expect(BoxKind::Warning, "Error while reading equipment tables.");
    Expect(BoxKind::Warning, "Error while reading army list.");
    Expect(BoxKind::Warning, "Error while reading army roster.");
    Load("no tables", kRoster, Changed(kRoster, "COUNT=1", "COUNT=2"));
    EXPECT_FALSE(MGlobal::HasSuppTables());
    EXPECT_EQ(MGlobal::ArmyListFile(), folder_ / "a.v2l");
    EXPECT_EQ(MGlobal::ArmyRoster().ArmyUnits().Count(), 1);
    platform_.Verify();

    MGlobal::Reset();
    Scramble({"\"#VD_VER\",2,2", "0,0,0", "\"#CX\",0"});
    Expect(BoxKind::Warning, "Error while reading support tables (0: ).");
    Expect(BoxKind::Critical, "Error while reading support tables.");
    Load();
    EXPECT_TRUE(MGlobal::HasSuppTables());

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
    EXPECT_EQ(MGlobal::PathKind(folder_ / "a.v2l"), -1);
    MGlobal::PromptSaveModified(0);
}

TEST_F(GlobalTest, ListTakesEquipmentThenSquadsTheirMembersAndTheRosterItsUnits) {
    const std::string more = Lines({"[UNITLIST_2]", "ENTRY=#MU", "FULLINFO=0", "NAME=SQUAD", "QUANTITY=2", "POINTS=1,1",
                                    "[UNITLIST_3]", "ENTRY=#MU", "FULLINFO=0", "NAME=lost \xE9", "POINTS=1,1"});
    Load(kTables, Changed(kList, "QUANTITY=2\r\nPOINTS=20,25\r\nSTATS", "QUANTITY=1\r\nPOINTS=20,25\r\nSTATS"),
         Changed(kRoster, "COUNT=1", "COUNT=3") + more);
    CUnitList& units = MGlobal::ArmyList().ArmyUnits();
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(), "");
    EXPECT_EQ(units.Item("guard").EquippedPointCost(), 20);  // 10, and the weapon of 10
    EXPECT_FALSE(units.Item("guard").AsUnit()->EqList().Item(1).FullInfo());
    EXPECT_EQ(units.Item("squad").EquippedPointCost(), 3 * 2 * 20);

    CUnitList& roster = MGlobal::ArmyRoster().ArmyUnits();
    EXPECT_EQ(MGlobal::SyncRosterWithArmyList(), "\r\nlost \xE9");
    EXPECT_EQ(roster.Item(1).EquippedPointCost(), 2 * 20);
    EXPECT_FALSE(roster.Item(1).FullInfo());
    EXPECT_EQ(roster.Item(2).Name(), "Squad");
    EXPECT_EQ(roster.Item(2).EquippedPointCost(), 2 * 2 * 20);
    roster.Item(3).SetFullInfo(true);
    EXPECT_EQ(MGlobal::SyncRosterWithArmyList(), "");

    MGlobal::ArmyTables().Clear();
    units.Item("squad").AsSquad()->Units().Item(1).SetName("Gone");
    auto armour = std::make_shared<CEqItem>();
    armour->NewItem(CEqItem::Accessory);
    armour->SetName("Plate");
    units.Item("guard").AsUnit()->AddItem(armour);
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(),
              "\r\nUNIT: Guard, WEAPON: Laser\r\nUNIT: Guard, ACCESSORY: Plate\r\nUNIT: Gone");
}

std::shared_ptr<CGenUnit> SquadSummary(char name) {
    auto squad = std::make_shared<CGenUnit>();
    squad->NewUnit(CGenUnit::Squad);
    squad->SetName(std::string(1, name));
    squad->SetFullInfo(false);
    return squad;
}

TEST_F(GlobalTest, SquadsThatNameEachOtherAreRenewedOnceOrRefused) {
    Load();
    CUnitList& units = MGlobal::ArmyList().ArmyUnits();
    units.Add(SquadSummary('S'));
    CMultUnit& itself = *units.Item("S").AsSquad();
    itself.Add(SquadSummary('s'), "");
    itself.Units().Item(1).SetQuantity(4);
    EXPECT_EQ(MGlobal::SyncArmyListWithEquipment(), "");
    EXPECT_EQ(itself.Units().Item(1).Name(), "S");
    EXPECT_EQ(itself.Units().Item(1).Quantity(), 4);

    // Each squad holds the one before it in the list twice: what the next one copies doubles every time.
    for (char name = 'A'; name <= 'Z'; ++name) {
        units.Add(SquadSummary(name));
        for (int twice = 0; twice < 2; ++twice)
            units.Item(std::string(1, name)).AsSquad()->Add(SquadSummary(static_cast<char>(name - 1)), "");
    }
    EXPECT_EQ(ErrorOf([] { MGlobal::SyncArmyListWithEquipment(); }), 7);
}

TEST_F(GlobalTest, EquipmentIsPricedFromTheRules) {
    const std::string more = Lines({"[WEAPONLIST_2]", "ENTRY=#W", "FULLINFO=0", "NAME=Note", "CLASS=Rifle",
                                    "POINTS=1,1", "[WEAPONLIST_3]", "ENTRY=#W", "FULLINFO=1", "NAME=Odd", "CLASS=Sling",
                                    "POINTS=7,7", "PROP2=0,0,0,0,0,0,0,0,0,0,0,0", "PROP3=1,1,0,0"});
    Load(Changed(kTables, "COUNT=1", "COUNT=3") + more);
    MGlobal::ArmyTables().ArmyAccessories().Item(1).SetFullInfo(false);
    Expect(BoxKind::Critical, "Invalid Weapon Class: \"Sling\".");
    EXPECT_EQ(MGlobal::RecalculateEquipment(), "\r\nACCESSORY: Plate\r\nWEAPON: Note");
    EXPECT_EQ(MGlobal::ArmyTables().ArmyWeapons().Item("laser").PointCost(), 12);
    EXPECT_EQ(MGlobal::ArmyTables().ArmyWeapons().Item("odd").PointCost(), 0);
}

TEST(Global, ExtensionsAreCompletedExactly) {
    EXPECT_EQ(MGlobal::EnsureExtension("/a/b.v2q", ".v2q"), "/a/b.v2q");
    EXPECT_EQ(MGlobal::EnsureExtension("/a/b.V2Q", ".v2q"), "/a/b.V2Q.v2q");
}

}  // namespace
