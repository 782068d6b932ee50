#include "shell/console.h"

#include <QScrollBar>
#include <QTest>
#include <QWindow>

#include "controls/text_box.h"
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

TEST_F(Console, OpensFormsAndFollowsTheSkinWhenTheyClose) {
    WhileModal([this](CForm& about) {
        EXPECT_EQ(Get<QXLabel>(about, "lblVersion").Caption(), "Version 12.3.45");
        about.resize(about.size() + QSize(0, 99));
        QCoreApplication::processEvents();
        EXPECT_EQ(Get<CTextBox>(about, "tedNotice").verticalScrollBar()->maximum(), 0) << "the notice scrolls";
        EXPECT_LT(Find(about, "tedNotice")->height(), 280) << "the notice stands in an empty box";
        Click(about, "cmdLink");
        EXPECT_EQ(platform_.ShellExecutes.at(0).File, Get<QXColorButton>(about, "cmdLink").Caption());
        Click(about, "cmdOK");
    });
    RunEntry(console_, "mnuAbout");
    WhileModal([](CForm& form) {
        EXPECT_EQ(form.Name(), "FSetup");
        MGlobal::SetSkinId(2);
        form.Unload();
    });
    Click(console_, "cmdFiles");
    EXPECT_EQ(console_.BackColor(), 0xb3d1dbu);
}

TEST_F(Console, AsksForEachModifiedDocumentAndClosesWhateverTheAnswer) {
    void (*const ways[])(CForm&) = {[](CForm& console) { Click(console, "cmdQuit"); },
                                    [](CForm& console) { RunEntry(console, "mnuExit"); }, &CloseWindow};
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
        QTest::keyClick(&console, Qt::Key_Escape);
        EXPECT_TRUE(console.Visible()) << "closed by Escape";
        way(console);
        platform_.Verify();
        EXPECT_FALSE(console.Visible() || console.Loaded());
    }
}

TEST_F(Console, SplashStaysBelowAMessageThatComesUp) {
    FSplash splash;
    splash.ShowNonModal();
    splash.WaitUntilShown(std::chrono::milliseconds(250));
    QWidget message;
    message.show();
    EXPECT_EQ(message.windowHandle()->transientParent(), splash.windowHandle());
    QTest::mouseMove(&message, QPoint(5, 5));  // which the splash, listening to all windows, must bear
    QTest::mouseMove(&message, QPoint(9, 9));
    EXPECT_TRUE(splash.Unload());
}

}  // namespace
