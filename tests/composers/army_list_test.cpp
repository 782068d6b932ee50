#include "composers/army_list.h"

#include "composers/composer_test.h"

namespace {

class ArmyListTest : public ComposerTest {
  protected:
    ArmyListTest() { Open<FArmyList>(); }

    /// What is listed, its count, and what is told of the selected entry.
    std::string Listed() {
        EXPECT_EQ(Enabled("cmdShowSelUnit"), Enabled("cmdDeleteFromDb"));
        return Items("lstUnits") + Control<QXFrame>("frmSource").Caption() +
               (Enabled("cmdDeleteFromDb") ? " " + Label("lblSpecialDescr") : "");
    }
};

TEST_F(ArmyListTest, FiltersAndTellsOfTheSelectedEntry) {
    EXPECT_EQ(Listed(), "Archer Ren\xE9 Units in Army List (2 listed)");
    Do("lstUnits#1");
    EXPECT_EQ(Listed(),
              "Archer Ren\xE9* Units in Army List (2 listed) Ren\xE9:\r\nPoint Cost: 20\r\n\r\nAbout Ren\xE9");
    ExpectPage("cmdShowSelUnit", QString::fromLatin1("Ren\xE9"));
    ExpectPage("cmdMenu(3)", "Golem");
    Do("optFilter(2)");
    EXPECT_EQ(Listed() + Label("lblSpecialDescr"), "Cart Units in Army List (1 listed)");
    ExpectClosing("");
}

TEST_F(ArmyListTest, DeletesAfterAQuestionAndCountsEvenANo) {
    for (const bool yes : {false, true}) {
        Open<FArmyList>();
        Question("Delete unit \"Ren\xC3\xA9\" from Army List?", yes);
        DoAll("lstUnits#1 cmdDeleteFromDb");
        EXPECT_EQ(Units().Exists("REN\xC9"), !yes);
        EXPECT_EQ(Items("lstUnits") + Modified(), yes ? "Archer " : "Archer Ren\xE9* ");  // no mark while it is open
        ExpectClosing("0");
    }
    Open<FArmyList>();
    Do("lstUnits#0");
    Units().Remove("Archer");
    Question("Delete unit \"Archer\" from Army List?");
    Expect(BoxKind::Plain,
           "Error while trying to delete unit \"Archer\" from the database: 5: Invalid procedure call or argument");
    Do("cmdDeleteFromDb");
    ExpectClosing("");
}

TEST_F(ArmyListTest, CommandsCountAtClosingAlone) {
    Expect(BoxKind::Information, "Recalculation complete.");
    Do("cmdMenu(1)");
    EXPECT_EQ(Modified(), "");
    ExpectClosing("0");
    Open<FArmyList>();
    Question("Are you sure you want to remove all the units from the army list?");
    Do("cmdMenu(0)");
    EXPECT_EQ(Listed() + Modified(), "Units in Army List (0 listed)");
    ExpectClosing("0");
}

TEST_F(ArmyListTest, ReloadLeavesTheModifiedFlagAndSpeaksOfTheRoster) {
    MGlobal::SetArmyRosterFile("/rosters/mine");
    for (const bool gone : {false, true}) {
        Open<FArmyList>();
        Do("tedName=Other");
        MGlobal::SetFileModified(MGlobal::ArmyListDocument, true);
        MGlobal::SetArmyListFile(folder_ / (gone ? "gone" : "list"));
        ExpectReloadQuestion("Army List");
        if (gone) Expect(BoxKind::Warning, "File \"/rosters/mine\" does not exits.");
        Do("cmdMenu(2)");
        EXPECT_EQ(Text("tedName") + Modified(), gone ? "Other0" : "Host0");
        ExpectClosing("");
    }
}

TEST_F(ArmyListTest, SaveForgetsTheEditsWhetherItSucceedsOrNot) {
    DoAll("tedName=Kept cmdMenu(5)");
    ExpectClosing("");
    MGlobal::SetArmyListFile(folder_ / "none/list");
    Open<FArmyList>();
    Expect(BoxKind::Warning, "Error while saving army list.");
    DoAll("tedName=Lost cmdMenu(5)");
    ExpectClosing("");
    CArmyList saved;
    EXPECT_TRUE(saved.ReadInfo(folder_ / "list"));
    EXPECT_EQ(saved.Name(), "Kept");
}

}  // namespace
