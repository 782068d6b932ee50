#include "composers/squad_composer.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "composers/composer_test.h"

using namespace MFormDriver;

namespace {

class SquadComposerTest : public ComposerTest<FSquadComposer> {
  protected:
    SquadComposerTest() : ComposerTest(MGlobal::ArmyListDocument) {
        MGlobal::SetArmyListFile(folder_ / "list");
        form_.ShowNonModal();
    }

    void Ask(const std::string& text, BoxAnswer answer = BoxAnswer::Yes) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, text, answer);
    }
    // Walks to the squad of the fixture: an archer and a cart, 50.5 points.
    void ShowPatrol() {
        Click(form_, "cmdNext");
        EXPECT_EQ(Squad(), "Patrol: 1 Archer, 1 Cart = 50.5");
    }
    std::string Squad() {
        std::string text = Text("tedName") + ":";
        auto& rows = Control<QXEditList>("lstSquadUnits");
        for (int row = 0; row < rows.ListCount(); ++row)
            text.append(row == 0 ? " " : ", ").append(rows.Tag(row)).append(" ").append(rows.List(row));
        return text + " = " + Text("tedPointCost");
    }
    void TypeQuantity(int row, const char* text) {
        ClickRow(form_, "lstSquadUnits", row);
        Press(form_, "lstSquadUnits", Qt::Key_F2);
        auto* editor = Control<QXEditList>("lstSquadUnits").findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromLatin1(text));
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();                                    // the key commits the text,
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // and the editor goes
    }
    static const CUnitList& Units() { return std::as_const(MGlobal::ArmyList()).ArmyUnits(); }
};

TEST_F(SquadComposerTest, OffersSingleUnitsUnderThreeFilters) {
    EXPECT_EQ(form_.Caption() + "/" + Control<QXFrame>("frmTarget").Caption(), "Squad Composer/Units in Squad: 0");
    EXPECT_EQ(Control<QXTextEdit>("tedName").MaxLength(), 0);
    EXPECT_TRUE(Enabled("cmdMenu(0)"));
    const struct {
        const char* button;
        Rows rows;
    } cases[] = {
        {"optFilter(1)", {"Cart"}}, {"optFilter(2)", {"Drone", "Golem"}}, {"optFilter(0)", {"Archer", "Ren\xE9"}}};
    for (const auto& c : cases) {
        ClickRow(form_, "lstUnits", 0);
        EXPECT_TRUE(Enabled("cmdAddUnit") && Enabled("cmdShowSelUnit"));
        Click(form_, c.button);
        EXPECT_EQ(ListRows("lstUnits"), c.rows) << c.button;
        EXPECT_EQ(Info("lblSpecialDescr(0)"), "");
        EXPECT_FALSE(Enabled("cmdAddUnit") || Enabled("cmdShowSelUnit"));
    }
    EXPECT_FALSE(ClosingMarks());
}

TEST_F(SquadComposerTest, ComposesASquadAndStoresACopy) {
    ClickRow(form_, "lstUnits", 0, true);
    ClickRow(form_, "lstUnits", 0);
    Click(form_, "cmdAddUnit");
    EXPECT_EQ(Squad(), ": 1 Archer, 1 Archer = 21");  // two rows, not a quantity of two
    Click(form_, "optFilter(1)");
    ClickRow(form_, "lstUnits", 0, true);
    TypeQuantity(1, "3");
    EXPECT_EQ(Squad(), ": 1 Archer, 3 Archer, 1 Cart = 82");
    EXPECT_EQ(Control<QXFrame>("frmTarget").Caption(), "Units in Squad: 3");

    Expect(BoxKind::Warning, "No unit name specified. Specify a name for the unit before adding it to the database.");
    Click(form_, "cmdMenu(1)");
    Retype(form_, "tedName", "Wardens");
    Ask("Add \"WARDENS\" to the list?");
    Click(form_, "cmdMenu(1)");
    ClickRow(form_, "lstSquadUnits", 0, true);  // a double click removes
    EXPECT_EQ(Squad(), "Wardens: 3 Archer, 1 Cart = 71.5");
    EXPECT_EQ(Units().Item("WARDENS").EquippedPointCost(), 82);
    Ask("\"WARDENS\" already exists in the list,\r\ndo you wish to update it?");
    EXPECT_TRUE(ClosingMarks());
    EXPECT_EQ(Units().Item("WARDENS").EquippedPointCost(), 71.5);
}

