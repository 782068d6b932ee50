#include "composers/army_composer.h"

#include <QImage>

#include "composers/composer_test.h"
#include "composers/unit_filter.h"
#include "units/army_roster.h"

namespace {

class ArmyComposerTest : public ComposerTest {
  protected:
    /// Opens the form on a roster of these entries.
    void OpenOn(const std::vector<SEntry>& entries) {
        MGlobal::SetArmyRosterFile(Save("roster", Document("#ARMYROSTER", entries)));
        EXPECT_TRUE(MGlobal::ArmyRoster().ReadInfo(MGlobal::ArmyRosterFile()));
        Open<FArmyComposer>();
    }
    std::string Totals() { return Control<QXFrame>("frmTarget").Caption() + " / " + Text("tedPointCost"); }
    static std::string Roster() {
        std::string names;
        for (const CGenUnit& unit : std::as_const(MGlobal::ArmyRoster()).ArmyUnits())
            names += unit.Name() + " ";
        return names;
    }
};

TEST_F(ArmyComposerTest, AddedEntriesCountEachTime) {
    OpenOn({});
    EXPECT_EQ(Totals() + CanDo() + Text("tedName") + Text("tedDescr"), "Units in Army: 0 / 0HostSpring");
    ExpectClosing("");
    OpenOn({});
    DoAll("lstUnits#0 cmdAddUnit cmdAddUnit lstUnits##4");
    EXPECT_EQ(Totals() + " " + CanDo() + " " + Roster(), "Units in Army: 3 / 71.5 AV Archer Archer Patrol ");
    EXPECT_EQ(Modified(), "1");
    ExpectClosing("1");
}

TEST_F(ArmyComposerTest, FiltersShowAndActOnTheWholeRosterAllTheSame) {
    OpenOn({{"Cart", 1, "40"}, {"Archer", 0, "10"}, {"Golem", 3, "30"}, {"Drone", 2, "7"}});
    DoAll("lstUnits#1 lstRosterUnits#1 cmbUnitType=4");
    EXPECT_EQ(Items("lstUnits") + Label("lblSpecialDescr(0)") + CanDo(), "Patrol R<>");
    Do("cmbArmyUnitType=3");
    EXPECT_EQ(Items("lstRosterUnits") + Label("lblSpecialDescr(1)") + CanDo(), "Golem Drone ");
    EXPECT_EQ(Modified(), "");
    Do("lstUnits##0");  // doesn't pass the filter, but counts
    EXPECT_EQ(Items("lstRosterUnits") + Totals(), "Golem Drone Units in Army: 5 / 137.5");
    DoAll("lstRosterUnits#0 cmdUnitMoveDown");  // the rows change places, and so do the first two of the whole roster
    EXPECT_EQ(Items("lstRosterUnits") + Roster(), "Drone Golem* Archer Cart Golem Drone Patrol ");
    Do("lstRosterUnits##0");  // removes the first entry of all
    EXPECT_EQ(Roster(), "Cart Golem Drone Patrol ");
}

TEST_F(ArmyComposerTest, RowsAreMovedAndRemoved) {
    // the rows and what can be done then, the whole roster, the mark
    const std::tuple<const char*, const char*, const char*, const char*> kSteps[] = {
        {"lstRosterUnits#0 cmdUnitMoveDown", "Cart Archer* Golem R<>", "Cart Archer Golem ", "1"},
        {"lstRosterUnits#1 cmdUnitMoveDown", "Archer Golem Cart* R<", "Archer Golem Cart ", "1"},
        {"lstRosterUnits#1 cmdUnitMoveUp", "Cart* Archer Golem R>", "Cart Archer Golem ", "1"},
        {"lstRosterUnits#0 cmdUnitMoveUp", "Archer* Cart Golem R>", "Archer Cart Golem ", ""},
        {"lstRosterUnits#2 cmdRemoveUnit", "Archer Cart ", "Archer Cart ", "1"},
    };
    for (const auto& [actions, rows, roster, marked] : kSteps) {
        SCOPED_TRACE(actions);
        OpenOn({{"Archer", 0, "10"}, {"Cart", 1, "40"}, {"Golem", 3, "30"}});
        DoAll(actions);
        EXPECT_EQ(Items("lstRosterUnits") + CanDo(), rows);
        EXPECT_EQ(Roster(), roster);
        EXPECT_EQ(Modified(), marked);
        ExpectClosing(marked);
    }
}

TEST_F(ArmyComposerTest, TellsOfUnitsAsTheyStandInTheList) {
    OpenOn({{"Golem", 3, "99"}, {"Ghost", 0, "5"}});
    DoAll("lstUnits#4 lstRosterUnits#0");
    EXPECT_EQ(Label("lblSpecialDescr(0)"), "Patrol:\r\nPoint Cost: 50.5\r\nSquad\r\n");
    EXPECT_EQ(Label("lblSpecialDescr(1)").substr(0, 22), "Golem:\r\nPoint Cost: 30");
    Do("lstRosterUnits#1");
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "Ghost:\r\nUNABLE TO RETRIEVE INFORMATION");
    ExpectPage("cmdShowSelUnit", "Patrol");
    ExpectPage("cmdMenu(3)", "Ghost");
}

TEST_F(ArmyComposerTest, FieldsGoStraightIntoTheRosterAndCountAtClosing) {
    for (const std::string field : {"tedName", "tedDescr"}) {
        OpenOn({});
        Do(field + "=" + std::string(120, 'x'));
        EXPECT_EQ(Modified(), "");
        ExpectClosing("1");
        EXPECT_EQ((field == "tedName" ? MGlobal::ArmyRoster().Name() : MGlobal::ArmyRoster().Descr()),
                  std::string(field == "tedName" ? 50 : 100, 'x'));
    }
}

