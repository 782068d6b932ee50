#include "shell/setup_test.h"

#include <QTest>

namespace fs = std::filesystem;

using namespace MFormDriver;
using enum BoxAnswer;

namespace {

constexpr std::uint32_t kAsk = CFileDialog::OverwritePrompt;
constexpr std::uint32_t kAskAndExist = CFileDialog::OverwritePrompt | CFileDialog::FileMustExist;

TEST_F(SetupTest, TellsWhatEachControlIsFor) {
    Open();
    for (const auto& file : kWorkingFiles) {  // nothing to save or to recompute
        EXPECT_FALSE(Enabled(file.save) || Enabled(file.update)) << file.kind;
        Hover(*form_, QString::fromStdString(file.save));
        EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "");
    }
    OpenOnSamples();
    const std::array<std::string, 3> controls[] = {
        {"cmdEqFileSelect", "Open / New", "Open an equipment file or create a new one"},
        {"cmdArmyListFileSelect", "Open / New", "Open an army list file or create a new one"},
        {"cmdArmyRosterFileSelect", "Open / New", "Open an army roster file or create a new one"},
        {"cmdEqFileSave", "Save", "Save data to file"},
        {"cmdArmyListFileSave", "Save", "Save data to file"},
        {"cmdArmyRosterFileSave", "Save", "Save data to file"},
        {"cmdEqFileSaveAs", "Save As...", "Save data to file"},
        {"cmdArmyListFileSaveAs", "Save As...", "Save data to file"},
        {"cmdArmyRosterFileSaveAs", "Save As...", "Save data to file"},
        {"cmdImportEqFile", "Import", "Import V1 equipment files"},
        {"cmdImportArmyList", "Import", "Import V1 army list files"},
        {"cmdImportArmyRoster", "Import", "Import V1 army roster files"},
        {"cmdRecalculateEquipmentList", "Update Costs", "Recalculate the point costs of the equipment list"},
        {"cmdRecalculateArmyList", "Update Costs",
         "Recalculate the cost of the army list based on the specified equipment file"},
        {"cmdRecalculateArmyRoster", "Update Costs",
         "Recalculate the cost of the army roster based on the specified army list"},
        {"cmdEqFileMerge", "Merge", "Merge data from another equipment list into the current one"},
        {"cmdArmyListMerge", "Merge", "Merge data from another army list into the current one"},
        {"cmdLoad", "Load All", "Load all the data in the specified files"},
        {"cmdSave", "Save All", "Save all the data in the specified files"},
        {"cmdOK", "OK", ""},
        {"cmdCancel", "Cancel", ""},
        {"cmdSkin", "Sci-Fi", ""},
    };
    for (const auto& [name, caption, tip] : controls) {
        const QString object = QString::fromStdString(name);
        auto& button = Get<QXColorButton>(*form_, object);
        EXPECT_EQ(button.Caption(), caption);
        EXPECT_TRUE(button.isEnabled()) << name;
        Hover(*form_, object);
        EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), tip) << name;
        EXPECT_EQ(button.BorderStyle(), tip.empty() ? 0 : 1) << name;
    }
    Hover(*form_, "cmdLoad");
    Hover(*form_, "frmSupportFiles(1)");
    EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "");
    EXPECT_EQ(Get<QXColorButton>(*form_, "cmdLoad").BorderStyle(), 0);
    MGlobal::ArmyList().SetDescr("edited");
    Click("cmdLoad");
    EXPECT_EQ(MGlobal::ArmyList().Descr(), "edited");

    EXPECT_EQ(form_->Caption(), "Setup");
    EXPECT_EQ(Get<QXLabel>(*form_, "lblSkin").Caption(), "Skin:");
    const char* captions[] = {"Equipment list", "Army List", "Army Roster"};
    for (int i = 0; i < 3; ++i) {
        const auto& file = kWorkingFiles[static_cast<std::size_t>(i)];
        EXPECT_EQ(Get<QXFrame>(*form_, QStringLiteral("frmSupportFiles(%1)").arg(i)).Caption(), captions[i]);
        auto& field = Get<QXTextEdit>(*form_, QString::fromStdString(file.field));
        EXPECT_EQ(field.Text(), file.path());
        EXPECT_TRUE(field.Locked() && field.AutoSelect()) << file.field;
        EXPECT_EQ(field.accessibleName(), QString::fromLatin1(captions[i]));
    }
}

