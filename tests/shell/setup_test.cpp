#include "shell/setup_test.h"

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
    const auto tells = [this](const std::string& name, const std::string& caption, const std::string& tip) {
        const QString object = QString::fromStdString(name);
        auto& button = Get<QXColorButton>(*form_, object);
        EXPECT_EQ(button.Caption(), caption) << name;
        EXPECT_TRUE(button.isEnabled()) << name;
        Hover(*form_, object);
        EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), tip) << name;
        EXPECT_EQ(button.BorderStyle(), tip.empty() ? 0 : 1) << name;
    };
    const char* captions[] = {"Open / New", "Save", "Save As...", "Import", "Update Costs", "Merge"};
    const char* const save = "Save data to file";
    const char* tips[][6] = {
        {"Open an equipment file or create a new one", save, save, "Import V1 equipment files",
         "Recalculate the point costs of the equipment list",
         "Merge data from another equipment list into the current one"},
        {"Open an army list file or create a new one", save, save, "Import V1 army list files",
         "Recalculate the cost of the army list based on the specified equipment file",
         "Merge data from another army list into the current one"},
        {"Open an army roster file or create a new one", save, save, "Import V1 army roster files",
         "Recalculate the cost of the army roster based on the specified army list"},
    };
    for (std::size_t i = 0; i < kWorkingFiles.size(); ++i) {
        for (std::size_t operation = 0; operation < (i < 2 ? 6 : 5); ++operation)
            tells(kWorkingFiles[i].buttons[operation], captions[operation], tips[i][operation]);
    }
    tells("cmdLoad", "Load All", "Load all the data in the specified files");
    tells("cmdSave", "Save All", "Save all the data in the specified files");
    for (const auto& [name, caption] : {std::pair("cmdOK", "OK"), {"cmdCancel", "Cancel"}, {"cmdSkin", "Sci-Fi"}})
        tells(name, caption, "");
    EXPECT_EQ(Get<QXColorButton>(*form_, "cmdSave").BorderStyle(), 0);
    MGlobal::ArmyList().SetDescr("edited");
    Click("cmdLoad");
    EXPECT_EQ(MGlobal::ArmyList().Descr(), "edited");

    EXPECT_EQ(form_->Caption(), "Setup");
    EXPECT_EQ(Get<QXLabel>(*form_, "lblSkin").Caption(), "Skin:");
    const char* groups[] = {"Equipment list", "Army List", "Army Roster"};
    for (std::size_t i = 0; i < kWorkingFiles.size(); ++i) {
        EXPECT_EQ(Get<QXFrame>(*form_, QStringLiteral("frmSupportFiles(%1)").arg(i)).Caption(), groups[i]);
        const auto& field = Field(kWorkingFiles[i].field);
        EXPECT_EQ(field.Text(), kWorkingFiles[i].path());
        EXPECT_TRUE(field.Locked() && field.AutoSelect()) << groups[i];
        EXPECT_EQ(field.accessibleName(), QString::fromLatin1(groups[i]));
    }
}

TEST_F(SetupTest, DialogsStartAsTheyShouldAndCancelEndsInSilence) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string content = Content(file.document());
        const std::string path = file.path();
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
        const auto own = [&](std::uint32_t flags, const std::string& title) {
            return starts(file.label, file.extension, flags, title, path);
        };
        const auto source = [&](const std::string& name) {
            return starts(file.importLabel, file.importExtension, kAskAndExist, "Select the file to import", name);
        };
        const std::string target = "Select V2 target file name:";
        platform_.ExpectOpen("/v1", source(""));
        platform_.ExpectSave("", own(kAsk, target));
        Click(file.import);
        const std::string title = file.index == MGlobal::EquipmentDocument ? target : "";
        platform_.ExpectOpen("", source("/v1"));
        Click(file.import);
        std::uint32_t flags = kAsk;
        if (!file.merge.empty()) {
            flags = kAskAndExist;
            platform_.ExpectOpen("", own(flags, title));
            Click(file.merge);
        }
        platform_.ExpectOpen("/v1", source("/v1"));
        platform_.ExpectSave("", own(flags, target));
        Click(file.import);
        if (file.index != MGlobal::ArmyListDocument) flags = kAsk;
        platform_.ExpectSave("", own(flags, title));
        Click(file.saveAs);
        platform_.ExpectOpen("", own(kAsk, title));
        Click(file.select);
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
        platform_.ExpectOpen(there);
        Click(file.select);
        EXPECT_EQ(file.path() + Text(file.field), there + there);
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry));
        EXPECT_TRUE(Enabled(file.save) && Enabled(file.update));

        // The mark outlives the load.
        SetModified(true);
        file.document().SetDescr("edited");
        const char* titles[] = {"Army List", "Army Roster", "Equipment List"};
        ExpectQuestion(std::string(titles[file.index]) + " modified, save changes to file?", No);
        platform_.ExpectOpen(there);
        Click(file.select);
        EXPECT_FALSE(Holds(Content(file.document()), "DESCR=edited"));
        EXPECT_EQ(Modified(), "012");
        SetModified(false);

        const std::string former = Save("former", file.sampleV1);
        for (const std::string& unreadable : {former, folder_.Path()}) {
            platform_.ExpectOpen(unreadable);
            Expect(BoxKind::Warning, file.readFailure);
            Click(file.select);
            EXPECT_FALSE(Holds(Content(file.document()), file.sampleEntry)) << unreadable;
            EXPECT_EQ(file.path(), unreadable);
        }
    }
}

