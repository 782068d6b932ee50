#include "composers/army_composer.h"

#include <QApplication>
#include <QImage>
#include <QScrollArea>
#include <QScrollBar>

#include "composers/composer_test.h"
#include "units/army_roster.h"

namespace {

class ArmyComposerTest : public ComposerTest {
  protected:
    /// Opens the form on a roster of these units, which is also in its file.
    void OpenOn(const std::vector<const char*>& names) {
        CArmyRoster& roster = MGlobal::ArmyRoster();
        roster.ArmyUnits().Clear();
        for (const char* name : names)
            roster.Add(Copy(name));
        MGlobal::SetArmyRosterFile(folder_ / "roster");
        EXPECT_TRUE(roster.WriteInfo(MGlobal::ArmyRosterFile()));
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

TEST_F(ArmyComposerTest, FiltersShowAndActOnTheWholeRosterAllTheSame) {
    OpenOn({"Cart", "Archer", "Golem", "Drone"});
    Do("lstUnits#1 lstRosterUnits#1 cmbUnitType=4");
    EXPECT_EQ(Items("lstUnits") + Label("lblSpecialDescr(0)"), "Patrol ");
    Do("cmbArmyUnitType=3");
    EXPECT_EQ(Items("lstRosterUnits") + Label("lblSpecialDescr(1)"), "Golem Drone ");
    EXPECT_EQ(TakeMarks(), "");
    Do("lstUnits##0");  // doesn't pass the filter, but counts
    EXPECT_EQ(Items("lstRosterUnits") + Totals(), "Golem Drone Units in Army: 5 / 44");
    Do("lstRosterUnits#0 cmdUnitMoveDown");  // the rows change places, and so do the first two of the whole roster
    EXPECT_EQ(Items("lstRosterUnits") + Roster(), "Drone Golem* Archer Cart Golem Drone Patrol ");
    Do("lstRosterUnits##0");  // removes the first entry of all
    EXPECT_EQ(Roster(), "Cart Golem Drone Patrol ");
}

TEST_F(ArmyComposerTest, ListsStartAtTheirTopAfterAFilterAndShowWhatIsAdded) {
    OpenOn(std::vector<const char*>(60, "Archer"));
    QScrollBar& bar = *Control<CListBox>("lstRosterUnits").verticalScrollBar();
    Do("lstUnits##0");
    EXPECT_EQ(bar.value(), bar.maximum()) << "the entry added stands at the end";
    bar.setValue(100);
    Do("lstRosterUnits#6 cmdRemoveUnit");
    EXPECT_EQ(bar.value(), 100) << "the place is kept";
    Do("cmbArmyUnitType=1");
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ArmyComposerTest, AtItsSmallestItsListsShowFiveRowsAndItsTextsScroll) {
    MGlobal::SetSkinId(2);  // whose letters are the larger ones
    for (const char* name : {"Archer", "Cart"})
        Units().Item(name).SetDescr(std::string(100, 'W'));
    OpenOn({"Archer"});
    Do("lstUnits#0 lstRosterUnits#0");
    form_->resize(form_->minimumSizeHint());
    QApplication::processEvents();
    for (const char* name : {"lstUnits", "lstRosterUnits"}) {
        auto& list = Control<CListBox>(name);
        EXPECT_GE(list.viewport()->height(), 5 * list.sizeHintForRow(0)) << name;
    }
    auto& text = Control("lblSpecialDescr(0)");
    EXPECT_GE(text.height(), text.heightForWidth(text.width())) << "no line is lost";
    auto& bar = *dynamic_cast<QScrollArea*>(text.parent()->parent())->verticalScrollBar();
    bar.setValue(bar.maximum());
    EXPECT_LT(text.y(), 0) << "its end can't be reached";
    Do("lstUnits#1");
    QApplication::processEvents();
    EXPECT_EQ(text.y(), 0) << "the next text doesn't start at its head";
}

TEST_F(ArmyComposerTest, RowsAreMovedAndRemoved) {
    const std::tuple<const char*, const char*, const char*> kSteps[] = {
        {"lstRosterUnits#1 cmdUnitMoveDown", "Archer Golem Cart* Archer Golem Cart ", "1"},
        {"lstRosterUnits#1 cmdUnitMoveUp", "Cart* Archer Golem Cart Archer Golem ", "1"},
        {"lstRosterUnits#0 cmdUnitMoveUp", "Archer* Cart Golem Archer Cart Golem ", ""},
        {"lstRosterUnits#2 cmdRemoveUnit", "Archer Cart Archer Cart ", "1"},
    };
    for (const auto& [actions, rowsAndRoster, marked] : kSteps) {
        OpenOn({"Archer", "Cart", "Golem"});
        Do(actions);
        EXPECT_EQ(Items("lstRosterUnits") + Roster(), rowsAndRoster);
        ExpectClosing(marked);
    }
}

TEST_F(ArmyComposerTest, FieldsGoStraightIntoTheRosterAndCountAtClosing) {
    OpenOn({});
    Do("tedName=" + std::string(51, 'x'));
    EXPECT_EQ(MGlobal::ArmyRoster().Name() + TakeMarks(), std::string(50, 'x'));
    ExpectClosing("1");
}

TEST_F(ArmyComposerTest, DeletesAllAndUpdatesCosts) {
    AddOfType("Gh\xF6st", CUnit::Infantry);
    OpenOn({"Golem", "Gh\xF6st", "Drone"});
    for (const char* gone : {"GOLEM", "GH\xD6ST", "DRONE"})
        Units().Remove(gone);
    AddOfType("Golem", CUnit::Vehicle);
    const std::string question = "Are you sure you want to remove all the units from the army?";
    Question(question, false);
    Do("cmdMenu(0) lstRosterUnits#1");
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "Gh\xF6st:\r\nUNABLE TO RETRIEVE INFORMATION");
    ExpectClosing("");
    Open<FArmyComposer>();
    Expect(BoxKind::Warning,
           "It was not possible to find the following units in the Army List:\r\nGh\xC3\xB6st\r\nDrone");
    Expect(BoxKind::Information, "Recalculation complete.");
    Do("cmdMenu(1)");
    EXPECT_EQ(Totals() + " " + TakeMarks(), "Units in Army: 3 / 17 1");  // a golem at 7 now, 5, 5
    Units().Item("Golem").SingleUnit().SetStatValue(CUnit::MV, 13);
    AddOfType("Drone", CUnit::SlaveRobot);
    EXPECT_EQ(ErrorOf([] { Units().Item("Drone").SingleUnit().SetSpecialProp(CUnit::HeroicSave, 6554); }), 6);
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    Do("cmdMenu(1)");
    EXPECT_EQ(Totals() + " " + TakeMarks(), "Units in Army: 3 / 20 1") << "what is renewed up to an error is shown";
    ExpectClosing("1");
    Open<FArmyComposer>();
    Question(question);
    Do("cmdMenu(0)");
    EXPECT_EQ(Totals() + " " + TakeMarks(), "Units in Army: 0 / 0 1");
}

TEST_F(ArmyComposerTest, ReloadForgetsTheChangesWhateverItFinds) {
    const char* question =
        "Are you sure you want to reload the Army Roster? All changes since the last save will be lost!";
    Save("broken", "[TOP]");
    const std::string gone = folder_ / "g\xC3\xA9";
    const std::tuple<std::string, BoxAnswer, std::string, const char*, const char*> kReloads[] = {
        {folder_ / "roster", BoxAnswer::Cancel, "", "Units in Army: 2 / 12 1", "1"},
        {folder_ / "roster", BoxAnswer::Ok, "", "Units in Army: 1 / 7 ", ""},
        {"", BoxAnswer::Ok, "No army roster file selected.", "Units in Army: 2 / 12 ", "1"},
        {gone, BoxAnswer::Ok, "File \"" + gone + "\" does not exits.", "Units in Army: 2 / 12 ", "1"},
        {folder_ / "broken", BoxAnswer::Ok, "Error while reading army roster.", "Units in Army: 0 / 0 ", ""},
    };
    for (const auto& [file, answer, box, totals, marked] : kReloads) {
        OpenOn({"Cart"});
        Do("lstUnits##0");
        MGlobal::SetArmyRosterFile(file);
        if (!file.empty()) platform_.ExpectBox(BoxKind::Question, BoxButtons::OkCancel, question, answer);
        if (!box.empty()) Expect(file.empty() ? BoxKind::Critical : BoxKind::Warning, box);
        Do("cmdMenu(2)");
        EXPECT_EQ(Totals() + " " + TakeMarks(), totals) << box;
        ExpectClosing(marked);
    }
}

TEST_F(ArmyComposerTest, SaveTakesTheMarkAwayAndClosingBringsBackWhatIsNotSaved) {
    const std::tuple<bool, const char*, const char*, const char*> kCases[] = {
        // the answer, the file, what was done to a roster that is marked already, and the mark in the end
        {true, "roster", "lstUnits##1", ""},
        {false, "roster", "lstUnits##1", "1"},
        {true, "none/r", "lstUnits##1", "1"},
        {false, "roster", "", "1"},
        {true, "none/r", "", "1"},
    };
    for (const auto& [yes, file, actions, marked] : kCases) {
        SCOPED_TRACE((yes ? "Yes, " : "No, ") + std::string(file) + (*actions != 0 ? ", changed" : ", as it was"));
        MGlobal::SetFileModified(MGlobal::ArmyRosterDocument, true);
        OpenOn({});
        const std::string before = ReadBytes(folder_ / "roster");
        Do(actions);
        const bool saved = yes && file == std::string("roster");
        MGlobal::SetArmyRosterFile(folder_ / file);
        Question("Save changes to file?", yes);
        if (yes && !saved) Expect(BoxKind::Warning, "Error while saving army roster.");
        Do("cmdMenu(5)");
        EXPECT_EQ(TakeMarks(), "");
        ExpectClosing(marked);
        EXPECT_EQ(ReadBytes(folder_ / "roster") != before, saved) << file;
    }
}

TEST_F(ArmyComposerTest, PictureIsLoadedAtEachChange) {
    QImage(40, 20, QImage::Format_RGB32).save(QString::fromStdString(folder_ / "fl\xC3\xA4g.png"));
    const std::string chosen = folder_ / "fl\xE4g.png";  // in the code page
    const auto picture = [this] {
        return MGlobal::ArmyRoster().PictureFile() + (Control("imgPicture").isVisible() ? "!" : "");
    };
    // A relative path is offered as the full one that it stands for: that of the document, and one that was typed.
    MGlobal::ArmyRoster().SetPictureFile("fl\xE4g.png");
    OpenOn({});
    const auto offers = [this](const std::string& path) {
        return [=, this](const CFileDialog& dialog) { EXPECT_EQ(dialog.FileName, folder_ / path); };
    };
    platform_.ExpectOpen("", offers("fl\xC3\xA4g.png"));
    Do("cmdPictureFileClear cmdPictureFileSelect");
    Control<QXTextEdit>("tedPictureFile").SetText("./fl\xE4g.png");
    platform_.ExpectOpen(folder_ / "fl\xC3\xA4g.png", offers("./fl\xC3\xA4g.png"));
    Do("cmdPictureFileSelect");
    EXPECT_EQ(Text("tedPictureFile") + picture(), chosen + chosen + "!");
    Expect(BoxKind::Critical, "Error while loading image (481 : Invalid picture)");
    Control<QXTextEdit>("tedPictureFile").SetText(Save("broken.jpg", "no picture"));
    EXPECT_EQ(picture(), chosen + "!");
    Do("cmdPictureFileClear");
    EXPECT_EQ(picture(), "");
    ExpectClosing("1");
}

}  // namespace
