#include "controls/form.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <memory>

#include "controls/color_button.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

struct FTest : CForm {
    FTest() : CForm("FTest") { resize(300, 300); }
    void Form_Load() override { Run("load "); }
    void Form_Activate() override { Run("activate "); }
    bool QueryUnload() override { return Run("query "), !refuse; }
    void ClosingFailed() override { Run("failed "); }
    void Form_Unload() override { Run("unload "); }
    void Run(const std::string& step) {
        log += step;
        if (step == failing) throw CRuntimeError(ErrorNumber::Overflow, "/file");
    }
    std::string Log() { return std::exchange(log, std::string()); }

    QXColorButton cmdGo{this, "cmdGo"};
    std::string log, failing;
    bool refuse = false;
};

class Form : public testing::Test {
  protected:
    void ExpectOverflow() {
        platform.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '6':\r\n\r\nOverflow\r\n/file");
    }
    CScriptedPlatform platform;
    FTest form;
    FTest child;
};

TEST_F(Form, WindowsXAndEscapeRunTheClosingStepsUnlessRefusedOrAHandlerRuns) {
    const std::function<void()> ways[] = {[&] { MFormDriver::CloseWindow(form); },
                                          [&] { QTest::keyClick(&form, Qt::Key_Escape); }};
    for (const auto& close : ways) {
        form.ShowNonModal();
        form.log.clear();
        form.refuse = true;
        close();
        EXPECT_EQ(form.Log(), "query ");
        // The desktop's end of the session, while a box is up.
        form.Handle(close);
        EXPECT_EQ(form.Log(), "");
        EXPECT_TRUE(form.Visible());
        form.refuse = false;
        // The closing gets through to a form that walks; nothing else does.
        QTimer::singleShot(0, &form, [&] {
            form.Handle([&] { form.log += "handled "; });
            close();
        });
        form.WaitForClosing();
        EXPECT_EQ(form.Log(), "query unload ");
        EXPECT_FALSE(form.Visible());
    }
}

TEST_F(Form, ErrorsAreBoxedOnceAndTheClosingGoesOn) {
    child.failing = "load ";
    form.cmdGo.OnClick([&] { child.ShowModal(&form); });
    form.ShowNonModal();
    ExpectOverflow();
    MFormDriver::Click(form, "cmdGo");
    EXPECT_EQ(child.Log(), "load ");
    EXPECT_FALSE(child.Loaded());
    EXPECT_EQ(form.Log(), "load activate ");
    form.failing = "query ";
    ExpectOverflow();
    MFormDriver::CloseWindow(form);
    EXPECT_EQ(form.Log(), "query failed unload ");
    EXPECT_FALSE(form.Visible());
}

TEST_F(Form, SecondPressOfADoubleClickIsLostWhereTheFirstOpenedAWindow) {
    int pressed = 0;
    form.cmdGo.OnClick([&] { child.ShowNonModal(); });
    child.cmdGo.OnClick([&] { ++pressed; });
    form.ShowNonModal();
    int time = 100'000;
    const auto click = [&time](CForm& on, const QPoint& place) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            qt_handleMouseEvent(on.windowHandle(), place, on.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, type,
                                Qt::NoModifier, time);
        }
        QApplication::processEvents();
    };
    for (const auto& [later, place, presses] :
         {std::tuple(100, QPoint(2, 2), 0), {100, QPoint(20, 20), 1}, {1000, QPoint(2, 2), 1}}) {
        child.Hide();
        pressed = 0;
        time += 1000;
        click(form, QPoint(2, 2));
        time += later;
        click(child, place);
        EXPECT_EQ(pressed, presses) << "in another window " << later << " ms after one at 2, at " << place.x();
    }
    form.cmdGo.OnClick([&] { ++pressed; });
    time += 1000;
    click(form, QPoint(2, 2));
    click(form, QPoint(2, 2));
    EXPECT_EQ(pressed, 3) << "in one window both count";
    QTest::mouseDClick(&child.cmdGo, Qt::LeftButton);
    QTest::mouseRelease(&child.cmdGo, Qt::LeftButton);
    EXPECT_EQ(pressed, 4) << "one that has no first press at its place counts, too";
}

TEST_F(Form, ContextMenuHasItsColoursAndVisibleLines) {
    QLineEdit field(&form);
    for (const auto& [back, fore] : {std::pair(0x000000u, 0xffb0b0u), {0xb3d1dbu, 0x000070u}}) {
        form.SetBackColor(back);
        form.SetForeColor(fore);
        const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
        const QImage image = menu->grab().toImage();
        const QColor ground = image.pixelColor(2, 2);
        QAction* line = menu->actions().at(2);  // below Undo and Redo
        EXPECT_EQ(menu->palette().color(QPalette::WindowText), ToQColor(fore));
        EXPECT_LT(Contrast(ground, ToQColor(back)), 2) << "the ground is not the form's";
        EXPECT_GT(Contrast(image.pixelColor(0, 9), ground), 2) << "no border";
        EXPECT_GT(Contrast(image.pixelColor(menu->actionGeometry(line).center()), ground), 2) << "no separator";
    }
}

TEST_F(Form, LastErrorIsForgottenOnEntryAlone) {
    ExpectOverflow();
    form.Handle([] { throw CRuntimeError(ErrorNumber::Overflow, "/file"); });
    form.Handle([&] {
        EXPECT_EQ(MLastError::Number(), 0);
        MLastError::Remember(CRuntimeError(ErrorNumber::DiskFull));
        form.Handle([] {});  // an event that the handler itself causes
        EXPECT_EQ(MLastError::Number(), 61);
    });
}

}  // namespace