TEST_F(SetupTest, CreatesAFileUnlessItsNameIsThatOfTheArmyList) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        const std::string fresh = folder_ / ("fresh " + file.kind);
        const std::string question =
            "File \"" + fresh + "\" does not exits. Do you wish to create a new " + file.kind + "?";
        platform_.ExpectOpen(fresh);
        ExpectQuestion(question, No);
        Click(file.select);
        EXPECT_EQ(file.path(), path);
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry));
        EXPECT_FALSE(fs::exists(fresh));

        platform_.ExpectOpen(fresh);
        ExpectQuestion(question, Yes);
        Click(file.select);
        EXPECT_EQ(file.path() + Text(file.field), fresh + fresh);
        EXPECT_EQ(ReadBytes(fresh), Content(file.document()));
        EXPECT_TRUE(Holds(ReadBytes(fresh), "COUNT=0") && Holds(ReadBytes(fresh), "NAME=\r\n"));

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
        ::chmod(other.c_str(), 0400);
        Expect(BoxKind::Warning, file.saveFailure);
        Click(file.save);
        EXPECT_EQ(ReadBytes(other), ReadBytes(path));
        EXPECT_EQ(Modified(), "012");
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
    MGlobal::SetArmyListFile("/x/\xC3\xA9");
    MGlobal::SetArmyRosterFile("/x/a.v2r");
    Open();
    Show(*form_);
    for (const auto& file : kWorkingFiles)
        MFormDriver::Type(*form_, QString::fromStdString(file.field), QStringLiteral("z"));  // they are locked
    Click("cmdLoad");
    EXPECT_EQ(MGlobal::EquipmentFile(), "/x/a\xE9.V2Q.v2q");
    EXPECT_EQ(MGlobal::ArmyListFile(), "/x/\xC3\xA9.v2l");
    EXPECT_EQ(MGlobal::ArmyRosterFile(), "/x/a.v2r");
    EXPECT_EQ(Field("tedArmyListFile").text(), QStringLiteral(u"/x/\u00E9.v2l"));
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
    SetModified(true);  // nobody asks
    for (const char* way : {"cmdCancel", "cmdOK"}) {
        EXPECT_EQ(stored(), "-|-|-|");
        Open();
        platform_.ExpectSave(folder_ / "b.v2l");
        Click("cmdArmyListFileSaveAs");
        MGlobal::SetFileModified(0, true);
        Click(way);
        EXPECT_FALSE(form_->Visible());
        EXPECT_EQ(MGlobal::ArmyListFile(), folder_ / "b.v2l");
    }
    EXPECT_EQ(stored(), "||" + (folder_ / "b.v2l") + "|");

    // A line break can't be stored; the other paths are tried all the same.
    MGlobal::SetArmyRosterFile("/r\n");
    MGlobal::SetEquipmentFile("/e");
    MGlobal::SetArmyListFile("/l\rl");
    const std::string failure = "Error while saving defualt settings.";
    Open();
    CBoxPlatform watched([this](BoxButtons) { EXPECT_TRUE(form_->Visible()); });
    watched.ExpectBox(BoxKind::Critical, BoxButtons::Ok, failure);
    Click("cmdOK");
    EXPECT_FALSE(form_->Visible());
    EXPECT_EQ(MGlobal::ArmyRosterFile(), "/r\n");
    EXPECT_EQ(stored(), "|/e|" + (folder_ / "b.v2l") + "|");

    MGlobal::SetArmyRosterFile("/r");
    MGlobal::SetArmyListFile("/l");
    ::chmod((folder_ / "vdtools2.ini").c_str(), 0400);
    Open();
    watched.ExpectBox(BoxKind::Critical, BoxButtons::Ok, failure);
    Click("cmdOK");
}

TEST_F(SetupTest, SkinButtonOpensUnselectedAndSwitchesAtOnce) {
    MGlobal::SetSkinId(2);
    Open();
    auto& button = Get<QXColorButton>(*form_, "cmdSkin");
    const auto& ok = Get<QXColorButton>(*form_, "cmdOK");
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
