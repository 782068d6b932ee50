#include "composers/army_list.h"

#include "composers/composer_test.h"
#include "equipment/army_tables.h"

using namespace MFormDriver;

namespace {

class ArmyListTest : public ComposerTest<FArmyList> {
  protected:
    ArmyListTest() : ComposerTest(MGlobal::ArmyListDocument) { MGlobal::SetArmyListFile(folder_ / "list"); }

    std::string Listed() { return Control<QXFrame>("frmSource").Caption(); }
    void ExpectQuestion(const std::string& text, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, text, answer);
    }
    static int Count() { return MGlobal::ArmyList().ArmyUnits().Count(); }
};

TEST_F(ArmyListTest, OpensOnInfantryAndFilters) {
    form_.ShowNonModal();
    EXPECT_EQ(form_.Caption() + "/" + Text("tedName") + "/" + Text("tedDescr"), "Army List/Host/Spring");
    EXPECT_EQ(Control<QXColorButton>("cmdMenu(3)").Caption(), "View List");
    EXPECT_FALSE(Shown("cmdMenu(4)"));
    EXPECT_TRUE(Control<QXColorButton>("optFilter(1)").Value());
    EXPECT_EQ(ListRows("lstUnits"), (Rows{"Archer", "Ren\xE9"}));

    const struct {
        const char* button;
        Rows rows;
    } cases[] = {{"optFilter(0)", {"Archer", "Cart", "Drone", "Golem", "Patrol", "Ren\xE9"}},
                 {"optFilter(2)", {"Cart"}},
                 {"optFilter(3)", {"Drone", "Golem"}},
                 {"optFilter(4)", {"Patrol"}},
                 {"optFilter(5)", {}}};
    for (const auto& c : cases) {
        if (Control<CListBox>("lstUnits").ListCount() > 0) ClickRow(form_, "lstUnits", 0);
        Click(form_, c.button);
        EXPECT_EQ(ListRows("lstUnits"), c.rows) << c.button;
        EXPECT_EQ(Listed(), "Units in Army List (" + std::to_string(c.rows.size()) + " listed)");
        EXPECT_FALSE(Enabled("cmdDeleteFromDb") || Enabled("cmdShowSelUnit"));
        EXPECT_EQ(Info("lblSpecialDescr"), "");
    }
    EXPECT_FALSE(Control<QXColorButton>("optFilter(1)").Value());
    EXPECT_FALSE(ClosingMarks());
    MGlobal::SetArmyListFile("");
    form_.ShowNonModal();
    EXPECT_FALSE(Enabled("cmdMenu(5)"));
}

TEST_F(ArmyListTest, TellsAndShowsTheSelectedEntry) {
    form_.ShowNonModal();
    ClickRow(form_, "lstUnits", 1);
    EXPECT_EQ(Info("lblSpecialDescr"), "Ren\xE9:\r\nPoint Cost: 20\r\n\r\nAbout Ren\xE9");
    std::string seen;
    for (const char* button : {"cmdShowSelUnit", "cmdMenu(3)"}) {
        WhileModal([&seen](CForm& viewer) {
            seen += viewer.Name() + " ";
            Click(viewer, "cmdExit");
        });
        Click(form_, button);
    }
    EXPECT_EQ(seen, "FUnitViewer FArmyRoster ");
    EXPECT_FALSE(ClosingMarks());
}

TEST_F(ArmyListTest, DeletesAfterAQuestionAndCountsEvenANo) {
    for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        form_.ShowNonModal();
        ClickRow(form_, "lstUnits", 1);
        ExpectQuestion("Delete unit \"Ren\xC3\xA9\" from Army List?", answer);
        Click(form_, "cmdDeleteFromDb");
        const bool yes = answer == BoxAnswer::Yes;
        EXPECT_EQ(Count(), yes ? 5 : 6);
        EXPECT_EQ(ListRows("lstUnits").size(), yes ? 1u : 2u);
        EXPECT_EQ(Enabled("cmdDeleteFromDb"), !yes);
        EXPECT_FALSE(Modified());  // as long as the form is open
        EXPECT_TRUE(ClosingMarks());
    }
    form_.ShowNonModal();
    ClickRow(form_, "lstUnits", 0);
    MGlobal::ArmyList().ArmyUnits().Remove("Archer");
    ExpectQuestion("Delete unit \"Archer\" from Army List?", BoxAnswer::Yes);
    Expect(BoxKind::Plain,
           "Error while trying to delete unit \"Archer\" from the database: 5: Invalid procedure call or argument");
    Click(form_, "cmdDeleteFromDb");
    EXPECT_FALSE(ClosingMarks());
}

