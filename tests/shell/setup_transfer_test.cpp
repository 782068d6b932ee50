#include "core/state/merge.h"
#include "shell/setup_test.h"

using enum BoxAnswer;

namespace {

const std::string kHeading = "It was not possible to find the following items in the Army Tables:\r\n";
const std::string kMissingLaser = kHeading + "UNIT: Guard, WEAPON: Laser";

TEST_F(SetupTest, ImportTellsWhatItLacksAndWakesTheFormUpAfterEveryFailure) {
    const auto cut = [](const std::string& document) { return document.substr(0, document.rfind("\"#P\"")); };
    const std::string notRead = "Error while reading army list.";
    struct {
        std::size_t number;
        std::string source, target;
        std::vector<std::string> warnings;
    } const cases[] = {
        {2, kRosterV1, "new.v2r", {kHeading + "Guard"}},
        {2, cut(kRosterV1), "part.v2r", {notRead}},
        {1, cut(kListV1), "part.v2l", {notRead, kMissingLaser}},  // its guard has been read
        {0, kTablesV1, "kept", {"Error while saving equipment list."}},
        {1, kListV1, "kept", {"Error while saving army list."}},
        {1, kListV1, "new.v2l", {}},
        {2, kRosterV1, "kept", {"Error while saving army roster."}},
    };
    ::chmod(Save("kept", "kept").c_str(), 0400);
    Open();
    SetModified(true);
    for (const auto& test : cases) {
        SCOPED_TRACE(test.target);
        const auto& file = kWorkingFiles[test.number];
        const std::string target = folder_ / test.target;
        platform_.ExpectOpen(Save("old", test.source), [&](const CFileDialog&) { EXPECT_FALSE(form_->isEnabled()); });
        platform_.ExpectSave(target, [&](const CFileDialog&) {
            const QWidget* button = MFormDriver::Find(*form_, QString::fromStdString(file.import));
            EXPECT_FALSE(button->isEnabledTo(form_.get()));  // of itself, not by the form alone
        });
        for (const std::string& warning : test.warnings)
            Expect(BoxKind::Warning, warning);
        if (test.target != "kept") Expect(BoxKind::Information, "Import complete");
        Click(file.import);
        platform_.Verify();
        EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
        ExpectPath(file, target);
        EXPECT_EQ(Modified(), "012");
    }
    platform_.ExpectOpen("", [](const CFileDialog&) { throw CRuntimeError(ErrorNumber::DeviceError); });
    Expect(BoxKind::Critical, "Run-time error '57':\r\n\r\nDevice I/O error");
    Click("cmdImportArmyList");
    EXPECT_TRUE(form_->isEnabled() && Enabled("cmdImportArmyList"));
}

TEST_F(SetupTest, MergeTakesTheObjectsThemselvesByOneDecisionForAllLists) {
    const std::string clash = "Pl\xC3\xA4te already exists in the equipment file";
    const std::string laserClash = "Laser already exists in the equipment file";
    const std::string path = Save("tables", Changed(kTables, "NAME=Plate", "NAME=Pl\xE4te"));
    CArmyTables document;
    CArmyTables source;
    ASSERT_TRUE(document.ReadInfo(path) && source.ReadInfo(path));
    const auto taken = [&] {  // accessory and weapon
        return std::pair(document.ArmyAccessories().Share(1) == source.ArmyAccessories().Share(1),
                         document.ArmyWeapons().Share(1) == source.ArmyWeapons().Share(1));
    };
    ExpectClash(clash, Cancel);
    MMerge::Merge(document, source);
    EXPECT_EQ(taken(), std::pair(false, false));
    ExpectClash(clash, No);
    ExpectQuestion("Never substitute existing accessories?", Yes);
    MMerge::Merge(document, source);
    EXPECT_EQ(taken(), std::pair(false, false));
    ExpectClash(clash, No);
    ExpectQuestion("Never substitute existing accessories?", No);
    ExpectClash(laserClash, Yes);
    MMerge::Merge(document, source);
    EXPECT_EQ(taken(), std::pair(false, true));
    source.ArmyAccessories().Clear();
    ExpectClash(laserClash, Yes);
    ExpectQuestion("Substitute all existing weapons?", Yes);
    MMerge::Merge(document, source);
}

TEST_F(SetupTest, MergeThatFailsHalfWayKeepsWhatWasTakenInMarkedAsModified) {
    OpenOnSamples();
    struct CBrokenPlatform : CScriptedPlatform {
        BoxAnswer ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) override {
            if (buttons == BoxButtons::YesNoCancel) throw CRuntimeError(ErrorNumber::OutOfMemory);
            return CScriptedPlatform::ShowBox(kind, buttons, text);
        }
    } broken;
    broken.ExpectOpen(Save("source", Changed(kList, "NAME=Guard", "NAME=Fresh")));
    broken.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '7':\r\n\r\nOut of memory");
    Click("cmdArmyListMerge");
    EXPECT_TRUE(Holds(kWorkingFiles[1], "NAME=Fresh"));
    EXPECT_EQ(Modified(), "0");
}

