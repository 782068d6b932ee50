#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include "controls/choice_list.h"
#include "controls/edit_list.h"
#include "controls/list_box.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

class Lists : public testing::Test {
  protected:
    Lists() {
        lstUnits.setGeometry(10, 10, 200, 200);
        lstSquad.setGeometry(220, 10, 200, 200);
        cmbType.setGeometry(10, 230, 200, 30);
        form.resize(450, 300);
        for (const char* name : {"Bombardier", "Marksman", "Siege Golem"}) {
            lstUnits.AddItem(name);
            lstSquad.AddItem("1", name);
            cmbType.AddItem(name);
        }
        const auto listen = [this](auto& list) {
            list.OnClick([this, &list] { events += "c" + std::to_string(list.ListIndex()) + " "; });
            list.OnDblClick([this] { events += "d "; });
        };
        listen(lstUnits);
        listen(lstSquad);
        lstUnits.OnEnter([this] { events += "e "; });
        cmbType.OnChange([this] { events += cmbType.Text() + std::to_string(cmbType.ListIndex()) + " "; });
        MFormDriver::Show(form);
    }
    std::string Events() { return std::exchange(events, std::string()); }

    CScriptedPlatform platform;
    CForm form{"FLists"};
    CListBox lstUnits{&form, "lstUnits"};
    QXEditList lstSquad{&form, "lstSquad"};
    QXChoiceList cmbType{&form, "cmbType"};
    std::string events;
};

TEST_F(Lists, EveryChoiceOfTheUserIsOneClickAndADoubleClickActsOnce) {
    for (const char* name : {"lstUnits", "lstSquad"}) {
        SCOPED_TRACE(name);
        auto& view = MFormDriver::Get<QAbstractItemView>(form, name);
        view.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&view, Qt::Key_Down);
        EXPECT_EQ(Events(), "c0 ") << "without a selection the keys begin at the first row";
        MFormDriver::ClickRow(form, name, 1);
        MFormDriver::ClickRow(form, name, 1);
        EXPECT_EQ(Events(), "c1 c1 ") << "again counts";
        MFormDriver::ClickRow(form, name, 2, true);
        EXPECT_EQ(Events(), "c2 d ");
        QTest::keyClick(&view, Qt::Key_Return);
        EXPECT_EQ(Events(), &view == &lstUnits ? "e " : "");
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(50, view.viewport()->height() - 3));
        EXPECT_EQ(Events(), "");
    }
}

TEST_F(Lists, ListIndexIsTheSelectedRowAndCodeRaisesNoClick) {
    lstUnits.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(lstUnits.ListIndex(), -1) << "focus selects nothing";
    for (const int removed : {0, 1}) {
        lstUnits.SetListIndex(1);
        lstUnits.RemoveItem(removed);
        EXPECT_EQ(lstUnits.ListIndex(), removed == 0 ? 0 : -1) << "the selection doesn't pass to a neighbour";
        lstUnits.SetListIndex(-1);
    }
    EXPECT_THROW(lstUnits.SetListIndex(1), CRuntimeError);
    EXPECT_EQ(Events(), "");
}

TEST_F(Lists, SortedBoxOrdersWithoutRegardToCase) {
    lstUnits.Clear();
    lstUnits.SetSorted(true);
    for (const char* name : {"b", "B", "a"})
        lstUnits.AddItem(name);
    EXPECT_EQ(lstUnits.List(0) + lstUnits.List(1) + lstUnits.List(2), "abB");
}