TEST_F(ArmyListTest, FieldsAndCommandsCountAtClosingAlone) {
    const struct {
        const char* what;
        std::function<void()> change;
    } cases[] = {{"name", [this] { Retype(form_, "tedName", "Other"); }},
                 {"description", [this] { Retype(form_, "tedDescr", "Other"); }},
                 {"update costs",
                  [this] {
                      Expect(BoxKind::Information, "Recalculation complete.");
                      Click(form_, "cmdMenu(1)");
                  }},
                 {"delete all", [this] {
                      ExpectQuestion("Are you sure you want to remove all the units from the army list?", BoxAnswer::Yes);
                      Click(form_, "cmdMenu(0)");
                      EXPECT_EQ(Count(), 0);
                      EXPECT_EQ(Listed(), "Units in Army List (0 listed)");
                  }}};
    for (const auto& c : cases) {
        form_.ShowNonModal();
        c.change();
        EXPECT_FALSE(Modified()) << c.what;
        EXPECT_TRUE(ClosingMarks()) << c.what;
    }
    EXPECT_EQ(MGlobal::ArmyList().Name() + MGlobal::ArmyList().Descr(), "OtherOther");
}

TEST_F(ArmyListTest, UpdateCostsWarnsOfWhatTheEquipmentLacks) {
    auto sword = std::make_shared<CEqItem>();
    sword->NewItem(CEqItem::Weapon);
    sword->SetName("Sword");
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Single);
    unit->SetName("Guard");
    unit->SingleUnit().AddItem(sword);
    MGlobal::ArmyList().ArmyUnits().Add(unit);
    form_.ShowNonModal();
    Expect(BoxKind::Warning,
           "It was not possible to find the following items in the Army Tables:\r\nUNIT: Guard, WEAPON: Sword");
    Expect(BoxKind::Information, "Recalculation complete.");
    Click(form_, "cmdMenu(1)");
}

TEST_F(ArmyListTest, ReloadLeavesTheModifiedFlagAndSpeaksOfTheRoster) {
    const std::string question =
        "Are you sure you want to reload the Army List? All changes since the last save will be lost!";
    MGlobal::SetArmyRosterFile("/rosters/mine");
    WriteBytes(folder_ / "other", "no list");
    const struct {
        std::string file;
        BoxAnswer answer;
        const char* box;
        const char* name;
    } cases[] = {
        {folder_ / "list", BoxAnswer::Cancel, "", "Other"},
        {folder_ / "list", BoxAnswer::Ok, "", "Host"},
        {"", BoxAnswer::Ok, "No army roster file selected.", "Other"},
        {folder_ / "gone", BoxAnswer::Ok, "File \"/rosters/mine\" does not exits.", "Other"},
        {folder_ / "other", BoxAnswer::Ok, "Error while reading army list.", "Other"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file + c.box);
        form_.ShowNonModal();
        Retype(form_, "tedName", "Other");
        MGlobal::SetFileModified(MGlobal::ArmyListDocument, true);
        MGlobal::SetArmyListFile(c.file);
        if (!c.file.empty()) platform_.ExpectBox(BoxKind::Question, BoxButtons::OkCancel, question, c.answer);
        if (*c.box != '\0') Expect(c.file.empty() ? BoxKind::Critical : BoxKind::Warning, c.box);
        Click(form_, "cmdMenu(2)");
        platform_.Verify();
        EXPECT_EQ(Text("tedName"), c.name);
        EXPECT_TRUE(Modified());
        EXPECT_EQ(ClosingMarks(), c.answer == BoxAnswer::Cancel);
    }
    EXPECT_EQ(Count(), 0);
}

TEST_F(ArmyListTest, SaveForgetsTheEditsWhetherItSucceedsOrNot) {
    for (const bool fails : {false, true}) {
        form_.ShowNonModal();
        Retype(form_, "tedName", fails ? "Lost" : "Kept");
        MGlobal::SetArmyListFile(folder_ / (fails ? "none/list" : "list"));
        if (fails) Expect(BoxKind::Warning, "Error while saving army list.");
        Click(form_, "cmdMenu(5)");
        EXPECT_FALSE(ClosingMarks());
    }
    CArmyList saved;
    EXPECT_TRUE(saved.ReadInfo(folder_ / "list"));
    EXPECT_EQ(saved.Name(), "Kept");
}

TEST_F(ArmyListTest, PictureGoesIntoTheListAndAMissingOneIsReportedOnOpening) {
    MGlobal::ArmyList().SetPictureFile("gone.jpg");
    Expect(BoxKind::Critical, "Error while loading image (53 : File not found)");
    form_.ShowNonModal();
    EXPECT_EQ(Info("lblPictureTip"), "The image will be shown full size on the army list viewer");
    EXPECT_FALSE(ClosingMarks());
    form_.ShowNonModal();
    Click(form_, "cmdPictureFileClear");
    EXPECT_EQ(MGlobal::ArmyList().PictureFile(), "");
    EXPECT_TRUE(ClosingMarks());
}

}  // namespace