TEST_F(SetupTest, DialogsStartAsTheyShouldAndCancelEndsInSilence) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const auto starts = [&](const std::string& label, const std::string& extension, std::uint32_t flags,
                                const std::string& title, const std::string& name) {
            return [=, this](const CFileDialog& dialog) {
                EXPECT_EQ(dialog.Filter, label + " (*" + extension + ")|*" + extension + "|");
                EXPECT_EQ(dialog.DefaultExt, extension);
                EXPECT_EQ(dialog.InitDir, folder_ / "Data");
                EXPECT_EQ(dialog.Flags, flags);
                EXPECT_EQ(dialog.DialogTitle, title);
                EXPECT_EQ(dialog.FileName, name);
            };
        };
        const auto own = [&](std::uint32_t flags, const std::string& title, const std::string& name) {
            return starts(file.label, file.extension, flags, title, name);
        };
        const std::string content = Content(file.document());
        const std::string path = file.path();
        platform_.ExpectOpen("", own(kAsk, "", path));
        Click(file.select);
        platform_.ExpectOpen(
            "", starts(file.importLabel, file.importExtension, kAskAndExist, "Select the file to import", ""));
        Click(file.import);
        platform_.ExpectOpen("/v1", [](const CFileDialog& dialog) { EXPECT_EQ(dialog.FileName, ""); });
        platform_.ExpectSave("", own(kAsk, "Select V2 target file name:", path));
        Click(file.import);
        const bool titleStays = file.index == MGlobal::EquipmentDocument;
        const std::string title = titleStays ? "Select V2 target file name:" : "";
        const bool flagsStay = file.index == MGlobal::ArmyListDocument;
        if (!file.merge.empty()) {
            platform_.ExpectOpen("", own(kAskAndExist, title, path));
            Click(file.merge);
        }
        platform_.ExpectSave("", own(flagsStay ? kAskAndExist : kAsk, title, path));
        Click(file.saveAs);
        platform_.ExpectOpen("", own(kAsk, title, path));
        Click(file.select);
        platform_.ExpectOpen("", [](const CFileDialog& dialog) { EXPECT_EQ(dialog.FileName, "/v1"); });
        Click(file.import);
        platform_.Verify();
        EXPECT_EQ(Content(file.document()), content);
        EXPECT_EQ(file.path() + Text(file.field), path + path);
        EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
        EXPECT_EQ(Modified(), "");
    }
}

TEST_F(SetupTest, OpensAFileAfterAskingAboutTheModifiedDocument) {
    Open();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string there = Save("there" + file.extension, file.sample);
        const std::string broken = Save("broken", Changed(file.sample, "APPVERSION", "OTHERKEY"));
        const std::string former = Save("former", file.sampleV1);
        platform_.ExpectOpen(there);
        Click(file.select);
        EXPECT_EQ(file.path() + "|" + Text(file.field), there + "|" + there);
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry));
        EXPECT_TRUE(Enabled(file.save) && Enabled(file.update));

        // No saves nothing, and the mark outlives the load.
        SetModified(true);
        file.document().SetDescr("edited");
        const char* titles[] = {"Army List", "Army Roster", "Equipment List"};
        const std::string question = std::string(titles[file.index]) + " modified, save changes to file?";
        ExpectQuestion(question, No);
        platform_.ExpectOpen(there);
        Click(file.select);
        EXPECT_EQ(ReadBytes(there), file.sample);
        EXPECT_FALSE(Holds(Content(file.document()), "DESCR=edited"));
        EXPECT_EQ(Modified(), "012");
        // Yes saves before the dialog comes.
        file.document().SetDescr("edited");
        ExpectQuestion(question, Yes);
        platform_.ExpectOpen("", [&](const CFileDialog&) { EXPECT_TRUE(Holds(ReadBytes(there), "DESCR=edited")); });
        Click(file.select);
        EXPECT_EQ(Modified().size(), 2u);
        SetModified(false);

        for (const std::string& unreadable : {broken, former, folder_.Path()}) {
            platform_.ExpectOpen(unreadable);
            Expect(BoxKind::Warning, file.readFailure);
            Click(file.select);
            EXPECT_FALSE(Holds(Content(file.document()), file.sampleEntry)) << unreadable;
            EXPECT_EQ(file.document().Descr(), "edited");  // the read didn't come so far
            EXPECT_EQ(file.path(), unreadable);
            platform_.ExpectOpen(there);
            Click(file.select);
        }
        EXPECT_EQ(ReadBytes(former), file.sampleV1);
        EXPECT_TRUE(form_->Visible());
    }
}

