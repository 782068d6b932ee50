#include "controls/text_edit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "controls/color_button.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

struct FFields : CForm {
    FFields() : CForm("FFields") {
        lblName.SetCaption("Name:");
        frmCost.SetCaption("Point Cost");
        tedCost.setParent(&frmCost);
        int y = 0;
        for (QWidget* widget : std::initializer_list<QWidget*>{&lblName, &tedName, &frmCost, &cmdExit}) {
            widget->setGeometry(10, y += 60, 200, 50);
        }
        resize(300, 400);
        tedName.OnChange([this] { ++changes; });
    }
    QXTextEdit tedName{this, "tedName"};  // declared before its label and outside of the order on the screen
    QXLabel lblName{this, "lblName"};
    QXTextEdit tedCost{this, "tedCost"};
    QXFrame frmCost{this, "frmCost"};
    QXColorButton cmdExit{this, "cmdExit"};
    int changes = 0;
};

class TextEdit : public testing::Test {
  protected:
    void SetUp() override { MFormDriver::Show(form); }
    void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        form.tedName.paste();
    }
    CScriptedPlatform platform;
    FFields form;
};

}  // namespace

TEST_F(TextEdit, EnteredTextIsCleanedFilteredAndCut) {
    struct {
        int dataType;
        const char* keys;
        int maxLength;
        const char* before;
        QString entered;
        const char* after;
    } const cases[] = {
        {0, "", 0, "", QStringLiteral(u"a\u0142\u20AC\r\nb\u2028c"),
         "a?\x80"
         "bc"},
        {0, "", 5, "abc", QStringLiteral("defg"), "abcde"},
        {0, "", 2, "abc", QStringLiteral("d"), "abc"},  // code may have written more than the limit
        {1, "", 0, "", QStringLiteral("-1.5x2"), "152"},
        {2, "", 0, "", QStringLiteral("-1.5x2"), "-1.52"},
        {2, "0123456789", 0, "", QStringLiteral("-1.5"), "15"},  // the form's own filter rules alone
    };
    for (const auto& test : cases) {
        form.tedName.SetDataType(test.dataType);
        form.tedName.SetAllowedKeys(test.keys);
        form.tedName.SetMaxLength(test.maxLength);
        for (const bool pasted : {true, false}) {
            form.tedName.SetText(test.before);
            if (pasted) {
                form.tedName.end(false);
                Paste(test.entered);
            } else {
                form.tedName.end(false);
                for (const QChar c : test.entered) {
                    if (c.isPrint())
                        QTest::sendKeyEvent(QTest::Click, &form.tedName, Qt::Key_unknown, QString(c), Qt::NoModifier);
                }
            }
            EXPECT_EQ(form.tedName.Text(), test.after) << (pasted ? "pasted" : "typed");
        }
    }
}

TEST_F(TextEdit, RefusedKeyLeavesTheSelectedTextAndEditingKeysPass) {
    form.tedName.SetText("12");
    form.tedName.SetDataType(1);
    form.tedName.selectAll();
    form.changes = 0;
    QTest::keyClicks(&form.tedName, QStringLiteral("x"));
    Paste(QStringLiteral("x"));
    EXPECT_EQ(form.tedName.Text(), "12");
    EXPECT_EQ(form.changes, 0);
    QTest::keyClick(&form.tedName, Qt::Key_End);
    QTest::keyClick(&form.tedName, Qt::Key_Backspace);
    EXPECT_EQ(form.tedName.Text(), "1");
    QTest::keyClick(&form.tedName, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(form.tedName.Text(), "12");
    EXPECT_EQ(form.changes, 2) << "each change is told once, undo too";
}

TEST_F(TextEdit, WriteByCodeTellsAChangeOnlyWhenTheTextDiffersAndKeepsTheCursor) {
    form.tedName.SetMaxLength(3);
    form.tedName.SetDataType(1);
    const std::string odd("ab\r\n\0\x81zz", 8);
    form.tedName.SetText(odd);
    EXPECT_EQ(form.tedName.Text(), odd) << "limits and filters bind the user alone";
    form.tedName.setCursorPosition(2);
    form.tedName.SetText(odd);
    EXPECT_EQ(form.changes, 1);
    form.tedName.SetText("4567");
    EXPECT_EQ(form.changes, 2);
    EXPECT_EQ(form.tedName.cursorPosition(), 2);
    form.tedName.OnChange([] { throw CRuntimeError(ErrorNumber::Overflow); });
    EXPECT_THROW(form.tedName.SetText("8"), CRuntimeError) << "the writer learns of the error";
}

TEST_F(TextEdit, SelectionOnEntrySurvivesTheClickThatEntered) {
    form.tedName.SetText("Storm Projector");
    form.tedName.SetAutoSelect(true);
    MFormDriver::Click(form, QStringLiteral("cmdExit"));
    MFormDriver::Click(form, QStringLiteral("tedName"));
    EXPECT_EQ(form.tedName.selectedText(), QStringLiteral("Storm Projector"));
    MFormDriver::Click(form, QStringLiteral("tedName"));
    EXPECT_FALSE(form.tedName.hasSelectedText());
}

TEST_F(TextEdit, LeavingIsAClickElsewhereInTheFormAndNotAnotherWindow) {
    int left = 0;
    form.tedName.OnLeave([&] { ++left; });
    for (const char* elsewhere : {"cmdExit", "lblName"}) {  // a label takes no focus, the form behind it does
        form.tedName.setFocus();
        MFormDriver::Click(form, QString::fromLatin1(elsewhere));
        EXPECT_EQ(std::exchange(left, 0), 1) << elsewhere;
    }
    form.tedName.setFocus();
    CForm other("FOther");
    MFormDriver::WhileModal([](CForm& up) { up.Unload(); });
    other.ShowModal(&form);
    EXPECT_EQ(left, 0);
    MFormDriver::VerifySteps();
}

TEST_F(TextEdit, FieldsBearTheNameOfTheirLabelOrFrame) {
    EXPECT_EQ(form.tedName.accessibleName(), QStringLiteral("Name"));
    EXPECT_EQ(form.tedCost.accessibleName(), QStringLiteral("Point Cost"));
    form.frmCost.SetCaption("Army: 6");
    EXPECT_EQ(form.tedCost.accessibleName(), QStringLiteral("Army: 6"));
}

TEST_F(TextEdit, PathFieldKeepsThePlatformsBytes) {
    form.tedName.SetPathField(true);
    const std::string path = "/h/\xC5\x81\xE9.v2l";
    form.tedName.SetText(path);
    EXPECT_EQ(form.tedName.Text(), path);
}
