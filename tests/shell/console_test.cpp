#include "shell/console.h"

#include <QAction>
#include <QTest>

#include "controls/text_box.h"
#include "core/files/file_access.h"
#include "core/state/global.h"
#include "shell/about.h"
#include "shell/splash.h"
#include "support/core_test.h"
#include "support/form_driver.h"

using namespace MFormDriver;

namespace fs = std::filesystem;

namespace {

class Console : public CoreTest {
  protected:
    Console() {
        MGlobal::Reset();
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Cannot find support tables.");
        MGlobal::LoadWorkingFiles();
        console_.ShowNonModal();
    }
    ~Console() override {
        VerifySteps();
        MGlobal::Reset();
    }

    std::string Tip() { return Get<QXLabel>(console_, "lblTip").Caption(); }
    // Names of the buttons that bear a border.
    std::string Highlighted() {
        std::string names;
        for (IControl* control : console_.Controls()) {
            const auto* button = dynamic_cast<QXColorButton*>(control);
            if (button != nullptr && button->BorderStyle() == 1) names += button->Name() + " ";
        }
        return names;
    }

    FConsole console_;
};

TEST_F(Console, HasAButtonAnEntryAndATipForEachForm) {
    struct SCommand {
        const char* button;
        const char* caption;
        const char* frame;
        const char* entry;
        const char* entryCaption;
        const char* tip;
        bool available;
    };
    const SCommand commands[] = {
        {"cmdFiles", "Files", "frmSetup", "mnuSetup", "Files", "Set up your working files", false},
        {"cmdArmyComposer", "Army Roster", "frmComposers", "mnuArmyComposer", "Army Composer", "Compose your army",
         true},
        {"cmdArmyList", "Army List", "frmComposers", "mnuArmyList", "Army List", "Check the army list", false},
        {"cmdSquadComposer", "Squad Composer", "frmComposers", "mnuUnitComposer", "Squad Composer",
         "Compose the squads", false},
        {"cmdUnitMaker", "Unit Maker", "frmMakers", "mnuUnitMaker", "Unit Maker", "Create or modify the basic units",
         false},
        {"cmdWeaponMaker", "Weapon Maker", "frmMakers", "mnuWeaponMaker", "Weapon Maker", "Create or modify weapons",
         false},
        {"cmdAccessoryMaker", "Accessory Maker", "frmMakers", "mnuAccessoryMaker", "Accessory Maker",
         "Create or modify basic items of equipment", false},
        {"cmdAbout", "About", "FConsole", "mnuAbout", "About", "Show application information", true},
        {"cmdQuit", "Quit", "FConsole", "mnuExit", "Exit", "Quit the application", true},
    };
    for (const SCommand& command : commands) {
        SCOPED_TRACE(command.button);
        auto& button = Get<QXColorButton>(console_, command.button);
        const auto* entry = console_.findChild<QAction*>(command.entry);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(button.Caption(), command.caption);
        EXPECT_EQ(button.parentWidget()->objectName(), command.frame);
        EXPECT_EQ(entry->text(), command.entryCaption);
        EXPECT_EQ(button.Enabled(), command.available);
        EXPECT_EQ(entry->isEnabled(), command.available);

        Hover(console_, command.button);
        EXPECT_EQ(Tip(), command.tip);
        EXPECT_EQ(Highlighted(), command.available ? std::string(command.button) + " " : "");
    }
}

TEST_F(Console, LosesTipAndHighlightOverAnythingElse) {
    for (const char* place : {"", "frmSetup", "frmComposers", "frmMakers", "lblTip", "lblBeta", "Image1", "Image7"}) {
        SCOPED_TRACE(place);
        Hover(console_, "cmdAbout");
        Hover(console_, place);
        EXPECT_EQ(Tip() + Highlighted(), "");
    }
    Hover(console_, "cmdQuit");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&console_, &leave);
    EXPECT_EQ(Tip() + Highlighted(), "") << "out of the window";
}

TEST_F(Console, OpensFormsByButtonAndByEntry) {
    const auto see = [](const char* name) {
        WhileModal([name](CForm& form) {
            EXPECT_EQ(form.Name(), name);
            form.Unload();
        });
    };
    see("FArmyComposer");
    Click(console_, "cmdArmyComposer");
    see("FArmyComposer");
    RunEntry(console_, "mnuArmyComposer");
    see("FAbout");
    RunEntry(console_, "mnuAbout");
}

TEST_F(Console, FollowsTheSkinWhenAFormCloses) {
    const Colour before = console_.BackColor();
    const auto picture = [this](const char* name) { return Get<CPictureBox>(console_, name).Picture(); };
    EXPECT_NE(picture("Image1"), picture("Image2"));
    WhileModal([](CForm& form) {
        MGlobal::SetSkinId(2);
        form.Unload();
    });
    Click(console_, "cmdAbout");
    EXPECT_EQ(before, 0u);
    EXPECT_EQ(console_.BackColor(), 0xb3d1dbu);
    for (const char* name : {"Image2", "Image3", "Image4", "Image5", "Image6"})
        EXPECT_EQ(picture(name), picture("Image1")) << name;
    // The same in every skin.
    EXPECT_EQ(Get<QXLabel>(console_, "lblVersion").ForeColor(), 0xCCCCCCu);
    EXPECT_EQ(Get<QXLabel>(console_, "lblVersion").FontSize(), 8);
    EXPECT_EQ(Get<QXLabel>(console_, "lblBeta").ForeColor(), 0x00FFFFu);
}

