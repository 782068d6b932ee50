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

struct FLists : CForm {
    FLists() : CForm("FLists") {
        lstUnits.setGeometry(10, 10, 200, 200);
        lstSquad.setGeometry(220, 10, 200, 200);
        cmbType.setGeometry(10, 220, 200, 31);
        resize(450, 300);
        for (const char* name : {"Bombardier", "Marksman", "Siege Golem"}) {
            lstUnits.AddItem(name);
            lstSquad.AddItem("1", name);
            cmbType.AddItem(name);
        }
        lstUnits.OnClick([this] { events += "c" + std::to_string(lstUnits.ListIndex()) + " "; });
        lstUnits.OnDblClick([this] { events += "d "; });
        lstUnits.OnEnter([this] { events += "e "; });
        lstSquad.OnClick([this] { events += "c" + std::to_string(lstSquad.ListIndex()) + " "; });
        lstSquad.OnDblClick([this] { events += "d "; });
        lstSquad.OnEdit([this](int row) { events += "edit" + std::to_string(row) + "=" + lstSquad.Tag(row) + " "; });
        cmbType.OnChange([this] { events += cmbType.Text() + std::to_string(cmbType.ListIndex()) + " "; });
    }
    CListBox lstUnits{this, "lstUnits"};
    QXEditList lstSquad{this, "lstSquad"};
    QXChoiceList cmbType{this, "cmbType"};
    std::string events;
};

class Lists : public testing::Test {
  protected:
    void SetUp() override { MFormDriver::Show(form); }
    std::string Events() { return std::exchange(form.events, std::string()); }
    QLineEdit* TagEditor() { return form.lstSquad.findChild<QLineEdit*>(QStringLiteral("tag")); }

    CScriptedPlatform platform;
    FLists form;
};

}  // namespace

TEST_F(Lists, EveryChoiceOfTheUserIsOneClickAndADoubleClickActsOnce) {
    for (const char* list : {"lstUnits", "lstSquad"}) {
        const QString name = QString::fromLatin1(list);
        MFormDriver::ClickRow(form, name, 1);
        MFormDriver::ClickRow(form, name, 1);
        EXPECT_EQ(Events(), "c1 c1 ") << list << ": again counts";
        MFormDriver::ClickRow(form, name, 2, true);
        EXPECT_EQ(Events(), "c2 d ") << list;
        MFormDriver::Press(form, name, Qt::Key_Up);
        EXPECT_EQ(Events(), "c1 ") << list;
        auto* view = qobject_cast<QAbstractItemView*>(MFormDriver::Find(form, name));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(50, view->viewport()->height() - 3));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          view->visualRect(view->model()->index(1, 0)).center());
        EXPECT_EQ(Events(), "c1 ") << list << ": neither the empty part nor Ctrl takes the selection away";
    }
    MFormDriver::Press(form, QStringLiteral("lstUnits"), Qt::Key_Return);
    EXPECT_EQ(Events(), "e ");
}

TEST_F(Lists, KeysBeginAtTheFirstRowAndAMouseDrawnOntoARowChoosesIt) {
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(&form.lstUnits), static_cast<QAbstractItemView*>(&form.lstSquad)}) {
        view->setFocus(Qt::TabFocusReason);
        QTest::keyClick(view, Qt::Key_Down);
        EXPECT_EQ(Events(), "c0 ") << view->objectName().toStdString();

        QWidget* rows = view->viewport();
        const QPointF row = view->visualRect(view->model()->index(1, 1 - (view == &form.lstUnits))).center();
        QTest::mousePress(rows, Qt::LeftButton, Qt::NoModifier, QPoint(50, rows->height() - 3));
        QMouseEvent move(QEvent::MouseMove, row, rows->mapToGlobal(row), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(rows, &move);
        QTest::mouseRelease(rows, Qt::LeftButton, Qt::NoModifier, row.toPoint());
        EXPECT_EQ(Events(), "c1 ") << view->objectName().toStdString();
    }
}

TEST_F(Lists, ListIndexIsTheSelectedRowAndCodeRaisesNoClick) {
    EXPECT_EQ(form.lstUnits.ListIndex(), -1);
    form.lstUnits.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(form.lstUnits.ListIndex(), -1) << "focus selects nothing";
    form.lstUnits.SetListIndex(1);
    EXPECT_EQ(form.lstUnits.Text(), "Marksman");
    form.lstUnits.RemoveItem(1);
    EXPECT_EQ(form.lstUnits.ListIndex(), -1) << "the selection doesn't pass to a neighbour";
    form.lstUnits.AddItem("Marksman", 0);
    form.lstUnits.SetListIndex(0);
    EXPECT_EQ(form.lstUnits.List(0) + form.lstUnits.List(3) + form.lstUnits.List(-1), "Marksman");
    EXPECT_THROW(form.lstUnits.SetListIndex(3), CRuntimeError);
    form.lstSquad.SetListIndex(2);
    form.lstSquad.RemoveItem(0);
    EXPECT_EQ(form.lstSquad.ListIndex(), 1);
    EXPECT_EQ(Events(), "");
}