TEST_F(ArmyComposerTest, DeletesAllAndUpdatesCosts) {
    OpenOn({{"Golem", 3, "99", 2}, {"Gh\xF6st", 0, "5"}, {"Wraith", 0, "1"}});
    Question("Are you sure you want to remove all the units from the army?", false);
    Do("cmdMenu(0)");
    ExpectClosing("");
    Open<FArmyComposer>();
    Expect(BoxKind::Warning,
           "It was not possible to find the following units in the Army List:\r\nGh\xC3\xB6st\r\nWraith");
    Expect(BoxKind::Information, "Recalculation complete.");
    Do("cmdMenu(1)");
    EXPECT_EQ(Totals() + " " + Modified(), "Units in Army: 3 / 66 1");  // two golems at 30, 5, 1
    ExpectClosing("1");
    Open<FArmyComposer>();
    Question("Are you sure you want to remove all the units from the army?");
    Do("cmdMenu(0)");
    EXPECT_EQ(Totals() + " " + Modified(), "Units in Army: 0 / 0 1");
    ExpectClosing("1");
}

TEST_F(ArmyComposerTest, ReloadForgetsTheChangesWhateverItFinds) {
    const std::string gone = folder_ / "g\xC3\xA9";
    const std::tuple<std::string, BoxAnswer, std::string, const char*> kReloads[] = {
        {folder_ / "roster", BoxAnswer::Cancel, "", "Units in Army: 2 / 50.5"},
        {folder_ / "roster", BoxAnswer::Ok, "", "Units in Army: 1 / 40"},
        {"", BoxAnswer::Ok, "No army roster file selected.", "Units in Army: 2 / 50.5"},
        {gone, BoxAnswer::Ok, "File \"" + gone + "\" does not exits.", "Units in Army: 2 / 50.5"},
        {folder_ / "list", BoxAnswer::Ok, "Error while reading army roster.", "Units in Army: 0 / 0"},
    };
    for (const auto& [file, answer, box, totals] : kReloads) {
        SCOPED_TRACE(box + totals);
        OpenOn({{"Cart", 1, "40"}});
        Do("lstUnits##0");
        MGlobal::SetArmyRosterFile(file);
        if (!file.empty()) ExpectReloadQuestion("Army Roster", answer);
        if (!box.empty()) Expect(file.empty() ? BoxKind::Critical : BoxKind::Warning, box);
        Do("cmdMenu(2)");
        EXPECT_EQ(Totals(), totals);
        EXPECT_EQ(Modified(), answer == BoxAnswer::Cancel ? "1" : "");
        ExpectClosing(answer == BoxAnswer::Cancel ? "1" : "");
    }
}

TEST_F(ArmyComposerTest, SaveForgetsTheChangesWhateverTheAnswer) {
    const std::tuple<bool, const char*, bool> cases[] = {
        {true, "roster", true}, {false, "roster", false}, {true, "none/r", false}};
    for (const auto& [yes, file, saved] : cases) {
        OpenOn({});
        const std::string before = ReadBytes(folder_ / "roster");
        Do("lstUnits##1");
        MGlobal::SetArmyRosterFile(folder_ / file);
        Question("Save changes to file?", yes);
        if (yes && !saved) Expect(BoxKind::Warning, "Error while saving army roster.");
        Do("cmdMenu(5)");
        EXPECT_EQ(Modified(), "");
        ExpectClosing("");
        EXPECT_EQ(ReadBytes(folder_ / "roster") != before, saved) << file;
    }
    MGlobal::SetArmyRosterFile("");
    Open<FArmyComposer>();
    EXPECT_FALSE(Enabled("cmdMenu(5)"));
}

TEST_F(ArmyComposerTest, PictureIsLoadedAtEachChange) {
    QImage(40, 20, QImage::Format_RGB32).save(QString::fromStdString(folder_ / "fl\xC3\xA4g.png"));
    const std::string chosen = folder_ / "fl\xE4g.png";  // in the code page
    const auto picture = [this] {
        EXPECT_EQ(Shown("imgPicture"), Shown("lblPictureTip"));
        return MGlobal::ArmyRoster().PictureFile() + (Shown("imgPicture") ? "!" : "");
    };
    const auto type = [&](const char* file, const char* error) {
        Expect(BoxKind::Critical, std::string("Error while loading image (") + error + ")");
        Control<QXTextEdit>("tedPictureFile").SetText(file);
    };
    Save("broken.jpg", "no picture");
    OpenOn({});
    type("gone.jpg", "53 : File not found");
    EXPECT_EQ(picture(), "");
    ExpectClosing("");
    Open<FArmyComposer>();
    platform_.ExpectOpen("");
    Do("cmdPictureFileSelect");
    EXPECT_EQ(picture(), "");
    platform_.ExpectOpen(folder_ / "fl\xC3\xA4g.png");
    Do("cmdPictureFileSelect");
    EXPECT_EQ(Text("tedPictureFile") + picture(), chosen + chosen + "!");
    type("broken.jpg", "481 : Invalid picture");
    EXPECT_EQ(picture(), chosen + "!");
    Do("cmdPictureFileClear");
    EXPECT_EQ(picture(), "");
    ExpectClosing("1");

    MGlobal::ArmyRoster().SetPictureFile("gone.jpg");  // is told of, and stays
    Expect(BoxKind::Critical, "Error while loading image (53 : File not found)");
    Open<FArmyComposer>();
    EXPECT_EQ(Text("tedPictureFile") + picture(), "gone.jpggone.jpg");
    ExpectClosing("");
}

}  // namespace
