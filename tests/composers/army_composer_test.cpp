#include "composers/army_composer.h"

#include <QApplication>
#include <QImage>

#include "composers/composer_test.h"
#include "composers/unit_filter.h"
#include "units/army_roster.h"

using namespace MFormDriver;

namespace {

class ArmyComposerTest : public ComposerTest<FArmyComposer> {
  protected:
    ArmyComposerTest() : ComposerTest(MGlobal::ArmyRosterDocument) {}

    std::string RosterFile(const std::vector<SEntry>& entries, const std::string& picture = "") {
        WriteBytes(folder_ / "roster", Document("#ARMYROSTER", picture, false, entries));
        return folder_ / "roster";
    }
    // Opens the form on a roster of these entries.
    void Open(const std::vector<SEntry>& entries = {}, const std::string& picture = "") {
        MGlobal::SetArmyRosterFile(RosterFile(entries, picture));
        EXPECT_TRUE(MGlobal::ArmyRoster().ReadInfo(MGlobal::ArmyRosterFile()));
        form_.ShowNonModal();
    }
    // Where the total and the count stand.
    std::string Totals() { return Control<QXFrame>("frmTarget").Caption() + " / " + Text("tedPointCost"); }
    static Rows Roster() {
        Rows names;
        for (const CGenUnit& unit : std::as_const(MGlobal::ArmyRoster()).ArmyUnits())
            names.push_back(unit.Name());
        return names;
    }
};

TEST_F(ArmyComposerTest, OpensOnTheWorkingDocuments) {
    Open({{"Cart", 1, "40", 2}, {"Archer", 0, "10.5"}});
    EXPECT_EQ(form_.Caption(), "Army Composer");
    EXPECT_EQ(Text("tedName") + "/" + Text("tedDescr") + "/" + Text("tedPictureFile"), "Host/Spring/");
    EXPECT_EQ(Totals(), "Units in Army: 2 / 50.5");
    EXPECT_EQ(ListRows("lstUnits"), (Rows{"Archer", "Cart", "Drone", "Golem", "Patrol", "Ren\xE9"}));
    EXPECT_EQ(ListRows("lstRosterUnits"), (Rows{"Cart", "Archer"}));
    for (const char* button : {"cmdAddUnit", "cmdShowSelUnit", "cmdRemoveUnit", "cmdUnitMoveUp", "cmdUnitMoveDown"})
        EXPECT_FALSE(Enabled(button)) << button;
    for (const char* list : {"cmbUnitType", "cmbArmyUnitType"}) {
        auto& choices = Control<QXChoiceList>(list);
        EXPECT_EQ(choices.Text() + "/" + choices.List(6) + "/" + choices.PromptText(),
                  "All/Specials/Select filter for units:");
        EXPECT_EQ(choices.ListWidth(), 3500);
    }
    EXPECT_FALSE(Shown("cmdMenu(4)") || Shown("imgPicture") || Shown("lblPictureTip"));
    EXPECT_TRUE(Shown("cmdMenu(5)") && Enabled("cmdMenu(5)"));
    EXPECT_TRUE(Control<QXTextEdit>("tedPointCost").Locked());
    EXPECT_EQ(Find(form_, "lstRosterUnits")->accessibleName(), "Units in Army: 2");
    EXPECT_FALSE(Modified());
    EXPECT_FALSE(ClosingMarks());
}

TEST_F(ArmyComposerTest, AddedEntriesCountEachTime) {
    Open();
    EXPECT_EQ(Totals(), "Units in Army: 0 / 0");
    ClickRow(form_, "lstUnits", 0);
    EXPECT_TRUE(Enabled("cmdAddUnit") && Enabled("cmdShowSelUnit"));
    for (const char* totals : {"Units in Army: 1 / 10.5", "Units in Army: 2 / 21", "Units in Army: 3 / 31.5"}) {
        Click(form_, "cmdAddUnit");
        EXPECT_EQ(Totals(), totals);
    }
    EXPECT_TRUE(Modified());
    EXPECT_EQ(ListRows("lstRosterUnits"), (Rows{"Archer", "Archer", "Archer"}));
    ClickRow(form_, "lstUnits", 4, true);
    EXPECT_EQ(Totals(), "Units in Army: 4 / 82");  // the squad, 50.5, by a double click
    EXPECT_EQ(Roster().back(), "Patrol");
    EXPECT_FALSE(MGlobal::ArmyRoster().ArmyUnits().Item(4).FullInfo());
    EXPECT_TRUE(ClosingMarks());
}

TEST_F(ArmyComposerTest, FiltersShowAndActOnTheWholeRosterAllTheSame) {
    Open({{"Cart", 1, "40"}, {"Archer", 0, "10"}, {"Golem", 3, "30"}, {"Drone", 2, "7"}});
    ClickRow(form_, "lstUnits", 1);
    ClickRow(form_, "lstRosterUnits", 1);
    Choose(form_, "cmbUnitType", MUnitFilter::Squads);
    EXPECT_EQ(ListRows("lstUnits"), Rows{"Patrol"});
    EXPECT_EQ(Info("lblSpecialDescr(0)"), "");
    EXPECT_FALSE(Enabled("cmdAddUnit"));
    EXPECT_TRUE(Enabled("cmdRemoveUnit"));

    Choose(form_, "cmbArmyUnitType", MUnitFilter::Robots);
    EXPECT_EQ(ListRows("lstRosterUnits"), (Rows{"Golem", "Drone"}));
    EXPECT_EQ(Info("lblSpecialDescr(1)"), "");
    EXPECT_FALSE(Enabled("cmdRemoveUnit"));
    EXPECT_EQ(Totals(), "Units in Army: 4 / 87");
    EXPECT_FALSE(Modified());

    ClickRow(form_, "lstUnits", 0);
    Click(form_, "cmdAddUnit");  // doesn't pass the filter, but counts
    EXPECT_EQ(ListRows("lstRosterUnits").size(), 2u);
    EXPECT_EQ(Totals(), "Units in Army: 5 / 137.5");

    ClickRow(form_, "lstRosterUnits", 0);
    Click(form_, "cmdUnitMoveDown");  // the rows change places, and so do the first two of the whole roster
    EXPECT_EQ(ListRows("lstRosterUnits"), (Rows{"Drone", "Golem"}));
    EXPECT_EQ(Roster(), (Rows{"Archer", "Cart", "Golem", "Drone", "Patrol"}));
    EXPECT_FALSE(Enabled("cmdUnitMoveDown"));

    ClickRow(form_, "lstRosterUnits", 0, true);  // a double click removes the first entry of all
    EXPECT_EQ(Roster(), (Rows{"Cart", "Golem", "Drone", "Patrol"}));
    EXPECT_EQ(ListRows("lstRosterUnits"), (Rows{"Golem", "Drone"}));
}

TEST_F(ArmyComposerTest, RemoveTakesTheSelectedRow) {
    Open({{"Cart", 1, "40"}, {"Archer", 0, "10.5"}, {"Cart", 1, "40"}});
    ClickRow(form_, "lstRosterUnits", 2);
    EXPECT_TRUE(Enabled("cmdRemoveUnit"));
    Click(form_, "cmdRemoveUnit");
    EXPECT_EQ(Roster(), (Rows{"Cart", "Archer"}));
    EXPECT_EQ(Totals(), "Units in Army: 2 / 50.5");
    EXPECT_FALSE(Enabled("cmdRemoveUnit"));
    EXPECT_TRUE(Modified());
    EXPECT_TRUE(ClosingMarks());
}

TEST_F(ArmyComposerTest, MovesFollowTheRow) {
    const struct {
        int row;
        const char* button;
        Rows rows;
        const char* after;  // the selected row, and the moves that are enabled
        bool modified;
    } cases[] = {
        {0, "cmdUnitMoveDown", {"Cart", "Archer", "Golem"}, "1 up down", true},
        {1, "cmdUnitMoveDown", {"Archer", "Golem", "Cart"}, "2 up", true},
        {2, "cmdUnitMoveUp", {"Archer", "Golem", "Cart"}, "1 up down", true},
        {1, "cmdUnitMoveUp", {"Cart", "Archer", "Golem"}, "0 down", true},
        {0, "cmdUnitMoveUp", {"Archer", "Cart", "Golem"}, "0 down", false},
        {2, "cmdUnitMoveDown", {"Archer", "Cart", "Golem"}, "2 up", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.button) + " " + std::to_string(c.row));
        Open({{"Archer", 0, "10"}, {"Cart", 1, "40"}, {"Golem", 3, "30"}});
        ClickRow(form_, "lstRosterUnits", c.row);
        const std::string info = Info("lblSpecialDescr(1)");
        Click(form_, c.button);
        EXPECT_EQ(ListRows("lstRosterUnits"), c.rows);
        EXPECT_EQ(Roster(), c.rows);
        EXPECT_EQ(std::to_string(Control<CListBox>("lstRosterUnits").ListIndex()) +
                      (Enabled("cmdUnitMoveUp") ? " up" : "") + (Enabled("cmdUnitMoveDown") ? " down" : ""),
                  c.after);
        EXPECT_EQ(Info("lblSpecialDescr(1)"), info);
        EXPECT_EQ(Modified(), c.modified);
        EXPECT_EQ(ClosingMarks(), c.modified);
    }
}