TEST_F(Console, AsksForEachModifiedDocumentAndClosesWhateverTheAnswer) {
    struct SQuestion {
        std::int16_t document;
        const char* text;
        const char* failure;
        const char* file;
    };
    const SQuestion questions[] = {
        {2, "Equipment List modified, save changes to file?", "Error while writing equipment list.", "a.v2q"},
        {0, "Army List modified, save changes to file?", "Error while saving army list.", "a.v2l"},
        {1, "Army Roster modified, save changes to file?", "Error while saving army roster.", "a.v2r"},
    };
    enum Answer { Unmodified, No, Yes, YesInVain };
    const std::array<Answer, 3> cases[] = {
        {Unmodified, Unmodified, Unmodified}, {No, No, No},         {Yes, Yes, Yes},
        {YesInVain, YesInVain, YesInVain},    {No, YesInVain, Yes}, {Unmodified, Unmodified, Yes},
    };
    int number = 0;
    for (const auto& answers : cases) {
        const std::string home = folder_ / std::to_string(number++);
        SCOPED_TRACE(home);
        fs::create_directory(home);
        const auto path = [&](std::size_t i) {
            return home + (answers[i] == YesInVain ? "/gone/" : "/") + questions[i].file;
        };
        MGlobal::SetEquipmentFile(path(0));
        MGlobal::SetArmyListFile(path(1));
        MGlobal::SetArmyRosterFile(path(2));
        for (std::size_t i = 0; i < answers.size(); ++i) {
            MGlobal::SetFileModified(questions[i].document, answers[i] != Unmodified);
            if (answers[i] == Unmodified) continue;
            platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, questions[i].text,
                                answers[i] == No ? BoxAnswer::No : BoxAnswer::Yes);
            if (answers[i] == YesInVain) platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, questions[i].failure);
        }
        FConsole console;
        console.ShowNonModal();
        switch (number % 4) {
            case 0:
                Click(console, "cmdQuit");
                break;
            case 1:
                RunEntry(console, "mnuExit");
                break;
            case 2:
                CloseWindow(console);
                break;
            default:
                QTest::keyClick(&console, Qt::Key_Escape);
        }
        platform_.Verify();
        EXPECT_FALSE(console.Visible());
        EXPECT_FALSE(console.Loaded());
        for (std::size_t i = 0; i < answers.size(); ++i) {
            EXPECT_EQ(MGlobal::IsFileModified(questions[i].document), answers[i] == No || answers[i] == YesInVain) << i;
            EXPECT_EQ(MGlobal::FileExists(path(i)) > 0, answers[i] == Yes) << i;
        }
    }
}

TEST_F(Console, TellsVersionsAndWhereTheProgramLives) {
    platform_.AppVersion = {12, 3, 45};
    FConsole console;
    console.Load();
    EXPECT_EQ(Get<QXLabel>(console, "lblVersion").Caption(), " 12.3");

    FSplash splash;
    splash.SetPrompt("LOADING DATA");
    splash.ShowNonModal();
    splash.WaitUntilShown(std::chrono::milliseconds(250));
    EXPECT_EQ(splash.Caption(), "About VdTools2");
    EXPECT_EQ(splash.Prompt(), "LOADING DATA");
    EXPECT_EQ(Get<QXLabel>(splash, "lblVersion").Caption(), "Version 12.3.45");
    EXPECT_EQ(Find(splash, "shpBorder")->geometry(), splash.rect());
    EXPECT_TRUE(splash.Unload());

    WhileModal([this](CForm& about) {
        EXPECT_EQ(about.Caption(), "About VdTools2");
        EXPECT_EQ(Get<QXLabel>(about, "lblTitle").Caption(), "VdTools2");
        EXPECT_EQ(Get<QXLabel>(about, "lblVersion").Caption(), "Version 12.3.45");
        EXPECT_EQ(Get<QXLabel>(about, "lblDescription").Caption(), "Vandrel second edition tools ");
        EXPECT_EQ(Get<CTextBox>(about, "tedNotice").Text().find("\n"),
                  Get<CTextBox>(about, "tedNotice").Text().find("\r\n") + 1);
        auto& link = Get<QXColorButton>(about, "cmdLink");
        Hover(about, "cmdLink");
        EXPECT_EQ(link.BorderStyle(), 1);
        Hover(about, "tedNotice");
        EXPECT_EQ(link.BorderStyle(), 0);
        Click(about, "cmdLink");
        ASSERT_EQ(platform_.ShellExecutes.size(), 1u);
        const auto& opened = platform_.ShellExecutes.front();
        EXPECT_EQ(opened.File, link.Caption());
        EXPECT_EQ(opened.Verb + "|" + opened.Parameters + "|" + opened.Folder, "Open||C:\\");
        EXPECT_EQ(opened.ShowMode, 1);
        Click(about, "cmdOK");
        EXPECT_FALSE(about.Visible());
    });
    Click(console_, "cmdAbout");
}

}  // namespace
