#include "controls/form.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QTest>
#include <QTimer>

#include "controls/color_button.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

const std::string kOverflowBox = "Run-time error '6':\r\n\r\nOverflow";

struct FTest : CForm {
    explicit FTest(std::string& log) : CForm("FTest"), log_(log) {
        cmdGo.setGeometry(10, 40, 100, 35);
        frmGroup.setGeometry(0, 100, 200, 100);
        lblText.setParent(&frmGroup);
        cmdOff.setParent(&frmGroup);
        lblText.setGeometry(10, 10, 80, 20);
        cmdOff.setGeometry(10, 40, 80, 35);
        cmdOff.SetEnabled(false);
        resize(300, 300);
    }
    void Form_Load() override {
        log_ += "load ";
        if (failLoad) throw CRuntimeError(ErrorNumber::Overflow);
    }
    void Form_Activate() override { log_ += "activate "; }
    bool QueryUnload() override {
        log_ += "query ";
        if (failQuery) throw CRuntimeError(ErrorNumber::Overflow);
        return !refuse;
    }
    void ClosingFailed() override { log_ += "failed "; }
    void Form_Unload() override { log_ += "unload "; }
    void MouseMove(IControl* control) override {
        log_ += (control != nullptr ? control->Name() : std::string("none")) + " ";
    }

    // Between the frame and what stands in it: the order of members must not matter.
    QXLabel lblText{this, "lblText"};
    QXFrame frmGroup{this, "frmGroup"};
    QXColorButton cmdOff{this, "cmdOff"};
    QXColorButton cmdGo{this, "cmdGo"};
    bool failLoad = false;
    bool failQuery = false;
    bool refuse = false;

  private:
    std::string& log_;
};

class Form : public testing::Test {
  protected:
    std::string Log() { return std::exchange(log, std::string()); }
    CScriptedPlatform platform;
    std::string log;
    FTest form{log};
};

}  // namespace

TEST_F(Form, LifeRunsInOrderAndTheOpenerIsActivatedAfterTheModalFormHasGone) {
    std::string inner;
    FTest child(inner);
    form.cmdGo.OnClick([&] {
        child.ShowModal(&form);
        log += "returned ";
    });
    MFormDriver::WhileModal([](CForm& up) {
        MFormDriver::Click(up, QStringLiteral("cmdGo"));
        EXPECT_TRUE(up.Unload());
    });
    MFormDriver::WhileModal([](CForm& up) { MFormDriver::CloseWindow(up); });
    form.ShowModal();
    EXPECT_EQ(Log(), "load activate activate returned query unload ");
    EXPECT_EQ(inner, "load activate query unload ");
    MFormDriver::VerifySteps();
}

TEST_F(Form, HiddenFormStaysLoadedAndCanBeShownAgain) {
    for (const char* expected : {"load activate ", "activate "}) {
        MFormDriver::WhileModal([](CForm& up) { up.Hide(); });
        form.ShowModal();
        EXPECT_EQ(Log(), expected);
        EXPECT_TRUE(form.Loaded());
    }
}

TEST_F(Form, WindowsXAndEscapeRunTheClosingStepsAndCanBeRefused) {
    for (const bool escape : {false, true}) {
        const auto close = [&] {
            if (escape) {
                QTest::keyClick(&form, Qt::Key_Escape);
            } else {
                MFormDriver::CloseWindow(form);
            }
        };
        form.ShowNonModal();
        Log();
        form.refuse = true;
        close();
        EXPECT_EQ(Log(), "query ");
        EXPECT_TRUE(form.Visible());
        form.refuse = false;
        QTimer::singleShot(0, &form, close);
        while (form.WaitForClosing()) {  // the closing gets through to a form that walks
        }
        EXPECT_EQ(Log(), "query unload ");
        EXPECT_FALSE(form.Visible());
    }
}

TEST_F(Form, StaysOpenWhileAHandlerOfItsOwnRuns) {
    form.ShowNonModal();
    Log();
    form.Handle([&] { MFormDriver::CloseWindow(form); });  // the desktop's end of the session, while a box is up
    EXPECT_EQ(Log(), "");
    EXPECT_TRUE(form.Visible());
}

TEST_F(Form, ErrorInTheClosingStepsIsBoxedAndTheClosingGoesOn) {
    form.ShowNonModal();
    Log();
    form.failQuery = true;
    platform.ExpectBox(BoxKind::Critical, BoxButtons::Ok, kOverflowBox);
    MFormDriver::CloseWindow(form);
    EXPECT_EQ(Log(), "query failed unload ");
    EXPECT_FALSE(form.Visible());
}

TEST_F(Form, ErrorWhileLoadingIsBoxedOnceByTheOpener) {
    std::string inner;
    FTest child(inner);
    child.failLoad = true;
    form.cmdGo.OnClick([&] { child.ShowModal(&form); });
    form.ShowNonModal();
    platform.ExpectBox(BoxKind::Critical, BoxButtons::Ok, kOverflowBox);
    MFormDriver::Click(form, QStringLiteral("cmdGo"));
    EXPECT_EQ(inner, "load ");
    EXPECT_FALSE(child.Loaded());
    EXPECT_TRUE(form.Visible());
}

TEST_F(Form, HandlerErrorsAreBoxedAndTheLastErrorIsForgottenOnEntryAlone) {
    form.ShowNonModal();
    platform.ExpectBox(BoxKind::Critical, BoxButtons::Ok, kOverflowBox);
    form.Handle([] { throw CRuntimeError(ErrorNumber::Overflow); });
    platform.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '7':\r\n\r\nOut of memory");
    form.Handle([] { throw std::bad_alloc(); });
    platform.ExpectBox(BoxKind::Critical, BoxButtons::Ok,
                       "Run-time error '5':\r\n\r\nInvalid procedure call or argument");
    form.Handle([] { throw 1; });
    form.Handle([&] {
        EXPECT_EQ(MLastError::Number(), 0);
        MLastError::Remember(CRuntimeError(ErrorNumber::DiskFull));
        form.Handle([] {});  // an event that the handler itself causes
        EXPECT_EQ(MLastError::Number(), 61);
    });
    bool ran = false;
    QTimer::singleShot(0, &form, [&] {
        form.Handle([&] { ran = true; });
        MFormDriver::CloseWindow(form);
    });
    while (form.WaitForClosing()) {
    }
    EXPECT_FALSE(ran);
}

TEST_F(Form, PointerIsRoutedToTheControlUnderIt) {
    form.ShowNonModal();
    Log();
    struct {
        const char* over;
        const char* told;
    } const cases[] = {{"cmdGo", "cmdGo "},
                       {"frmGroup", "frmGroup "},
                       {"lblText", "lblText "},
                       {"cmdOff", "frmGroup "},  // a disabled control lets the pointer through
                       {"", "none "}};
    for (const auto& test : cases) {
        MFormDriver::Hover(form, QString::fromLatin1(test.over));
        // A move that a control leaves alone passes to what lies under it and is told again, in the same words.
        const std::string told = Log();
        EXPECT_EQ(told.substr(0, told.find(' ') + 1), test.told) << test.over;
        EXPECT_EQ(told.find_first_not_of(test.told), std::string::npos) << told;
    }
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&form, &leave);
    EXPECT_EQ(Log(), "none ");
}

TEST_F(Form, ControlsStandInTheOrderInWhichTheyWereMade) {
    std::string names;
    for (const IControl* control : form.Controls())
        names += control->Name() + " ";
    EXPECT_EQ(names, "lblText frmGroup cmdOff cmdGo ");
}