TEST_F(ArmyComposerTest, InformationComesFromTheListOnBothSides) {
    Open({{"Golem", 3, "99"}, {"Ghost", 0, "5"}});
    ClickRow(form_, "lstUnits", 5);
    EXPECT_EQ(Info("lblSpecialDescr(0)"), "Ren\xE9:\r\nPoint Cost: 20\r\n\r\nAbout Ren\xE9");
    ClickRow(form_, "lstUnits", 4);
    EXPECT_EQ(Info("lblSpecialDescr(0)"), "Patrol:\r\nPoint Cost: 50.5\r\nSquad\r\n");
    ClickRow(form_, "lstRosterUnits", 0);
    EXPECT_EQ(Info("lblSpecialDescr(1)").substr(0, 22), "Golem:\r\nPoint Cost: 30");
    ClickRow(form_, "lstRosterUnits", 1);
    EXPECT_EQ(Info("lblSpecialDescr(1)"), "Ghost:\r\nUNABLE TO RETRIEVE INFORMATION");

    auto& label = Control<QXLabel>("lblSpecialDescr(0)");
    for (const std::string& word : {std::string("several words "), std::string("W")}) {
        std::string descr;
        while (descr.size() < 254)
            descr += word;
        MGlobal::ArmyList().ArmyUnits().Item("Archer").SetDescr(descr.substr(0, 254));
        ClickRow(form_, "lstUnits", 0);
        for (int level = 0; level < 3; ++level)
            QApplication::processEvents();  // the layouts follow one after the other
        EXPECT_GE(label.height(), label.heightForWidth(label.width())) << "The text is clipped: " << word;
    }
}