TEST_F(Lists, NewTagIsToldAfterItsEditorHasClosedAndALockedListOpensNone) {
    lstSquad.OnEdit([&](int row) {
        events += "edit" + std::to_string(row) + "=" + lstSquad.Tag(row) + (lstSquad.Editing() ? " editing" : "");
        lstSquad.Clear();  // as a form does that shows its rows anew
        lstSquad.AddItem("7", "Marksman");
    });
    for (const auto& [text, key, told] :
         {std::tuple(u"9", Qt::Key_Escape, ""), {u"1", Qt::Key_Return, ""}, {u"\u0142x", Qt::Key_Return, "edit1=?x"}}) {
        lstSquad.SetListIndex(1);
        MFormDriver::Press(form, "lstSquad", Qt::Key_F2);
        auto& editor = MFormDriver::Get<QLineEdit>(form, "tag");
        editor.setText(QString::fromUtf16(text));
        QTest::keyClick(&editor, key);
        QApplication::processEvents();
        EXPECT_EQ(Events(), told);
        EXPECT_TRUE(form.Visible());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(lstSquad.Tag(0), "7");
    lstSquad.SetLocked(true);
    lstSquad.SetListIndex(0);
    MFormDriver::Press(form, "lstSquad", Qt::Key_F2);
    EXPECT_FALSE(lstSquad.Editing());
}

TEST_F(Lists, ClickOnTheSelectedTagOrADigitEditsThatVeryRow) {
    const QPoint place = lstSquad.viewport()->mapTo(&form, QPoint(9, 9));
    const auto type = [&](const char* keys) {
        for (; *keys != 0; ++keys)
            QTest::keyClick(form.windowHandle(), *keys);
    };
    for (const int clicks : {1, 2, 3}) {  // with one alone the first digit opens the editor
        lstSquad.SetListIndex(-1);
        for (int i = 1; i <= clicks; ++i) {
            QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, place);
            EXPECT_EQ(lstSquad.Editing(), i > 1) << "after click " << i;
        }
        type("15");
        EXPECT_TRUE(lstSquad.Editing()) << clicks;
        type("\r");
        QApplication::processEvents();
        EXPECT_EQ(lstSquad.Tag(0) + lstSquad.Tag(1) + lstSquad.Tag(2), "1511") << clicks;
        lstSquad.SetTag(0, "1");
    }
    Events();
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Events() + (lstSquad.Editing() ? "editing" : ""), "c0 d ") << "a double click is one on the row";
    lstSquad.SetLocked(true);
    type("1");
    EXPECT_EQ(lstSquad.ListIndex(), 0) << "no digit looks for a row";
    type("s");
    EXPECT_EQ(lstSquad.ListIndex(), 2) << "letters look among the texts, also after a click on a tag";
}

TEST_F(Lists, ScrollingCopiesNothingOfTheBorderThatTellsTheFocus) {
    for (int i = 0; i < 40; ++i) {
        lstUnits.AddItem("Drone");
        lstSquad.AddItem("1", "Drone");
    }
    const auto onScreen = [&] {
        QApplication::processEvents();
        return form.screen()->grabWindow(form.winId()).toImage();
    };
    for (QAbstractItemView* list :
         {static_cast<QAbstractItemView*>(&lstUnits), static_cast<QAbstractItemView*>(&lstSquad)}) {
        const QImage without = onScreen();
        list->setFocus(Qt::TabFocusReason);
        EXPECT_NE(onScreen(), without) << "the focus can be seen";
        list->verticalScrollBar()->setValue(37);
        const QImage scrolled = onScreen();
        list->update();
        list->viewport()->update();
        EXPECT_TRUE(onScreen() == scrolled) << list->objectName().toStdString() << " differs from a fresh painting";
    }
}

TEST_F(Lists, ChoiceListTellsEachPickAndOfCodeWhatDiffersAlone) {
    EXPECT_EQ(cmbType.ListIndex(), -1) << "filling chooses nothing";
    for (const auto& [written, told] : {std::pair("marksMAN", "Marksman1 "), {"Marksman", ""}, {"Drake", "Drake-1 "}}) {
        cmbType.SetText(written);
        EXPECT_EQ(Events(), told) << written;
        const auto* read = QAccessible::queryAccessibleInterface(&cmbType)->textInterface();
        EXPECT_EQ(read->text(0, read->characterCount()).toStdString(), cmbType.Text());
    }
    cmbType.SetListIndex(0);
    EXPECT_EQ(Events(), "Bombardier0 ");
    MFormDriver::Choose(form, "cmbType", 0);
    EXPECT_EQ(Events(), "Bombardier0 ") << "picking the same entry counts";
}

}  // namespace