TEST_F(SetupTest, MergeRefusesTheFileByItsPathAloneAndGoesOnAfterAFailedRead) {
    OpenOnSamples();
    platform_.ExpectOpen(MGlobal::EquipmentFile());
    Expect(BoxKind::Warning, "You cannot merge data from the current file, choose a different file.");
    Click("cmdEqFileMerge");
    EXPECT_EQ(Modified(), "");
    platform_.ExpectOpen(folder_ / "./a.v2q");
    ExpectClash("Plate already exists in the equipment file", Cancel);
    Expect(BoxKind::Information, "Merge terminated");
    Click("cmdEqFileMerge");
    // More elements are announced than there are; the first one is new.
    platform_.ExpectOpen(Save("short", Changed(Changed(kTables, "NAME=Laser", "NAME=Fresh"), "COUNT=1", "COUNT=9")));
    Expect(BoxKind::Warning, kWorkingFiles[0].failureToRead);
    Expect(BoxKind::Information, "Merge terminated");
    Click("cmdEqFileMerge");
    EXPECT_TRUE(Holds(kWorkingFiles[0], "NAME=Fresh") && Holds(kWorkingFiles[0], "NAME=Laser"));
    EXPECT_EQ(Modified(), "2");
}

TEST_F(SetupTest, UpdateOfCostsTellsWhatItLacksAndSavesOnlyWhenAsked) {
    struct {
        std::size_t number;
        const char* button;
        std::string after;   // prices
        void (*takeAway)();  // what the update then misses
        std::string warning;
    } const cases[] = {
        {2, "cmdRecalculateArmyRoster", "POINTS=20,25", [] { MGlobal::ArmyList().Clear(); },
         "It was not possible to find the following units in the Army List:\r\nGuard"},
        // Two guards of 10, with the laser of 10 instead of 2.5.
        {1, "cmdRecalculateArmyList", "POINTS=20,40", [] { MGlobal::ArmyTables().Clear(); }, kMissingLaser},
        {0, "cmdRecalculateEquipmentList", "POINTS=12,12",
         [] { MGlobal::ArmyTables().ArmyAccessories().Item(1).SetFullInfo(false); },
         "Errors occurred while recalculating costs on the following items:\r\nACCESSORY: Plate"},
    };
    OpenOnSamples();
    Save("a.v2r", Changed(kRoster, "POINTS=20,25", "POINTS=1,2"));
    for (const auto& test : cases) {
        const auto& file = kWorkingFiles[test.number];
        SCOPED_TRACE(file.kind);
        MGlobal::LoadWorkingFiles();
        ::chmod(file.path().c_str(), 0400);
        ExpectQuestion("Recalculation Complete. Save changes to file?", No);
        Click(test.button);
        EXPECT_TRUE(Holds(file, test.after));
        test.takeAway();
        Expect(BoxKind::Warning, test.warning);
        ExpectQuestion("Recalculation Complete. Save changes to file?", Yes);
        Expect(BoxKind::Warning, file.failureToSave);
        Click(test.button);
        platform_.Verify();
    }
}

}  // namespace
