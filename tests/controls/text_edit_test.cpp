#include "controls/text_edit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

class TextEdit : public testing::Test {
  protected:
    TextEdit() {
        field.OnChange([this] { ++changes; });
        MFormDriver::Show(form);
    }
    void TypeIn(const QString& text) {
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        field.paste();
    }
    CScriptedPlatform platform;
    CForm form{"FFields"};
    QXTextEdit field{&form, "tedName"};
    int changes = 0;
};

TEST_F(TextEdit, EnteredTextIsCleanedFilteredAndCut) {
    for (const auto& [dataType, keys, maxLength, before, entered, after] :
         {std::tuple(0, "", 0, "", u"a\u0142\u20AC", "a?\x80"),
          {0, "", 5, "abc", u"defg", "abcde"},
          {0, "", 2, "abc", u"d", "abc"},  // code may have written more than the limit
          {1, "", 0, "", u"-1.5x2", "152"},
          {2, "", 0, "", u"-1.5x2", "-1.52"},
          {2, "0123456789", 0, "", u"-1.5", "15"}}) {  // the form's own filter rules alone
        field.SetDataType(dataType);
        field.SetAllowedKeys(keys);
        field.SetMaxLength(maxLength);
        field.SetText(before);
        TypeIn(QString::fromUtf16(entered));
        EXPECT_EQ(field.Text(), after) << "typed";
        field.SetText(before);
        Paste(QString::fromUtf16(entered) + QStringLiteral(u"\r\n\u2028"));
        EXPECT_EQ(field.Text(), after) << "pasted";
    }
}

TEST_F(TextEdit, RefusedKeyLeavesTheSelectedTextAndEditingKeysPass) {
    field.SetText("12");
    field.SetDataType(1);
    field.selectAll();
    changes = 0;
    TypeIn("x");
    Paste("x");
    EXPECT_EQ(field.Text(), "12");
    EXPECT_EQ(changes, 0);
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.Text(), "1");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.Text(), "12");
    EXPECT_EQ(changes, 2) << "each change is told once, undo too";
}

TEST_F(TextEdit, WriteByCodeTellsAChangeOnlyWhenTheTextDiffersAndKeepsTheCursor) {
    field.SetMaxLength(3);
    field.SetDataType(1);
    const std::string odd("ab\r\n\0\x81zz", 8);
    field.SetText(odd);
    EXPECT_EQ(field.Text(), odd) << "limits and filters bind the user alone";
    field.setCursorPosition(2);
    field.SetText(odd);
    field.SetText("4567");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(field.cursorPosition(), 2);
    field.OnChange([] { throw CRuntimeError(ErrorNumber::Overflow); });
    EXPECT_THROW(field.SetText("8"), CRuntimeError) << "the writer learns of the error";
}

TEST_F(TextEdit, SelectionOnEntrySurvivesTheClickThatEntered) {
    field.SetText("Storm Projector");
    field.SetAutoSelect(true);
    form.setFocus();
    MFormDriver::Click(form, "tedName");
    EXPECT_EQ(field.selectedText(), QStringLiteral("Storm Projector"));
    MFormDriver::Click(form, "tedName");
    EXPECT_FALSE(field.hasSelectedText());
    field.setCursorPosition(9);
    form.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(field.cursorPosition(), 0) << "the head shows again once the field is left";
}

}  // namespace