TEST_F(Lists, SortedBoxOrdersWithoutRegardToCase) {
    CListBox sorted(&form, "lstSorted");
    sorted.SetSorted(true);
    for (const char* name : {"b", "\xE9", "A", "B", "a", "\xC8"})
        sorted.AddItem(name);
    std::string order;
    for (int i = 0; i < sorted.ListCount(); ++i)
        order += sorted.List(i);
    EXPECT_EQ(order, "AabB\xC8\xE9");
}

TEST_F(Lists, TagIsEditedInPlaceAndToldAfterTheEditorHasClosed) {
    bool editing = true;
    form.lstSquad.OnEdit([&](int row) {
        editing = form.lstSquad.Editing();
        form.events += "edit" + std::to_string(row) + "=" + form.lstSquad.Tag(row) + " ";
        form.lstSquad.Clear();  // as a form does that shows its rows anew
        form.lstSquad.AddItem("7", "Marksman");
    });
    MFormDriver::ClickRow(form, QStringLiteral("lstSquad"), 1);
    Events();
    MFormDriver::Press(form, QStringLiteral("lstSquad"), Qt::Key_F2);
    ASSERT_NE(TagEditor(), nullptr);
    TagEditor()->setText(QStringLiteral(u"\u0142x"));
    QTest::keyClick(TagEditor(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(Events(), "edit1=?x ");
    EXPECT_FALSE(editing);
    EXPECT_EQ(form.lstSquad.Tag(0), "7");
}

TEST_F(Lists, EscapeOrAnUnchangedTextTellsNoEditAndALockedListOpensNone) {
    form.lstSquad.SetListIndex(0);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        MFormDriver::Press(form, QStringLiteral("lstSquad"), Qt::Key_F2);
        ASSERT_NE(TagEditor(), nullptr);
        if (key == Qt::Key_Escape) TagEditor()->setText(QStringLiteral("9"));
        QTest::keyClick(TagEditor(), key);
        QApplication::processEvents();
        EXPECT_EQ(Events(), "");
        EXPECT_EQ(form.lstSquad.Tag(0), "1");
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(form.Visible());
    }
    form.lstSquad.SetLocked(true);
    MFormDriver::Press(form, QStringLiteral("lstSquad"), Qt::Key_F2);
    EXPECT_FALSE(form.lstSquad.Editing());
}

TEST_F(Lists, ChoiceListShowsWhatCodeWritesAndTellsAChangeOnlyWhenTheTextDiffers) {
    EXPECT_EQ(form.cmbType.ListIndex(), -1) << "filling chooses nothing";
    struct {
        const char* written;
        const char* text;
        int index;
        const char* events;
    } const cases[] = {{"marksMAN", "Marksman", 1, "Marksman1 "},
                       {"Marksman", "Marksman", 1, ""},
                       {"Drake", "Drake", -1, "Drake-1 "},
                       {"", "", -1, "-1 "}};
    for (const auto& test : cases) {
        form.cmbType.SetText(test.written);
        EXPECT_EQ(form.cmbType.Text(), test.text);
        EXPECT_EQ(form.cmbType.ListIndex(), test.index);
        EXPECT_EQ(Events(), test.events) << test.written;
    }
    EXPECT_EQ(form.cmbType.List(-1), "");
    form.cmbType.SetListIndex(2);
    form.cmbType.SetListIndex(2);
    EXPECT_EQ(Events(), "Siege Golem2 ");
}

TEST_F(Lists, ScreenReadersTellAChoiceListsNameFromItsText) {
    form.cmbType.setAccessibleName(QStringLiteral("Type"));
    form.cmbType.SetText("Drake");
    const QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&form.cmbType);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->role(), QAccessible::ComboBox);
    EXPECT_EQ(found->text(QAccessible::Name) + u'/' + found->text(QAccessible::Value), QStringLiteral("Type/Drake"));
}

TEST_F(Lists, PickingTheSameEntryCountsAndTheWheelChangesNothing) {
    form.cmbType.SetListIndex(0);
    Events();
    MFormDriver::Choose(form, QStringLiteral("cmbType"), 0);
    EXPECT_EQ(Events(), "Bombardier0 ");
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&form.cmbType, &wheel);
    EXPECT_EQ(Events(), "");
    EXPECT_EQ(form.cmbType.ListIndex(), 0);
}
