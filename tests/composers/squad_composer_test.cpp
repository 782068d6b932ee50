#include "composers/squad_composer.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>

#include "composers/composer_test.h"

namespace {

/// The form on the squad of the fixture: an archer and a cart, 12 points.
class SquadComposerTest : public ComposerTest {
  protected:
    SquadComposerTest() { ShowPatrol(); }

    void ShowPatrol() {
        Open<FSquadComposer>();
        Do("cmdNext");
    }
    std::string Squad() {
        std::string text = Text("tedName") + ":";
        const auto& rows = Control<QXEditList>("lstSquadUnits");
        for (int row = 0; row < rows.ListCount(); ++row)
            text += " " + rows.Tag(row) + " " + rows.List(row);
        return text + " = " + Text("tedPointCost");
    }
    void TypeQuantity(int row, const char* text, bool confirmed = true) {
        Do("lstSquadUnits#" + std::to_string(row));
        MFormDriver::Press(*form_, "lstSquadUnits", Qt::Key_F2);
        auto* editor = Control<QXEditList>("lstSquadUnits").findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        if (!confirmed) return;
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();                                    // the key commits the text,
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // and the editor goes
    }
};

TEST_F(SquadComposerTest, ComposesASquadAndStoresACopy) {
    Ask("U-", "PATROL");
    Do("tedDescr=edited " + kNew + " lstUnits##0 lstUnits#0 cmdAddUnit optFilter(1) lstUnits##0");
    EXPECT_EQ(Squad(), ": 1 Archer 1 Archer 1 Cart = 17");  // two rows, not a quantity of two
    TypeQuantity(1, "3");
    EXPECT_EQ(Squad(), ": 1 Archer 3 Archer 1 Cart = 27");
    Expect(BoxKind::Warning, "No unit name specified. Specify a name for the unit before adding it to the database.");
    Do(kAddToDb);
    Ask("A+", "WARDENS");                                     // has no source
    Do("tedName=Wardens " + kAddToDb + " lstSquadUnits##0");  // removes
    EXPECT_EQ(Squad(), "Wardens: 3 Archer 1 Cart = 22");
    EXPECT_EQ(Units().Item("WARDENS").EquippedPointCost(), 27);
    TypeQuantity(1, "2", false);
    auto* editor = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    for (QAccessibleInterface* at = editor; at->object() != form_.get(); at = at->parent())
        EXPECT_EQ(at->parent()->child(at->parent()->indexOfChild(at)), at) << "a reader must find the open editor";
    Ask("U+", "WARDENS");
    MFormDriver::CloseWindow(*form_);  // takes the quantity that is still in its editor
    EXPECT_EQ(Units().Item("WARDENS").EquippedPointCost(), 29);
}

TEST_F(SquadComposerTest, QuantitiesAreEditedInPlace) {
    const std::pair<const char*, const char*> kTyped[] = {
        {"0", "Patrol: 1 Archer 1 Cart = 12"},       {"-99999", "Patrol: 1 Archer 1 Cart = 12"},
        {"2.5", "Patrol: 2 Archer 1 Cart = 17"},     {" 1E1 ", "Patrol: 10 Archer 1 Cart = 57"},
        {"many", "Patrol: many Archer 1 Cart = 57"}, {"2x", "Patrol: 2x Archer 1 Cart = 57"}};
    for (const auto& [typed, squad] : kTyped) {
        TypeQuantity(0, typed);
        EXPECT_EQ(Squad(), squad) << typed;
        EXPECT_EQ(Control<QXEditList>("lstSquadUnits").ListIndex(), 0) << "not selected after " << typed;
        EXPECT_EQ(Label("lblSpecialDescr(1)").substr(0, 7), "Archer:") << "no facts of the row after " << typed;
    }
    EXPECT_EQ(Control<QXEditList>("lstSquadUnits").topLevelItem(0)->toolTip(0), "Click a quantity to change it");
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    TypeQuantity(0, "32768");
    EXPECT_EQ(Squad(), "Patrol: 10 Archer 1 Cart = 57") << "back to the quantity in force";
    Ask("U-", "PATROL");
    ExpectClosing("0");
}

TEST_F(SquadComposerTest, EachStepOfComposingIsAnEdit) {
    const std::pair<const char*, const char*> kSteps[] = {
        {"lstSquadUnits#1 cmdUnitMoveUp", "Patrol: 1 Cart 1 Archer = 12"},
        // Both equal ones up and down again; the last step fills the list anew.
        {"lstUnits##0 lstSquadUnits#2 cmdUnitMoveUp cmdUnitMoveUp lstSquadUnits#1 cmdUnitMoveUp lstUnits##0",
         "Patrol: 1 Archer 1 Archer 1 Cart 1 Archer = 22"},
        {"lstUnits##0 lstSquadUnits#0 cmdUnitMoveDown cmdUnitMoveDown lstSquadUnits#1 cmdUnitMoveDown lstUnits##0",
         "Patrol: 1 Cart 1 Archer 1 Archer 1 Archer = 22"},
        {"lstSquadUnits#1 cmdRemoveUnit", "Patrol: 1 Archer = 5"},
        {"lstUnits##0", "Patrol: 1 Archer 1 Cart 1 Archer = 17"}};
    for (const auto& [actions, squad] : kSteps) {
        ShowPatrol();
        Do(actions);
        EXPECT_EQ(Squad(), squad);
        Ask("U-", "PATROL");
        ExpectClosing("0");
    }
}

}  // namespace