TEST_F(SquadComposerTest, QuantitiesAreEditedInPlace) {
    ShowPatrol();
    const struct {
        const char* typed;
        const char* squad;
    } cases[] = {{"0", "Patrol: 1 Archer, 1 Cart = 50.5"},      {"-4", "Patrol: 1 Archer, 1 Cart = 50.5"},
                 {".4", "Patrol: 1 Archer, 1 Cart = 50.5"},     {"2.5", "Patrol: 2 Archer, 1 Cart = 61"},
                 {"3.5", "Patrol: 4 Archer, 1 Cart = 82"},      {" 1E1 ", "Patrol: 10 Archer, 1 Cart = 145"},
                 {"many", "Patrol: many Archer, 1 Cart = 145"}, {"2x", "Patrol: 2x Archer, 1 Cart = 145"}};
    for (const auto& c : cases) {
        TypeQuantity(0, c.typed);
        EXPECT_EQ(Squad(), c.squad) << c.typed;
    }
    platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '6':\r\n\r\nOverflow");
    TypeQuantity(0, "32768");
    EXPECT_EQ(Text("tedPointCost"), "145");
    Ask("\"PATROL\" already exists in the list,\r\ndo you wish to update it?", BoxAnswer::No);
    EXPECT_TRUE(ClosingMarks());
}

TEST_F(SquadComposerTest, MovedRowsStaySelectedAndCount) {
    ShowPatrol();
    EXPECT_FALSE(Enabled("cmdRemoveUnit") || Enabled("cmdUnitMoveUp") || Enabled("cmdUnitMoveDown"));
    ClickRow(form_, "lstSquadUnits", 0);
    EXPECT_TRUE(Enabled("cmdRemoveUnit") && !Enabled("cmdUnitMoveUp") && Enabled("cmdUnitMoveDown"));
    Click(form_, "cmdUnitMoveDown");
    EXPECT_EQ(Squad(), "Patrol: 1 Cart, 1 Archer = 50.5");
    EXPECT_EQ(Control<QXEditList>("lstSquadUnits").ListIndex(), 1);
    EXPECT_TRUE(Enabled("cmdUnitMoveUp") && !Enabled("cmdUnitMoveDown"));
    Ask("\"PATROL\" already exists in the list,\r\ndo you wish to update it?");
    EXPECT_TRUE(ClosingMarks());
    EXPECT_EQ(Units().Item("PATROL").SquadUnit().Item(1).Name(), "Cart");

    form_.ShowNonModal();
    Click(form_, "cmdNext");
    ClickRow(form_, "lstSquadUnits", 1);
    Click(form_, "cmdUnitMoveUp");
    EXPECT_EQ(Squad(), "Patrol: 1 Archer, 1 Cart = 50.5");
    ClickRow(form_, "lstSquadUnits", 1);
    Click(form_, "cmdRemoveUnit");
    EXPECT_EQ(Squad(), "Patrol: 1 Archer = 10.5");
    Ask("\"PATROL\" already exists in the list,\r\ndo you wish to update it?", BoxAnswer::No);
}

TEST_F(SquadComposerTest, TellsOfUnitsAsTheyStandInTheList) {
    ShowPatrol();
    MGlobal::ArmyList().ArmyUnits().Remove("Archer");
    ClickRow(form_, "lstSquadUnits", 0);
    EXPECT_EQ(Info("lblSpecialDescr(1)"), "Archer:\r\nUNABLE TO RETRIEVE INFORMATION");
    ClickRow(form_, "lstSquadUnits", 1);
    EXPECT_EQ(Info("lblSpecialDescr(1)").substr(0, 23), "Cart:\r\nPoint Cost: 40\r\n");
    ClickRow(form_, "lstUnits", 1);
    EXPECT_EQ(Info("lblSpecialDescr(0)"), "Ren\xE9:\r\nPoint Cost: 20\r\n\r\nAbout Ren\xE9");
    std::string seen;
    WhileModal([&seen](CForm& viewer) {
        seen = viewer.Name();
        Click(viewer, "cmdExit");
    });
    Click(form_, "cmdShowSelUnit");
    EXPECT_EQ(seen, "FUnitViewer");
}

TEST_F(SquadComposerTest, WalksAndOffersSquadsAlone) {
    ShowPatrol();
    for (const char* button : {"cmdNext", "cmdPrev"}) {
        Click(form_, button);
        EXPECT_EQ(Text("tedName"), "Patrol");
    }
    WhileModal([](CForm& selector) {
        EXPECT_EQ(Get<CListBox>(selector, "lstItems").ListCount(), 1);
        EXPECT_EQ(Get<QXLabel>(selector, "lblPrompt").Caption(), "Select a unit from the database:");
        ClickRow(selector, "lstItems", 0, true);
    });
    Click(form_, "cmdMenu(2)");
    Click(form_, "cmdMenu(0)");
    EXPECT_EQ(Squad(), ": = 0");
    MGlobal::ArmyList().ArmyUnits().Remove("Patrol");
    QTimer::singleShot(0, &form_, [this] { CloseWindow(form_); });
    Click(form_, "cmdNext");  // has no end where there are no squads, but for the closing
    EXPECT_FALSE(form_.Visible());
}

}  // namespace
