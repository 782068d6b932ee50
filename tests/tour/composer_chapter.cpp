#include "tour/tour.h"

void CTour::PickAnArmy() {
    Enter("cmdArmyComposer", "Compose your army");
    armyComposer_.Costs("1269").Shows("frmTarget", "Units in Army: 14");
    armyComposer_.ClickRow("lstUnits", "Ash Drake and Rider").ClickRow("lstRosterUnits", "Coil Fusilier");
    armyComposer_.Picture("army_composer_scifi");

    Tell("adds a squad, adds a rider and takes him out again");
    armyComposer_.Choose("cmbUnitType", "Squads").DoubleClickRow("lstUnits", "Hedge Fire");
    armyComposer_.Costs("1452.5");  // 183.5 more
    armyComposer_.Choose("cmbUnitType", "Flyers").ClickRow("lstUnits", "Skyhook Lancer");
    armyComposer_.Click("cmdAddUnit").Costs("1503.5");
    armyComposer_.ClickRow("lstRosterUnits", "Skyhook Lancer").Click("cmdRemoveUnit").Costs("1452.5");

    Tell("puts the squad further up, names the army, and brings the costs up to date");
    armyComposer_.ClickRow("lstRosterUnits", "Hedge Fire").Click("cmdUnitMoveUp");
    armyComposer_.Type("tedName", "Ford Watch").Click(MMenu::UpdateCosts);
    Box("Recalculation complete.", "OK", "update_costs_box");
    armyComposer_.Costs("1452.5");
}

void CTour::ViewAndSaveTheRoster() {
    const QString page = folder_ + "/ford_watch.html";
    Tell("looks at a unit and at the roster, and saves the page");
    armyComposer_.Choose("cmbUnitType", "All").ClickRow("lstUnits", "Hedge Fire").Click("cmdShowSelUnit");
    unitViewer_.Picture("unit_viewer_scifi").Click("cmdExit");
    armyComposer_.Click(MMenu::ViewArmy);
    pageViewer_.HasTitle("Ford Watch").Picture("army_roster_scifi").Click("cmdSaveAs");
    fileDialog_.Shows("fileNameEdit", "Ford Watch.html").Picture("save_dialog");
    fileDialog_.Type("fileNameEdit", page).Answer("Save");
    Holds(page, "<H3>Total Cost: 1452.5</H3>");
    Equal(page, PageFile());
    pageViewer_.Click("cmdExit");
}

void CTour::MindThePicture() {
    Tell("clears the picture, mistypes another, and selects the old one again");
    armyComposer_.Click("cmdPictureFileClear").Shows("tedPictureFile", "").Type("tedPictureFile", "x");
    box_.Picture("picture_box").Answer("OK");
    armyComposer_.Click("cmdPictureFileSelect");
    FileDialog("Open", "harrow_march.jpg", "Open");
    armyComposer_.Shows("tedPictureFile", DataFile("harrow_march.jpg")).Click("cmdExit");
}

void CTour::SeeTheComposerInTheOtherSkin() {
    Enter("cmdArmyComposer", "Compose your army");
    armyComposer_.ClickRow("lstUnits", "Keep Crawler").ClickRow("lstRosterUnits", "Ash Drake and Rider");
    armyComposer_.Picture("army_composer_fantasy").Click("cmdShowSelUnit");
    unitViewer_.Picture("unit_viewer_fantasy").Click("cmdExit");
    armyComposer_.Click(MMenu::ViewArmy);
    pageViewer_.Picture("army_roster_fantasy").Click("cmdExit");
    armyComposer_.Click("cmdExit");
}
