#include "shell/setup_test.h"
#include "units/unit.h"

using enum BoxAnswer;

namespace {

TEST_F(SetupTest, ImportTellsWhatItLacksAndWakesTheFormUpAfterEveryFailure) {
    const std::string heading = "It was not possible to find the following items in the Army Tables:\r\n";
    const std::string cutBehindItsGuard = kListV1.substr(0, kListV1.rfind("\"#P\""));
    const std::string notRead = "Error while reading army list.";
    struct {
        std::size_t number;
        std::string source, target;
        std::vector<std::string> warnings;
    } const cases[] = {
        {2, kRosterV1, "new.v2r", {heading + "Guard"}},
        {2, "", "empty.v2r", {notRead}},
        {1, cutBehindItsGuard, "part.v2l", {notRead, heading + "UNIT: Guard, WEAPON: Laser"}},
        {0, kTablesV1, "kept", {"Error while saving equipment list."}},
    };
    ::chmod(Save("kept", "kept").c_str(), 0400);
    Open();
    SetModified(true);
    for (const auto& test : cases) {
        SCOPED_TRACE(test.target);
        const auto& file = kWorkingFiles[test.number];
        const std::string target = folder_ / test.target;
        platform_.ExpectOpen(Save("old", test.source), [&](const CFileDialog&) { EXPECT_FALSE(form_->isEnabled()); });
        platform_.ExpectSave(target);
        for (const std::string& warning : test.warnings)
            Expect(BoxKind::Warning, warning);
        if (test.target != "kept") Expect(BoxKind::Information, "Import complete");
        Click(file.import);
        platform_.Verify();
        ExpectPath(file, target);
        EXPECT_EQ(Modified(), "012");
    }
    CUnit& guard = MGlobal::ArmyList().ArmyUnits().Item("guard").SingleUnit();
    EXPECT_EQ(ErrorOf([&] { guard.SetSpecialProp(CUnit::HeroicSave, 6554); }), 6);
    platform_.ExpectOpen(Save("old", kRosterV1));
    platform_.ExpectSave(folder_ / "named.v2r");
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    Click("cmdImportArmyRoster");
    ExpectPath(kWorkingFiles[2], folder_ / "named.v2r");  // never the former file's
    EXPECT_TRUE(MFormDriver::Find(*form_, "cmdImportArmyRoster")->isEnabled());
}

TEST_F(SetupTest, MergeRefusesTheFileByItsPathAloneAndAsksAtEachClash) {
    OpenOnSamples();
    const std::string clash = "Plate already exists in the equipment file";
    platform_.ExpectOpen(MGlobal::EquipmentFile());
    Expect(BoxKind::Warning, "You cannot merge data from the current file, choose a different file.");
    Click("cmdEqFileMerge");
    EXPECT_EQ(Modified(), "");
    platform_.ExpectOpen(folder_ / "./a.v2q");
    ExpectClash(clash, Cancel);
    Expect(BoxKind::Information, "Merge terminated");
    Click("cmdEqFileMerge");
    const std::string other = Save("other", Changed(kTables, "DESCR=hot", "DESCR=cold"));
    platform_.ExpectOpen(other);
    ExpectClash(clash, No);
    ExpectQuestion("Never substitute existing accessories?", Yes);
    Expect(BoxKind::Information, "Merge terminated");
    Click("cmdEqFileMerge");
    EXPECT_TRUE(Holds(kWorkingFiles[0], "DESCR=hot"));
    platform_.ExpectOpen(other);
    ExpectClash(clash, No);
    ExpectQuestion("Never substitute existing accessories?", No);
    ExpectClash("Laser already exists in the equipment file", Yes);
    Expect(BoxKind::Information, "Merge terminated");
    Click("cmdEqFileMerge");
    EXPECT_TRUE(Holds(kWorkingFiles[0], "DESCR=cold"));
    const std::string fresh = Changed(kTables, "NAME=Laser", "NAME=Fresh");
    platform_.ExpectOpen(Save("short", Changed(fresh, "COUNT=1", "COUNT=9")));  // announces more than there is
    Expect(BoxKind::Warning, kWorkingFiles[0].failureToRead);
    Expect(BoxKind::Information, "Merge terminated");
    Click("cmdEqFileMerge");
    EXPECT_TRUE(Holds(kWorkingFiles[0], "NAME=Fresh") && Holds(kWorkingFiles[0], "NAME=Laser"));
    EXPECT_EQ(Modified(), "2");
    platform_.ExpectOpen("/v1");
    platform_.ExpectSave("", [](const CFileDialog& target) {
        EXPECT_EQ(target.Flags, CFileDialog::OverwritePrompt) << "an import into a new file is refused after a merge";
    });
    Click("cmdImportEqFile");
}

TEST_F(SetupTest, UpdateOfCostsTellsWhatItLacksAndSavesOnlyWhenAsked) {
    OpenOnSamples();
    Save("a.v2r", Changed(kRoster, "POINTS=20,25", "POINTS=1,2"));
    MGlobal::LoadWorkingFiles();
    ExpectQuestion("Recalculation Complete. Save changes to file?", Yes);
    Click("cmdRecalculateArmyRoster");
    EXPECT_EQ(ReadBytes(MGlobal::ArmyRosterFile()), kRoster);
    ExpectQuestion("Recalculation Complete. Save changes to file?", No);
    Click("cmdRecalculateArmyList");
    EXPECT_TRUE(Holds(kWorkingFiles[1], "POINTS=20,40")) << "two guards of 10, with the laser of 10 instead of 2.5";
    EXPECT_EQ(ReadBytes(MGlobal::ArmyListFile()), kList);
    MGlobal::ArmyTables().Clear();
    MGlobal::ArmyList().Clear();
    ::chmod(MGlobal::ArmyRosterFile().c_str(), 0400);
    Expect(BoxKind::Warning, "It was not possible to find the following units in the Army List:\r\nGuard");
    ExpectQuestion("Recalculation Complete. Save changes to file?", Yes);
    Expect(BoxKind::Warning, "Error while saving army roster.");
    Click("cmdRecalculateArmyRoster");
}

}  // namespace