TEST_F(ArmyComposerTest, FieldsGoStraightIntoTheRosterAndCountAtClosing) {
    for (const char* field : {"tedName", "tedDescr"}) {
        Open();
        Retype(form_, field, QString(120, u'\u00e9'));
        const bool name = std::string(field) == "tedName";
        EXPECT_EQ(name ? MGlobal::ArmyRoster().Name() : MGlobal::ArmyRoster().Descr(),
                  std::string(name ? 50 : 100, '\xE9'));
        EXPECT_FALSE(Modified());
        EXPECT_TRUE(ClosingMarks()) << field;
    }
}

TEST_F(ArmyComposerTest, DeleteAllAsksFirst) {
    for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        const bool yes = answer == BoxAnswer::Yes;
        Open({{"Cart", 1, "40"}});
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo,
                            "Are you sure you want to remove all the units from the army?", answer);
        Click(form_, "cmdMenu(0)");
        EXPECT_EQ(Totals(), yes ? "Units in Army: 0 / 0" : "Units in Army: 1 / 40");
        EXPECT_EQ(Modified(), yes);
        EXPECT_EQ(ClosingMarks(), yes);
    }
}

TEST_F(ArmyComposerTest, UpdateCostsRenewsWhatTheListKnows) {
    Open({{"Golem", 3, "99", 2}, {"Gh\xF6st", 0, "5"}, {"Wraith", 0, "1"}});
    ClickRow(form_, "lstRosterUnits", 0);
    Expect(BoxKind::Warning,
           "It was not possible to find the following units in the Army List:\r\nGh\xC3\xB6st\r\nWraith");
    Expect(BoxKind::Information, "Recalculation complete.");
    Click(form_, "cmdMenu(1)");
    EXPECT_EQ(Totals(), "Units in Army: 3 / 66");  // two golems at 30, 5, 1
    EXPECT_EQ(Info("lblSpecialDescr(1)"), "");
    EXPECT_TRUE(Modified());
    EXPECT_TRUE(ClosingMarks());

    Open({});
    Expect(BoxKind::Information, "Recalculation complete.");
    Click(form_, "cmdMenu(1)");
}