TEST_F(SetupTest, CreatesAFileUnlessItsNameIsThatOfTheArmyList) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        const std::string fresh = folder_ / ("fresh " + file.kind);
        const auto question = [&](const std::string& name) {
            return "File \"" + name + "\" does not exits. Do you wish to create a new " + file.kind + "?";
        };
        platform_.ExpectOpen(fresh);
        ExpectQuestion(question(fresh), No);
        Click(file.select);
        EXPECT_EQ(file.path(), path);
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry));
        EXPECT_FALSE(fs::exists(fresh));

        platform_.ExpectOpen(fresh);
        ExpectQuestion(question(fresh), Yes);
        Click(file.select);
        EXPECT_EQ(file.path() + Text(file.field), fresh + fresh);
        EXPECT_EQ(ReadBytes(fresh), Content(file.document()));
        EXPECT_TRUE(Holds(ReadBytes(fresh), "COUNT=0") && Holds(ReadBytes(fresh), "NAME=\r\n"));

        const std::string nowhere = folder_ / ("none/" + file.kind);
        platform_.ExpectOpen(nowhere);
        ExpectQuestion(question(nowhere), Yes);
        Expect(BoxKind::Warning, file.saveFailure);
        Expect(BoxKind::Warning, file.readFailure);
        Click(file.select);
        EXPECT_EQ(file.path(), nowhere);

        // The army list's path, whose file has gone, passes for a file in each group.
        fs::remove(MGlobal::ArmyListFile());
        platform_.ExpectOpen(MGlobal::ArmyListFile());
        Expect(BoxKind::Warning, file.readFailure);
        Click(file.select);
    }
}

TEST_F(SetupTest, SavesAndTakesTheMarkAway) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        SetModified(true);
        file.document().SetDescr("edited");
        Click(file.save);
        EXPECT_TRUE(Holds(ReadBytes(path), "DESCR=edited"));
        EXPECT_EQ(Modified().find(std::to_string(file.index)), std::string::npos);
        EXPECT_EQ(Modified().size(), 2u);

        const std::string other = folder_ / ("other" + file.extension);
        platform_.ExpectSave(other);
        Click(file.saveAs);
        EXPECT_EQ(file.path() + Text(file.field), other + other);
        EXPECT_EQ(ReadBytes(other), ReadBytes(path));

        // What can't be saved stays marked, and the former file stays whole.
        SetModified(true);
        file.document().SetDescr("lost?");
        Expect(BoxKind::Warning, file.saveFailure);
        {
            const CFullDisk disk;
            Click(file.save);
        }
        ::chmod(other.c_str(), 0400);
        Expect(BoxKind::Warning, file.saveFailure);
        Click(file.save);
        EXPECT_EQ(ReadBytes(other), ReadBytes(path));
        EXPECT_EQ(Modified(), "012");
        EXPECT_TRUE(form_->Visible());
    }
}

TEST_F(SetupTest, SavesAllInOrderAndAsksForNamesThatLack) {
    Open();
    ExpectQuestion("Save all files?", No);
    Click("cmdSave");
    SetModified(true);
    MGlobal::SetArmyListFile(folder_ / "none/a.v2l");
    Open();
    ExpectQuestion("Save all files?", Yes);
    platform_.ExpectSave(folder_ / "a.v2q");
    Expect(BoxKind::Warning, "Error while saving army list.");
    platform_.ExpectSave("");
    Click("cmdSave");
    EXPECT_TRUE(fs::exists(folder_ / "a.v2q"));
    EXPECT_EQ(Modified(), "01");
    EXPECT_FALSE(Enabled("cmdArmyRosterFileSave"));
}

