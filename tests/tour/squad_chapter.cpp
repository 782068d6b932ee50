#include "tour/tour.h"

void CTour::SeeTheSampleSquads() {
    Enter("cmdSquadComposer", "Compose the squads");
    squadComposer_.Click("cmdNext").Costs("244.25");  // 86 + 4 x 18 + 86.25
    squadComposer_.ClickRow("lstUnits", "Castellan Renée Harrow").ClickRow("lstSquadUnits", "Tin Thrall");
    squadComposer_.Picture("squad_composer_scifi").Click("cmdExit");

    Enter("cmdArmyList", "Check the army list");
    armyList_.Click("optFilter(5)")
        .ClickRow("lstUnits", "Ford Heron")
        .Picture("army_list_scifi")
        .Click("cmdDeleteFromDb");
    Box("Delete unit \"Ford Heron\" from Army List?", "No");
    armyList_.Click("cmdExit");
}

void CTour::ComposeAPatrol() {
    Enter("cmdSquadComposer", "Compose the squads");
    squadComposer_.DoubleClickRow("lstUnits", "Coil Fusilier").Costs("26");
    squadComposer_.ClickRow("lstUnits", "Reeve of the Ford").Click("cmdAddUnit").Costs("118");
    squadComposer_.Click("optFilter(1)").DoubleClickRow("lstUnits", "Ford Ferry").Costs("207");
    squadComposer_.ClickRow("lstSquadUnits", "Coil Fusilier").EditRow("lstSquadUnits", "4").Costs("285");
    squadComposer_.ClickRow("lstSquadUnits", "Ford Ferry").EditRow("lstSquadUnits", "02");
    squadComposer_.Costs("374").Shows("frmTarget", "Units in Squad: 3");  // 4 x 26 + 92 + 2 x 89
    squadComposer_.ClickRow("lstSquadUnits", "Reeve of the Ford").Click("cmdUnitMoveUp");
    squadComposer_.ClickRow("lstUnits", "Ford Ferry").Type("tedName", "Ford Patrol");
    squadComposer_.Picture("squad_composer_fantasy").Click(MMenu::SaveChanges);
    BoxToAdd("FORD PATROL");
    squadComposer_.Click("cmdExit");

    Enter("cmdArmyComposer", "Compose your army");
    armyComposer_.Costs("1452.5").Choose("cmbUnitType", "Squads").DoubleClickRow("lstUnits", "Ford Patrol");
    armyComposer_.Costs("1826.5").Click("cmdExit");
}

// A rifle of the best penetration costs twice its 4 points.
void CTour::ChangeAWeapon() {
    Enter("cmdWeaponMaker", "Create or modify weapons");
    GoTo(weaponMaker_, "Coil Carbine");
    weaponMaker_.Costs("4").Click("optWeaponPen(2)").Costs("8").Click(MMenu::SaveChanges);
    Box("\"COIL CARBINE\" already exists in the list,\ndo you wish to update it?", "Yes");
    weaponMaker_.Click("cmdExit");

    Enter("cmdArmyList", "Check the army list");
    Tell("brings the list up to date, and finds the patrol dearer");
    armyList_.Click(MMenu::UpdateCosts);
    Box("Recalculation complete.", "OK");
    armyList_.Click("optFilter(4)").ClickRow("lstUnits", "Ford Patrol");
    armyList_.Shows("lblSpecialDescr", "Ford Patrol:\r\nPoint Cost: 398\r\nSquad\r\n");  // 4 x 30 + 92 + 2 x 93
    armyList_.Picture("army_list_fantasy").Click(MMenu::SaveChanges).Click("cmdExit");
}

// In the roster ten fusiliers carry a carbine, in the patrol four more and two ferries.
void CTour::PrintTheRoster() {
    const QString page = folder_ + "/ford_watch.pdf";
    Enter("cmdArmyComposer", "Compose your army");
    Tell("brings the roster up to date, and prints it to a file");
    armyComposer_.Costs("1826.5").Click(MMenu::UpdateCosts);
    Box("Recalculation complete.", "OK");
    armyComposer_.Costs("1890.5").Click(MMenu::ViewArmy);  // 16 x 4 more
    pageViewer_.Click("cmdPrint");
    Holds(PageFile(), "<H3>Total Cost: 1890.5</H3>");
    printDialog_.Type("filename", page).Picture("print_dialog").Answer("Print");
    pageViewer_.Click("cmdExit");
    Holds(page, "%PDF-");
    armyComposer_.Click("cmdExit");
}
