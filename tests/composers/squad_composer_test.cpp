#include "composers/squad_composer.h"

#include <QApplication>
#include <QLineEdit>

#include "composers/composer_test.h"

namespace {

/// The form on the squad of the fixture: an archer and a cart, 50.5 points.
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
        EXPECT_EQ(Control<QXFrame>("frmTarget").Caption(), "Units in Squad: " + std::to_string(rows.ListCount()));
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

TEST_F(SquadComposerTest, OffersSingleUnitsUnderThreeFilters) {
    for (const auto& [button, rows] :
         {std::pair{"optFilter(1)", "Cart "}, {"optFilter(2)", "Drone Golem "}, {"optFilter(0)", "Archer Ren\xE9 "}}) {
        DoAll(std::string("lstUnits#0 ") + button);
        EXPECT_EQ(Items("lstUnits") + CanDo() + Label("lblSpecialDescr(0)"), rows);
    }
    Do("lstUnits#0");
    EXPECT_EQ(CanDo(), "AV");
    ExpectPage("cmdShowSelUnit", "Archer");
    Do("cmdNext");  // takes the selection away
    EXPECT_EQ(CanDo(), "");
    ExpectClosing("");
}

TEST_F(SquadComposerTest, ComposesASquadAndStoresACopy) {
    Ask("U-", "PATROL");
    DoAll("tedDescr=edited " + kNew + " lstUnits##0 lstUnits#0 cmdAddUnit optFilter(1) lstUnits##0");
    EXPECT_EQ(Squad(), ": 1 Archer 1 Archer 1 Cart = 61");  // two rows, not a quantity of two
    TypeQuantity(1, "3");
    EXPECT_EQ(Squad(), ": 1 Archer 3 Archer 1 Cart = 82");
    Expect(BoxKind::Warning, "No unit name specified. Specify a name for the unit before adding it to the database.");
    Do(kAddToDb);
    Ask("A+", "WARDENS");                                        // has no source
    DoAll("tedName=Wardens " + kAddToDb + " lstSquadUnits##0");  // removes
    EXPECT_EQ(Squad(), "Wardens: 3 Archer 1 Cart = 71.5");
    EXPECT_EQ(Units().Item("WARDENS").EquippedPointCost(), 82);
    Ask("U+", "WARDENS");
    ExpectClosing("0");
    EXPECT_EQ(Units().Item("WARDENS").EquippedPointCost(), 71.5);
}

TEST_F(SquadComposerTest, QuantitiesAreEditedInPlace) {
    const std::pair<const char*, const char*> kTyped[] = {
        {"0", "Patrol: 1 Archer 1 Cart = 50.5"},      {"-4", "Patrol: 1 Archer 1 Cart = 50.5"},
        {"2.5", "Patrol: 2 Archer 1 Cart = 61"},      {" 1E1 ", "Patrol: 10 Archer 1 Cart = 145"},
        {"many", "Patrol: many Archer 1 Cart = 145"}, {"2x", "Patrol: 2x Archer 1 Cart = 145"}};
    for (const auto& [typed, squad] : kTyped) {
        TypeQuantity(0, typed);
        EXPECT_EQ(Squad(), squad) << typed;
    }
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    TypeQuantity(0, "32768");
    EXPECT_EQ(Text("tedPointCost"), "145");
    Ask("U-", "PATROL");
    ExpectClosing("0");
}

TEST_F(SquadComposerTest, AQuantityStillInItsEditorCountsAtClosing) {
    TypeQuantity(0, "3", false);
    Ask("U+", "PATROL");
    MFormDriver::CloseWindow(*form_);
    EXPECT_EQ(Units().Item("PATROL").EquippedPointCost(), 71.5);
}

TEST_F(SquadComposerTest, EachStepOfComposingIsAnEdit) {
    const std::tuple<const char*, const char*, const char*> kSteps[] = {
        {"lstSquadUnits#0 cmdUnitMoveDown", "Patrol: 1 Cart 1 Archer = 50.5", "R<"},
        {"lstSquadUnits#1 cmdUnitMoveUp", "Patrol: 1 Cart 1 Archer = 50.5", "R>"},
        {"lstUnits##0 lstSquadUnits#2 cmdUnitMoveUp lstSquadUnits#0 cmdUnitMoveDown",  // both equal ones
         "Patrol: 1 Archer 1 Archer 1 Cart = 61", "AVR<>"},
        {"lstSquadUnits#1 cmdRemoveUnit", "Patrol: 1 Archer = 10.5", ""},
        {"lstUnits##0", "Patrol: 1 Archer 1 Cart 1 Archer = 61", "AV"}};
    for (const auto& [actions, squad, canDo] : kSteps) {
        ShowPatrol();
        DoAll(actions);
        EXPECT_EQ(Squad() + " " + CanDo(), squad + std::string(" ") + canDo);
        Ask("U-", "PATROL");
        ExpectClosing("0");
    }
}

TEST_F(SquadComposerTest, TellsOfUnitsAsTheyStandInTheList) {
    Units().Remove("Archer");
    Do("lstSquadUnits#0");
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "Archer:\r\nUNABLE TO RETRIEVE INFORMATION");
    Do("lstSquadUnits#1");
    EXPECT_EQ(Label("lblSpecialDescr(1)").substr(0, 23), "Cart:\r\nPoint Cost: 40\r\n");
}

TEST_F(SquadComposerTest, WalksAndOffersSquadsAlone) {
    EXPECT_EQ(Walk("NP"), "Patrol Patrol ");
    Do(kNew);
    TakeRow(0);
    EXPECT_EQ(Squad(), "Patrol: 1 Archer 1 Cart = 50.5");
}

}  // namespace