TEST_F(ArmyComposerTest, ReloadForgetsTheChangesWhateverItFinds) {
    const std::string question =
        "Are you sure you want to reload the Army Roster? All changes since the last save will be lost!";
    const std::string gone = folder_ / "g\xC3\xA9";
    const struct {
        std::string file;
        BoxAnswer answer;
        std::string box;
        const char* totals;
    } cases[] = {
        {folder_ / "roster", BoxAnswer::Cancel, "", "Units in Army: 2 / 50.5"},
        {folder_ / "roster", BoxAnswer::Ok, "", "Units in Army: 1 / 40"},
        {"", BoxAnswer::Ok, "No army roster file selected.", "Units in Army: 2 / 50.5"},
        {gone, BoxAnswer::Ok, "File \"" + gone + "\" does not exits.", "Units in Army: 2 / 50.5"},
        {folder_.Path(), BoxAnswer::Ok, "File \"" + folder_.Path() + "\" does not exits.", "Units in Army: 2 / 50.5"},
        {folder_ / "list", BoxAnswer::Ok, "Error while reading army roster.", "Units in Army: 0 / 0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.box + c.totals);
        Open({{"Cart", 1, "40"}});
        ClickRow(form_, "lstUnits", 0, true);
        MGlobal::SetArmyRosterFile(c.file);
        if (!c.file.empty()) platform_.ExpectBox(BoxKind::Question, BoxButtons::OkCancel, question, c.answer);
        if (!c.box.empty()) Expect(c.file.empty() ? BoxKind::Critical : BoxKind::Warning, c.box);
        Click(form_, "cmdMenu(2)");
        platform_.Verify();
        EXPECT_EQ(Totals(), c.totals);
        EXPECT_EQ(Modified(), c.answer == BoxAnswer::Cancel);
        EXPECT_EQ(ClosingMarks(), c.answer == BoxAnswer::Cancel);
    }
}

TEST_F(ArmyComposerTest, SaveForgetsTheChangesWhateverTheAnswer) {
    const struct {
        BoxAnswer answer;
        const char* file;
        bool saved;
    } cases[] = {{BoxAnswer::Yes, "roster", true}, {BoxAnswer::No, "roster", false}, {BoxAnswer::Yes, "none/r", false}};
    for (const auto& c : cases) {
        Open();
        const std::string before = ReadBytes(folder_ / "roster");
        ClickRow(form_, "lstUnits", 1, true);
        MGlobal::SetArmyRosterFile(folder_ / c.file);
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, "Save changes to file?", c.answer);
        if (c.answer == BoxAnswer::Yes && !c.saved) Expect(BoxKind::Warning, "Error while saving army roster.");
        Click(form_, "cmdMenu(5)");
        EXPECT_FALSE(Modified());
        EXPECT_FALSE(ClosingMarks());
        EXPECT_EQ(ReadBytes(folder_ / "roster") != before, c.saved) << c.file;
    }
    MGlobal::SetArmyRosterFile("");
    form_.ShowNonModal();
    EXPECT_FALSE(Enabled("cmdMenu(5)"));
}

