#include "shell/console.h"

#include <QTest>
#include <QWindow>

#include "core/state/global.h"
#include "shell/splash.h"
#include "support/core_test.h"
#include "support/form_driver.h"

using namespace MFormDriver;

namespace {

class Console : public CoreTest {
  protected:
    Console() {
        MGlobal::Reset();
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Cannot find support tables.");
        MGlobal::LoadWorkingFiles();
        platform_.AppVersion = {12, 3, 45};
        console_.ShowNonModal();
    }
    ~Console() override {
        VerifySteps();
        MGlobal::Reset();
    }

    FConsole console_;
};

TEST_F(Console, TipAndHighlightStandOverAButtonAlone) {
    const auto tip = [this] { return Get<QXLabel>(console_, "lblTip").Caption(); };
    for (const char* place : {"", "frmSetup", "lblTip"}) {
        Hover(console_, "cmdQuit");
        EXPECT_EQ(tip(), "Quit the application");
        EXPECT_EQ(Get<QXColorButton>(console_, "cmdQuit").BorderStyle(), 1);
        Hover(console_, place);
        EXPECT_EQ(tip(), "") << place;
        EXPECT_EQ(Get<QXColorButton>(console_, "cmdQuit").BorderStyle(), 0) << place;
    }
    Hover(console_, "cmdAbout");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&console_, &leave);
    EXPECT_EQ(tip(), "") << "out of the window";
}

TEST_F(Console, OpensFormsAndFollowsTheSkinWhenTheyClose) {
    const auto picture = [this](const char* name) { return Get<CPictureBox>(console_, name).Picture(); };
    EXPECT_NE(picture("Image1"), picture("Image2"));
    for (const int skin : {1, 2}) {
        WhileModal([skin](CForm& form) {
            EXPECT_EQ(form.Name(), skin == 1 ? "FAbout" : "FSetup");
            MGlobal::SetSkinId(skin);
            form.Unload();
        });
        skin == 1 ? RunEntry(console_, "mnuAbout") : Click(console_, "cmdFiles");
    }
    EXPECT_EQ(console_.BackColor(), 0xb3d1dbu);
    EXPECT_EQ(picture("Image1"), picture("Image6"));
    EXPECT_EQ(Get<QXLabel>(console_, "lblVersion").ForeColor(), 0xCCCCCCu) << "the same in every skin";
}

TEST_F(Console, AsksForEachModifiedDocumentAndClosesWhateverTheAnswer) {
    void (*const ways[])(CForm&) = {[](CForm& console) { Click(console, "cmdQuit"); },
                                    [](CForm& console) { RunEntry(console, "mnuExit"); }, &CloseWindow,
                                    [](CForm& console) { QTest::keyClick(&console, Qt::Key_Escape); }};
    for (const auto way : ways) {
        MGlobal::SetFileModified(MGlobal::EquipmentDocument, true);
        MGlobal::SetFileModified(MGlobal::ArmyListDocument, true);
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, "Equipment List modified, save changes to file?",
                            BoxAnswer::Yes);
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "Error while writing equipment list.");  // it has no path
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, "Army List modified, save changes to file?",
                            BoxAnswer::No);
        FConsole console;
        console.ShowNonModal();
        way(console);
        platform_.Verify();
        EXPECT_FALSE(console.Visible() || console.Loaded());
    }
}

TEST_F(Console, SplashStaysBelowAMessageThatComesUp) {
    FSplash splash;
    splash.ShowNonModal();
    splash.WaitUntilShown(std::chrono::milliseconds(250));
    EXPECT_EQ(Find(splash, "shpBorder")->geometry(), splash.rect());
    QWidget message;
    message.show();
    EXPECT_EQ(message.windowHandle()->transientParent(), splash.windowHandle());
    QTest::mouseMove(&message, QPoint(5, 5));  // which the splash, listening to all windows, must bear
    QTest::mouseMove(&message, QPoint(9, 9));
    EXPECT_TRUE(splash.Unload());
}

TEST_F(Console, AboutTellsTheVersionAndOpensTheAddress) {
    EXPECT_EQ(Get<QXLabel>(console_, "lblVersion").Caption(), " 12.3");
    WhileModal([this](CForm& about) {
        EXPECT_EQ(Get<QXLabel>(about, "lblVersion").Caption(), "Version 12.3.45");
        Click(about, "cmdLink");
        ASSERT_EQ(platform_.ShellExecutes.size(), 1u);
        const auto& opened = platform_.ShellExecutes.front();
        EXPECT_EQ(opened.File + "|" + opened.Verb + "|" + opened.Parameters + "|" + opened.Folder,
                  Get<QXColorButton>(about, "cmdLink").Caption() + "|Open||C:\\");
        EXPECT_EQ(opened.ShowMode, 1);
        Click(about, "cmdOK");
    });
    Click(console_, "cmdAbout");
}

}  // namespace
