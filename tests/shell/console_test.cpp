#include "shell/console.h"

#include <QAction>
#include <QTest>
#include <QWindow>

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
    // Button, its caption, frame, entry, its caption, tip. What has no form yet is disabled.
    const std::array<std::string, 6> commands[] = {
        {"cmdFiles", "Files", "frmSetup", "mnuSetup", "Files", "Set up your working files"},
        {"cmdArmyComposer", "Army Roster", "frmComposers", "mnuArmyComposer", "Army Composer", "Compose your army"},
        {"cmdArmyList", "Army List", "frmComposers", "mnuArmyList", "Army List", "Check the army list"},
        {"cmdSquadComposer", "Squad Composer", "frmComposers", "mnuUnitComposer", "Squad Composer",
         "Compose the squads"},
        {"cmdUnitMaker", "Unit Maker", "frmMakers", "mnuUnitMaker", "Unit Maker", "Create or modify the basic units"},
        {"cmdWeaponMaker", "Weapon Maker", "frmMakers", "mnuWeaponMaker", "Weapon Maker", "Create or modify weapons"},
        {"cmdAccessoryMaker", "Accessory Maker", "frmMakers", "mnuAccessoryMaker", "Accessory Maker",
         "Create or modify basic items of equipment"},
        {"cmdAbout", "About", "FConsole", "mnuAbout", "About", "Show application information"},
        {"cmdQuit", "Quit", "FConsole", "mnuExit", "Exit", "Quit the application"},
    };
    for (const auto& [name, caption, frame, entryName, entryCaption, tip] : commands) {
        SCOPED_TRACE(name);
        auto& button = Get<QXColorButton>(console_, QString::fromStdString(name));
        const auto* entry = console_.findChild<QAction*>(QString::fromStdString(entryName));
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(button.Caption() + "|" + entry->text().toStdString(), caption + "|" + entryCaption);
        EXPECT_EQ(button.parentWidget()->objectName().toStdString(), frame);
        EXPECT_TRUE(button.Enabled() && entry->isEnabled());
        Hover(console_, QString::fromStdString(name));
        EXPECT_EQ(Tip(), tip);
        EXPECT_EQ(Highlighted(), name + " ");
    }
}

TEST_F(Console, LosesTipAndHighlightOverAnythingElse) {
    for (const char* place : {"", "frmSetup", "frmMakers", "lblTip", "Image7"}) {
        Hover(console_, "cmdAbout");
        Hover(console_, place);
        EXPECT_EQ(Tip() + Highlighted(), "") << place;
    }
    Hover(console_, "cmdQuit");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&console_, &leave);
    EXPECT_EQ(Tip() + Highlighted(), "") << "out of the window";
}

TEST_F(Console, OpensFormsAndFollowsTheSkinWhenTheyClose) {
    const auto picture = [this](const char* name) { return Get<CPictureBox>(console_, name).Picture(); };
    EXPECT_EQ(console_.BackColor(), 0u);
    EXPECT_NE(picture("Image1"), picture("Image2"));
    const auto see = [](const char* name) {
        WhileModal([name](CForm& form) {
            EXPECT_EQ(form.Name(), name);
            MGlobal::SetSkinId(2);
            form.Unload();
        });
    };
    see("FArmyComposer");
    Click(console_, "cmdArmyComposer");
    EXPECT_EQ(console_.BackColor(), 0xb3d1dbu);
    for (const char* name : {"Image2", "Image3", "Image4", "Image5", "Image6"})
        EXPECT_EQ(picture(name), picture("Image1")) << name;
    // The same in every skin.
    const auto& version = Get<QXLabel>(console_, "lblVersion");
    EXPECT_EQ(version.ForeColor(), 0xCCCCCCu);
    EXPECT_EQ(version.FontSize(), 8);
    EXPECT_EQ(Get<QXLabel>(console_, "lblBeta").ForeColor(), 0x00FFFFu);
    see("FAbout");
    RunEntry(console_, "mnuAbout");
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
    void (*const ways[])(CForm&) = {[](CForm& console) { Click(console, "cmdQuit"); },
                                    [](CForm& console) { RunEntry(console, "mnuExit"); }, &CloseWindow,
                                    [](CForm& console) { QTest::keyClick(&console, Qt::Key_Escape); }};
    std::size_t number = 0;
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
        ways[number % 4](console);
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
    // A message comes up above it, and the pointer moves over that.
    QWidget message;
    message.show();
    EXPECT_EQ(message.windowHandle()->transientParent(), splash.windowHandle());
    QTest::mouseMove(&message, QPoint(5, 5));
    QTest::mouseMove(&message, QPoint(9, 9));
    EXPECT_TRUE(splash.Unload());

    WhileModal([this](CForm& about) {
        EXPECT_EQ(about.Caption(), "About VdTools2");
        const auto caption = [&](const char* name) { return Get<QXLabel>(about, name).Caption(); };
        EXPECT_EQ(caption("lblTitle") + "|" + caption("lblVersion") + "|" + caption("lblDescription"),
                  "VdTools2|Version 12.3.45|Vandrel second edition tools ");
        EXPECT_NE(Get<CTextBox>(about, "tedNotice").Text().find("\r\n"), std::string::npos);
        auto& link = Get<QXColorButton>(about, "cmdLink");
        Hover(about, "cmdLink");
        EXPECT_EQ(link.BorderStyle(), 1);
        Hover(about, "tedNotice");
        EXPECT_EQ(link.BorderStyle(), 0);
        Click(about, "cmdLink");
        ASSERT_EQ(platform_.ShellExecutes.size(), 1u);
        const auto& opened = platform_.ShellExecutes.front();
        EXPECT_EQ(opened.File + "|" + opened.Verb + "|" + opened.Parameters + "|" + opened.Folder,
                  link.Caption() + "|Open||C:\\");
        EXPECT_EQ(opened.ShowMode, 1);
        Click(about, "cmdOK");
        EXPECT_FALSE(about.Visible());
    });
    Click(console_, "cmdAbout");
}

}  // namespace
