#include "shell/setup_test.h"

namespace fs = std::filesystem;

using namespace MFormDriver;
using enum BoxAnswer;

namespace {

TEST_F(SetupTest, OnlyWhatCanBeUsedHasATipAndLoadAllDoesNothing) {
    Open();
    Hover(*form_, "cmdEqFileSave");
    EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "");
    Hover(*form_, "cmdEqFileMerge");
    EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "Merge data from another equipment list into the current one");
    EXPECT_EQ(Get<QXColorButton>(*form_, "cmdEqFileMerge").BorderStyle(), 1);
    Hover(*form_, "tedEqFile");
    EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "");
    EXPECT_EQ(Get<QXTextEdit>(*form_, "tedEqFile").accessibleName(), "Equipment list");
    MGlobal::ArmyList().SetDescr("edited");
    Click("cmdLoad");
    EXPECT_EQ(MGlobal::ArmyList().Descr(), "edited");
}

TEST_F(SetupTest, CancelledDialogsChangeNothing) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        platform_.ExpectOpen("/v1");
        platform_.ExpectSave("");
        Click(file.import);
        // The equipment list's dialog keeps the title that it had then.
        const std::string title = file.index == MGlobal::EquipmentDocument ? "Select V2 target file name:" : "";
        platform_.ExpectSave("", [&](const CFileDialog& dialog) { EXPECT_EQ(dialog.DialogTitle, title); });
        Click(file.saveAs);
        platform_.ExpectOpen("");
        Click(file.select);
        ExpectPath(file, path);
        EXPECT_TRUE(Holds(file, file.sampleEntry));
    }
    EXPECT_EQ(Modified(), "");
}

TEST_F(SetupTest, MergeMakesTheArmyListsDialogAskForAnExistingFileUntilItOpensOne) {
    OpenOnSamples();
    const auto expectsFile = [](bool expected) {
        return [=](const CFileDialog& dialog) {
            EXPECT_EQ(dialog.Flags, CFileDialog::OverwritePrompt | (expected ? CFileDialog::FileMustExist : 0u));
        };
    };
    platform_.ExpectOpen("", expectsFile(true));
    Click("cmdArmyListMerge");
    platform_.ExpectSave("", expectsFile(true));
    Click("cmdArmyListFileSaveAs");
    platform_.ExpectOpen("", expectsFile(false));
    Click("cmdArmyListFileSelect");
}

TEST_F(SetupTest, OpensAFileAfterAskingAboutTheModifiedDocument) {
    OpenOnSamples();
    SetModified(true);
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string there = Save("there" + file.extension, file.sample);
        for (const std::string& name : {Save("other", "no document"), there}) {
            ExpectQuestion(file.title + " modified, save changes to file?", No);
            platform_.ExpectOpen(name);
            if (name != there) Expect(BoxKind::Warning, file.failureToRead);
            Click(file.select);
            ExpectPath(file, name);
            EXPECT_EQ(Holds(file, file.sampleEntry), name == there);
        }
    }
    EXPECT_EQ(Modified(), "012") << "the marks outlive the load";
}

TEST_F(SetupTest, CreatesAFileUnlessItsNameIsThatOfTheArmyList) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        const std::string fresh = folder_ / ("fresh " + file.kind);
        for (const BoxAnswer answer : {No, Yes}) {
            platform_.ExpectOpen(fresh);
            ExpectQuestion("File \"" + fresh + "\" does not exits. Do you wish to create a new " + file.kind + "?",
                           answer);
            Click(file.select);
            ExpectPath(file, answer == Yes ? fresh : path);
            EXPECT_EQ(fs::exists(fresh), answer == Yes);
            EXPECT_EQ(Holds(file, file.sampleEntry), answer == No);
        }
        EXPECT_EQ(ReadBytes(path), file.sample) << "the former file has changed";
    }
    // The army list's path, whose file has gone, passes for a file in each group.
    fs::remove(MGlobal::ArmyListFile());
    platform_.ExpectOpen(MGlobal::ArmyListFile());
    Expect(BoxKind::Warning, kWorkingFiles[0].failureToRead);
    Click("cmdEqFileSelect");
}

TEST_F(SetupTest, SavesAllInOrderAndAsksForNamesThatLack) {
    SetModified(true);
    MGlobal::SetArmyListFile(folder_ / "none/a.v2l");
    Open();
    ExpectQuestion("Save all files?", No);
    Click("cmdSave");
    ExpectQuestion("Save all files?", Yes);
    platform_.ExpectSave(folder_ / "a.v2q");
    Expect(BoxKind::Warning, kWorkingFiles[1].failureToSave);
    platform_.ExpectSave("");
    Click("cmdSave");
    EXPECT_TRUE(fs::exists(folder_ / "a.v2q"));
    EXPECT_EQ(Modified(), "01");
    EXPECT_TRUE(Enabled("cmdEqFileSave"));
    EXPECT_FALSE(Enabled("cmdArmyRosterFileSave")) << "it has no path";
}

TEST_F(SetupTest, PathGetsItsExtensionWhenItsFieldIsLeft) {
    MGlobal::SetEquipmentFile("/x/\xC3\xA9\xE9.V2Q");
    Open();
    Type(*form_, "tedEqFile", "z");  // it is locked
    Type(*form_, "tedArmyListFile", "z");
    Click("cmdLoad");
    ExpectPath(kWorkingFiles[0], "/x/\xC3\xA9\xE9.V2Q.v2q");
    EXPECT_TRUE(Get<QXTextEdit>(*form_, "tedEqFile").text().startsWith(QStringLiteral(u"/x/\u00E9")));
    ExpectPath(kWorkingFiles[1], "");
}

TEST_F(SetupTest, OnlyOkStoresThePathsAndNothingUndoesThem) {
    const std::string settings = folder_ / "vdtools2.ini";
    const std::string chosen = folder_ / "b.v2l";
    Open();
    platform_.ExpectSave(chosen);
    Click("cmdArmyListFileSaveAs");
    SetModified(true);  // nobody asks
    Click("cmdCancel");
    EXPECT_FALSE(form_->Visible());
    EXPECT_EQ(MGlobal::ArmyListFile(), chosen);
    EXPECT_EQ(ReadBytes(settings), "");
    // A line break can't be stored; the other paths are tried all the same.
    MGlobal::SetArmyRosterFile("/r\n");
    MGlobal::SetEquipmentFile("/e\re");
    Open();
    Expect(BoxKind::Critical, "Error while saving defualt settings.");
    Click("cmdOK");
    EXPECT_FALSE(form_->Visible());
    EXPECT_EQ(ReadBytes(settings), Lines({"[Files]", "ArmyListFile=" + chosen}));
}

TEST_F(SetupTest, SkinButtonOpensUnselectedAndSwitchesAtOnce) {
    MGlobal::SetSkinId(2);
    Open();
    for (const int skin : {2, 1}) {  // a Fantasy player's first click changes nothing
        Click("cmdSkin");
        EXPECT_EQ(MGlobal::SkinId(), skin);
        EXPECT_EQ(form_->BackColor(), skin == 1 ? 0 : 0xb3d1dbu);
        EXPECT_EQ(Get<QXColorButton>(*form_, "cmdSkin").ForeColor(), Get<QXColorButton>(*form_, "cmdOK").ForeColor());
    }
}

}  // namespace
