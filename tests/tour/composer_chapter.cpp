#include "tour/composer_chapter.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QTest>

#include "controls/ansi_qt.h"
#include "core/state/global.h"
#include "units/army_roster.h"

using namespace Qt::StringLiterals;

void CComposerChapter::PickAnArmy() {
    guide_.At(u"FConsole"_s, u"opens the Army Composer"_s,
              [this](QWidget& console) { guide_.Click(console, u"cmdArmyComposer"_s); });
    guide_.At(u"FArmyComposer"_s, u"finds the sample roster and its total"_s, [this](QWidget& composer) {
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1269"_s, u"total of the sample roster"_s);
        guide_.CheckEqual(guide_.TextOf(composer, u"frmTarget"_s), u"Units in Army: 14"_s, u"caption"_s);
        guide_.ClickRow(composer, u"lstUnits"_s, u"Ash Drake and Rider"_s);
        guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Coil Fusilier"_s);
        guide_.Picture(composer, u"army_composer_scifi"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"adds a squad: 183.5 points more"_s, [this](QWidget& composer) {
        guide_.Choose(composer, u"cmbUnitType"_s, u"Squads"_s);
        guide_.DoubleClickRow(composer, u"lstUnits"_s, u"Hedge Fire"_s);
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1452.5"_s, u"total with the squad"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"adds a rider and takes him out again"_s, [this](QWidget& composer) {
        guide_.Choose(composer, u"cmbUnitType"_s, u"Flyers"_s);
        guide_.ClickRow(composer, u"lstUnits"_s, u"Skyhook Lancer"_s);
        guide_.Click(composer, u"cmdAddUnit"_s);
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1503.5"_s, u"total with the rider"_s);
        guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Skyhook Lancer"_s);
        guide_.Click(composer, u"cmdRemoveUnit"_s);
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1452.5"_s, u"total without the rider"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"puts the squad further up and names the army"_s, [this](QWidget& composer) {
        guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Hedge Fire"_s);
        guide_.Click(composer, u"cmdUnitMoveUp"_s);
        guide_.CheckEqual(int(MGlobal::ArmyRoster().ArmyUnits().GetIndex("HEDGE FIRE")), 14, u"place of the squad"_s);
        guide_.Type(composer, u"tedName"_s, u"Ford Watch"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"brings the costs up to date"_s,
              [this](QWidget& composer) { guide_.Click(composer, u"cmdMenu(1)"_s); });
    guide_.At(u"QMessageBox"_s, u"is told that it is done"_s, [this](QWidget& box) {
        guide_.Picture(box, u"update_costs_box"_s);
        guide_.Answer(box, u"OK"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"finds the same total"_s, [this](QWidget& composer) {
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1452.5"_s, u"total after the update"_s);
    });
}

void CComposerChapter::ViewAUnit() {
    guide_.At(u"FArmyComposer"_s, u"looks at a unit"_s, [this](QWidget& composer) {
        guide_.Choose(composer, u"cmbUnitType"_s, u"All"_s);
        guide_.ClickRow(composer, u"lstUnits"_s, u"Hedge Fire"_s);
        guide_.Click(composer, u"cmdShowSelUnit"_s);
    });
    guide_.At(u"FUnitViewer"_s, u"the unit viewer"_s, [this](QWidget& viewer) {
        guide_.Picture(viewer, u"unit_viewer_scifi"_s);
        guide_.Click(viewer, u"cmdExit"_s);
    });
}

void CComposerChapter::ViewAndSaveTheRoster() {
    guide_.At(u"FArmyComposer"_s, u"views the roster"_s,
              [this](QWidget& composer) { guide_.Click(composer, u"cmdMenu(3)"_s); });
    guide_.At(u"FArmyRoster"_s, u"the roster page; saves it"_s, [this](QWidget& viewer) {
        guide_.CheckEqual(viewer.windowTitle(), u"Ford Watch"_s, u"caption of the roster window"_s);
        guide_.Picture(viewer, u"army_roster_scifi"_s);
        guide_.Click(viewer, u"cmdSaveAs"_s);
    });
    guide_.At(u"QFileDialog"_s, u"the save dialog offers the army's name"_s, [this](QWidget& dialog) {
        auto* name = dialog.findChild<QLineEdit*>();
        guide_.CheckEqual(QFileInfo(name->text()).fileName(), u"Ford Watch.html"_s, u"name offered"_s);
        guide_.Picture(dialog, u"save_dialog"_s);
        name->setText(folder_ + u"/ford_watch.html"_s);
        guide_.Answer(dialog, u"Save"_s);
    });
    guide_.At(u"FArmyRoster"_s, u"the saved page is the page shown"_s, [this](QWidget& viewer) {
        const QByteArray page = Content(folder_ + u"/ford_watch.html"_s);
        guide_.Check(page.contains("<H3>Total Cost: 1452.5</H3>"), u"the saved page lacks the total"_s);
        guide_.Check(page == Content(home_ + u"/tmproster.html"_s), u"the saved page is not the page shown"_s);
        guide_.Click(viewer, u"cmdExit"_s);
    });
}

void CComposerChapter::MindThePicture() {
    guide_.At(u"FArmyComposer"_s, u"clears the picture, and mistypes another"_s, [this](QWidget& composer) {
        guide_.Click(composer, u"cmdPictureFileClear"_s);
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPictureFile"_s), QString(), u"picture cleared"_s);
        QTest::keyClicks(composer.findChild<QLineEdit*>(u"tedPictureFile"_s), u"x"_s);
    });
    guide_.At(u"QMessageBox"_s, u"is told that there is no such picture"_s, [this](QWidget& box) {
        guide_.Picture(box, u"picture_box"_s);
        guide_.Answer(box, u"OK"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"selects the old one again"_s,
              [this](QWidget& composer) { guide_.Click(composer, u"cmdPictureFileSelect"_s); });
    guide_.AtFileDialog(u"the picture dialog"_s, u"Open"_s, u"harrow_march.jpg"_s, u"Open"_s);
}

void CComposerChapter::LeaveTheComposer() {
    guide_.At(u"FArmyComposer"_s, u"closes the composer"_s, [this](QWidget& composer) {
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPictureFile"_s), DataFile(u"harrow_march.jpg"_s), u"picture"_s);
        guide_.Click(composer, u"cmdExit"_s);
    });
}

void CComposerChapter::SeeTheOtherSkin() {
    guide_.At(u"FConsole"_s, u"opens the Army Composer in the other skin"_s,
              [this](QWidget& console) { guide_.Click(console, u"cmdArmyComposer"_s); });
    guide_.At(u"FArmyComposer"_s, u"the composer in the other skin"_s, [this](QWidget& composer) {
        guide_.ClickRow(composer, u"lstUnits"_s, u"Keep Crawler"_s);
        guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Ash Drake and Rider"_s);
        guide_.Picture(composer, u"army_composer_fantasy"_s);
        guide_.Click(composer, u"cmdShowSelUnit"_s);
    });
    guide_.At(u"FUnitViewer"_s, u"the unit viewer in the other skin"_s, [this](QWidget& viewer) {
        guide_.Picture(viewer, u"unit_viewer_fantasy"_s);
        guide_.Click(viewer, u"cmdExit"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"views the roster on parchment"_s,
              [this](QWidget& composer) { guide_.Click(composer, u"cmdMenu(3)"_s); });
    guide_.At(u"FArmyRoster"_s, u"the roster page on parchment"_s, [this](QWidget& viewer) {
        guide_.Picture(viewer, u"army_roster_fantasy"_s);
        guide_.Click(viewer, u"cmdExit"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"closes the composer"_s,
              [this](QWidget& composer) { guide_.Click(composer, u"cmdExit"_s); });
}

void CComposerChapter::CheckSavedRoster() {
    CArmyRoster roster;
    guide_.Check(roster.ReadInfo(ToPath(DataFile(u"Harrow March.v2r"_s))), u"the saved roster can't be read"_s);
    guide_.CheckEqual(FromAnsi(roster.Name()), u"Ford Watch"_s, u"name of the saved roster"_s);
    guide_.CheckEqual(int(roster.ArmyUnits().Count()), 16, u"entries of the saved roster"_s);
}
