#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

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
        QWidget* rows = view.viewport();
        const QPoint row = view.visualRect(view.model()->index(1, 0)).center();
        const QPoint emptyPart(50, rows->height() - 3);
        // Without a selection the keys begin at the first row.
        view.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&view, Qt::Key_Down);
        EXPECT_EQ(Events(), "c0 ");
        MFormDriver::ClickRow(form, name, 1);
        MFormDriver::ClickRow(form, name, 1);
        EXPECT_EQ(Events(), "c1 c1 ") << "again counts";
        MFormDriver::ClickRow(form, name, 2, true);
        EXPECT_EQ(Events(), "c2 d ");
        QTest::keyClick(&view, Qt::Key_Return);
        EXPECT_EQ(Events(), &view == &lstUnits ? "e " : "");
        QTest::mouseClick(rows, Qt::LeftButton, Qt::NoModifier, emptyPart);
        EXPECT_EQ(Events(), "");
        QTest::mouseClick(rows, Qt::LeftButton, Qt::ControlModifier, view.visualRect(view.currentIndex()).center());
        EXPECT_EQ(Events(), "c2 ") << "Ctrl doesn't take the selection away";
        // A mouse that is drawn onto a row chooses it.
        QTest::mousePress(rows, Qt::LeftButton, Qt::NoModifier, emptyPart);
        QMouseEvent move(QEvent::MouseMove, row, rows->mapToGlobal(row), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(rows, &move);
        QTest::mouseRelease(rows, Qt::LeftButton, Qt::NoModifier, row);
        EXPECT_EQ(Events(), "c1 ");
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
    std::string order;
    for (const char* name : {"b", "\xE9", "A", "B", "a", "\xC8"})
        lstUnits.AddItem(name);
    for (int i = 0; i < lstUnits.ListCount(); ++i)
        order += lstUnits.List(i);
    EXPECT_EQ(order, "AabB\xC8\xE9");
}

TEST_F(Lists, NewTagIsToldAfterItsEditorHasClosedAndALockedListOpensNone) {
    QXEditList& list = lstSquad;
    list.OnEdit([&](int row) {
        events += "edit" + std::to_string(row) + "=" + list.Tag(row) + (list.Editing() ? " editing" : "");
        list.Clear();  // as a form does that shows its rows anew
        list.AddItem("7", "Marksman");
    });
    for (const auto& [text, key, told] :
         {std::tuple(u"9", Qt::Key_Escape, ""), {u"1", Qt::Key_Return, ""}, {u"\u0142x", Qt::Key_Return, "edit1=?x"}}) {
        list.SetListIndex(1);
        MFormDriver::Press(form, "lstSquad", Qt::Key_F2);
        auto& editor = MFormDriver::Get<QLineEdit>(form, "tag");
        editor.setText(QString::fromUtf16(text));
        QTest::keyClick(&editor, key);
        QApplication::processEvents();
        EXPECT_EQ(Events(), told);
        EXPECT_TRUE(form.Visible());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(list.Tag(0), "7");
    list.SetLocked(true);
    list.SetListIndex(0);
    MFormDriver::Press(form, "lstSquad", Qt::Key_F2);
    EXPECT_FALSE(list.Editing());
}

TEST_F(Lists, ChoiceListTellsEachPickAndOfCodeWhatDiffersAlone) {
    QXChoiceList& list = cmbType;
    EXPECT_EQ(list.ListIndex(), -1) << "filling chooses nothing";
    for (const auto& [written, told] : {std::pair("marksMAN", "Marksman1 "), {"Marksman", ""}, {"Drake", "Drake-1 "}}) {
        list.SetText(written);
        EXPECT_EQ(Events(), told) << written;
    }
    EXPECT_EQ(list.List(-1), "");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&list)->text(QAccessible::Name), "") << "that is the value";
    list.SetListIndex(0);
    EXPECT_EQ(Events(), "Bombardier0 ");
    MFormDriver::Choose(form, "cmbType", 0);
    EXPECT_EQ(Events(), "Bombardier0 ") << "picking the same entry counts";
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &wheel);
    EXPECT_EQ(Events(), "");
}

}  // namespace
