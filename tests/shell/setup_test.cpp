#include <QApplication>
#include <QTest>

#include "shell/setup_test.h"

namespace fs = std::filesystem;

using namespace MFormDriver;
using enum BoxAnswer;

namespace {

TEST_F(SetupTest, OpensAFileAfterAskingAboutTheModifiedDocument) {
    OpenOnSamples();
    SetModified(true);
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string there = Save("there", file.sample);
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

TEST_F(SetupTest, CancelAndNoChangeNothingAndYesCreatesAFile) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        const std::string fresh = folder_ / ("fresh " + file.kind);
        platform_.ExpectOpen("/v1");
        platform_.ExpectSave("");
        Click(file.import);
        platform_.ExpectSave("");
        Click(file.saveAs);
        platform_.ExpectOpen("");
        Click(file.select);
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
    EXPECT_EQ(Modified(), "");
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
    Expect(BoxKind::Warning, "Error while saving army list.");
    platform_.ExpectSave("");
    Click("cmdSave");
    EXPECT_TRUE(fs::exists(folder_ / "a.v2q"));
    EXPECT_EQ(Modified(), "01");
    EXPECT_TRUE(Find(*form_, "cmdEqFileSave")->isEnabled());
    auto& save = Get<QXColorButton>(*form_, "cmdArmyRosterFileSave");
    EXPECT_FALSE(save.Enabled()) << "it has no path";
    QTest::mouseMove(form_->windowHandle(), save.mapTo(form_.get(), save.rect().center()));
    QApplication::processEvents();
    EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "Save data to file") << "disabled buttons have their tips too";
    EXPECT_EQ(save.BorderStyle(), 0) << "highlighted while disabled";
}

TEST_F(SetupTest, PathGetsItsExtensionWhenItsFieldIsLeftAndLoadAllDoesNothing) {
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

}  // namespace