TEST_F(SetupTest, PathGetsItsExtensionWhenItsFieldIsLeft) {
    MGlobal::SetEquipmentFile("/x/a\xE9.V2Q");
    MGlobal::SetArmyListFile("/x/a");
    MGlobal::SetArmyRosterFile("/x/a.v2r");
    Open();
    Show(*form_);
    for (const auto& file : kWorkingFiles)
        MFormDriver::Type(*form_, QString::fromStdString(file.field), QStringLiteral("z"));  // they are locked
    Click("cmdLoad");
    EXPECT_EQ(MGlobal::EquipmentFile(), "/x/a\xE9.V2Q.v2q");
    EXPECT_EQ(MGlobal::ArmyListFile(), "/x/a.v2l");
    EXPECT_EQ(MGlobal::ArmyRosterFile(), "/x/a.v2r");
    EXPECT_EQ(Text("tedArmyListFile"), "/x/a.v2l");
}

TEST_F(SetupTest, OnlyOkStoresThePathsAndNothingUndoesThem) {
    const auto stored = [] {
        std::string all;
        for (const char* key : {"ArmyRosterFile", "EquipmentFile", "ArmyListFile"}) {
            std::string value = "-";
            MApp::Profile().ReadProfile("Files", key, value);
            all += value + "|";
        }
        return all;
    };
    const std::pair<void (*)(FSetup&), bool> ways[] = {
        {[](FSetup& form) { MFormDriver::Click(form, "cmdCancel"); }, false},
        {[](FSetup& form) { CloseWindow(form); }, false},
        {[](FSetup& form) { QTest::keyClick(&form, Qt::Key_Escape); }, false},
        {[](FSetup& form) { MFormDriver::Click(form, "cmdOK"); }, true},
    };
    SetModified(true);  // nobody asks
    for (const auto& [leave, stores] : ways) {
        Open();
        platform_.ExpectSave(folder_ / "b.v2l");
        Click("cmdArmyListFileSaveAs");
        MGlobal::SetFileModified(0, true);
        leave(*form_);
        EXPECT_FALSE(form_->Visible());
        EXPECT_EQ(MGlobal::ArmyListFile(), folder_ / "b.v2l");
        EXPECT_EQ(stored(), stores ? "||" + (folder_ / "b.v2l") + "|" : "-|-|-|");
    }
    Open();
    ::chmod((folder_ / "vdtools2.ini").c_str(), 0400);
    Expect(BoxKind::Critical, "Error while saving defualt settings.");
    Click("cmdOK");
    EXPECT_FALSE(form_->Visible());

    // The first one doesn't fit on the disk; the others are tried all the same.
    fs::remove(folder_ / "vdtools2.ini");
    MGlobal::SetArmyRosterFile("/" + std::string(200, 'r'));
    MGlobal::SetEquipmentFile("/e");
    MGlobal::SetArmyListFile("/l");
    Open();
    Expect(BoxKind::Critical, "Error while saving defualt settings.");
    {
        const CFullDisk disk;
        Click("cmdOK");
    }
    EXPECT_EQ(stored(), "-|/e|/l|");
}

TEST_F(SetupTest, SkinButtonOpensUnselectedAndSwitchesAtOnce) {
    MGlobal::SetSkinId(2);
    Open();
    auto& button = Get<QXColorButton>(*form_, "cmdSkin");
    const auto& ok = Get<QXColorButton>(*form_, "cmdOK");
    EXPECT_FALSE(button.Value());
    struct {
        std::string caption;
        int skin;
        Colour form, closing;
    } const states[] = {
        {"Sci-Fi", 2, 0xb3d1db, 0x19dd7}, {"Fantasy", 2, 0xb3d1db, 0x19dd7}, {"Sci-Fi", 1, 0, 0x21bdf7}};
    for (const auto& state : states) {
        EXPECT_EQ(button.Caption(), state.caption);
        EXPECT_EQ(MGlobal::SkinId(), state.skin);
        EXPECT_EQ(form_->BackColor(), state.form);
        EXPECT_EQ(button.ForeColor(), state.closing);
        EXPECT_EQ(button.BackColor(), ok.BackColor());
        Click("cmdSkin");
    }
}

}  // namespace