TEST_F(ArmyComposerTest, PictureIsLoadedAtEachChange) {
    QImage(40, 20, QImage::Format_RGB32).save(QString::fromStdString(folder_ / "fl\xC3\xA4g.png"));
    WriteBytes(folder_ / "broken.jpg", "no picture");
    Open();
    const auto expect = [this](const char* picture, bool shown) {
        EXPECT_EQ(MGlobal::ArmyRoster().PictureFile(), picture);
        EXPECT_EQ(Shown("imgPicture"), shown);
        EXPECT_EQ(Shown("lblPictureTip"), shown);
        EXPECT_FALSE(platform_.Busy);
    };
    auto& field = Control<QXTextEdit>("tedPictureFile");
    Expect(BoxKind::Critical, "Error while loading image (53 : File not found)");
    field.SetText("gone.jpg");
    expect("", false);
    Expect(BoxKind::Critical, "Error while loading image (76 : Path not found)");
    field.SetText("none/gone.jpg");
    EXPECT_FALSE(ClosingMarks());

    form_.ShowNonModal();
    platform_.ExpectOpen("", [this](const CFileDialog& dialog) {
        EXPECT_EQ(dialog.InitDir, folder_ / "Data");
        EXPECT_EQ(dialog.Flags, 4098u);
        EXPECT_EQ(dialog.Filter, "Image Files (*.jpg;*.gif;*.bmp))|*.jpg;*.gif;*.bmp|");
        EXPECT_EQ(dialog.DefaultExt + dialog.FileName + dialog.DialogTitle, "*.jpg");
    });
    Click(form_, "cmdPictureFileSelect");
    expect("", false);
    platform_.ExpectOpen(folder_ / "fl\xC3\xA4g.png");
    Click(form_, "cmdPictureFileSelect");
    const std::string chosen = folder_ / "fl\xE4g.png";  // in the code page
    expect(chosen.c_str(), true);
    EXPECT_EQ(field.Text(), chosen);
    Expect(BoxKind::Critical, "Error while loading image (481 : Invalid picture)");
    field.SetText("broken.jpg");
    expect(chosen.c_str(), true);
    Click(form_, "cmdPictureFileClear");
    expect("", false);
    EXPECT_TRUE(ClosingMarks());
    EXPECT_EQ(platform_.BusyCount, 6);  // reopening emptied the field
}

TEST_F(ArmyComposerTest, MissingPictureIsReportedOnOpening) {
    Expect(BoxKind::Critical, "Error while loading image (53 : File not found)");
    Open({}, "gone.jpg");
    EXPECT_EQ(Text("tedPictureFile"), "gone.jpg");
    ClickRow(form_, "lstUnits", 0, true);  // the same text isn't tried again
    EXPECT_EQ(MGlobal::ArmyRoster().PictureFile(), "gone.jpg");
}

TEST_F(ArmyComposerTest, ViewsOpenAboveTheForm) {
    Open({{"Cart", 1, "40"}});
    std::string seen;
    const auto look = [&seen](CForm& viewer) {
        seen += viewer.Name() + " ";
        Click(viewer, "cmdExit");
    };
    WhileModal(look);
    Click(form_, "cmdMenu(3)");
    ClickRow(form_, "lstUnits", 4);
    WhileModal(look);
    Click(form_, "cmdShowSelUnit");
    EXPECT_EQ(seen, "FArmyRoster FUnitViewer ");
    EXPECT_FALSE(ClosingMarks());
}

TEST_F(ArmyComposerTest, ButtonUnderThePointerHasABorder) {
    Open();
    const auto border = [this](const char* name) { return Control<QXColorButton>(name).BorderStyle(); };
    MGlobal::SetSkinId(2);
    Hover(form_, "cmdMenu(0)");
    Hover(form_, "cmdMenu(1)");
    EXPECT_EQ(border("cmdMenu(0)") * 10 + border("cmdMenu(1)"), 1);
    Hover(form_, "lstUnits");
    EXPECT_EQ(border("cmdMenu(1)"), 0);
}

}  // namespace
