#include "composers/army_list.h"

#include "composers/composer_test.h"

namespace {

class ArmyListTest : public ComposerTest {
  protected:
    ArmyListTest() {
        MGlobal::SetArmyListFile(folder_ / "list");
        MGlobal::ArmyList().SetName("Host");
        EXPECT_TRUE(MGlobal::ArmyList().WriteInfo(MGlobal::ArmyListFile()));
        Open<FArmyList>();
    }
};

TEST_F(ArmyListTest, StartsOnInfantryAndFilters) {
    Do("lstUnits#1");
    EXPECT_EQ(Items("lstUnits") + Label("lblSpecialDescr").substr(0, 20), "Archer Ren\xE9* Ren\xE9:\r\nPoint Cost: 5");
    Do("optFilter(2)");
    EXPECT_EQ(Items("lstUnits") + Label("lblSpecialDescr"), "Cart ");
}

TEST_F(ArmyListTest, DeletesAfterAQuestionAndCountsEvenANo) {
    for (const bool yes : {false, true}) {
        Open<FArmyList>();
        Question("Delete unit \"Ren\xC3\xA9\" from Army List?", yes);
        Do("lstUnits#1 cmdDeleteFromDb");
        EXPECT_EQ(Units().Exists("REN\xC9"), !yes);
        EXPECT_EQ(Items("lstUnits") + TakeMarks(), yes ? "Archer " : "Archer Ren\xE9* ");  // no mark while it is open
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
    EXPECT_EQ(TakeMarks(), "");
    ExpectClosing("0");
    Open<FArmyList>();
    Question("Are you sure you want to remove all the units from the army list?");
    Do("cmdMenu(0)");
    EXPECT_EQ(Items("lstUnits") + TakeMarks(), "");
    ExpectClosing("0");
}

TEST_F(ArmyListTest, ReloadLeavesTheModifiedFlagAndSpeaksOfTheRoster) {
    MGlobal::SetArmyRosterFile("/rosters/mine");
    for (const bool gone : {false, true}) {
        Open<FArmyList>();
        Do("tedName=Other");
        MGlobal::SetFileModified(MGlobal::ArmyListDocument, true);
        MGlobal::SetArmyListFile(folder_ / (gone ? "gone" : "list"));
        platform_.ExpectBox(
            BoxKind::Question, BoxButtons::OkCancel,
            "Are you sure you want to reload the Army List? All changes since the last save will be lost!",
            BoxAnswer::Ok);
        if (gone) Expect(BoxKind::Warning, "File \"/rosters/mine\" does not exits.");
        Do("cmdMenu(2)");
        EXPECT_EQ(Text("tedName") + TakeMarks(), gone ? "Other0" : "Host0");
        ExpectClosing("");
    }
}

TEST_F(ArmyListTest, SaveForgetsTheEditsWhetherItSucceedsOrNot) {
    Do("tedName=Kept cmdMenu(5)");
    ExpectClosing("");
    MGlobal::SetArmyListFile(folder_ / "none/list");
    Open<FArmyList>();
    Expect(BoxKind::Warning, "Error while saving army list.");
    Do("tedName=Lost cmdMenu(5)");
    ExpectClosing("");
    Open<FArmyList>();
    Question("Delete unit \"Archer\" from Army List?");
    Expect(BoxKind::Warning, "Error while saving army list.");
    Do("lstUnits#0 cmdDeleteFromDb cmdMenu(5)");
    ExpectClosing("0");  // the list itself waits to be saved
    CArmyList saved;
    EXPECT_TRUE(saved.ReadInfo(folder_ / "list"));
    EXPECT_EQ(saved.Name(), "Kept");
}

}  // namespace
