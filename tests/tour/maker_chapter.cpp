#include "tour/tour.h"

// A projector costs 5 and penetrates 2, 4 or 6, for 1, 1.5 or 2 times the cost. Flame and each point of bonus add 5,
// each 3 cm of radius double it all.
void CTour::DesignAWeapon() {
    Enter("cmdWeaponMaker", "Create or modify weapons");
    weaponMaker_.Shows("cmbWeaponType", "Sidearm").Costs("2").Picture("weapon_maker_empty");  // 1.5 points, rounded
    weaponMaker_.Choose("cmbWeaponType", "Projector").Costs("5");

    Tell("designs a flame thrower, and is told that it needs an area of effect");
    weaponMaker_.Type("tedName", "Wyrm Torch").Type("tedDescr", "Lights the way, and whoever stands in it.");
    weaponMaker_.Click("optAttackType(0)").Costs("10").Click(MMenu::AddToDb);
    Box("The weapon must have an area of effect.", "OK", "weapon_area_warning");
    InMemory({20, 13, 28, 14});

    Tell("sees the cost change with each choice");
    weaponMaker_.Choose("cmbAreaOfEffect", "3").Costs("20");  // (5 + 5) x 2
    weaponMaker_.Click("optWeaponPen(1)").Costs("30");        // (5 + 5) x 1.5 x 2
    weaponMaker_.Type("tedTargetingBonus", "1").Costs("45");  // (5 + 5 + 5) x 1.5 x 2
    weaponMaker_.Click("chkAttackType(1)").Costs("90");       // Sticky: twice
    weaponMaker_.Click("chkAttackType(4)").Costs("67.5");     // Reduced Range: x 0.75
    weaponMaker_.Click("optRecharge(2)").Costs("50.625");     // Reload: x 0.75
    weaponMaker_.Click("chkAttackType(1)").Costs("25.3125");  // no longer Sticky: half
    weaponMaker_.Click("optAttackType(2)").Costs("20.25");    // gas: (5 + 2 + 5) x 1.5 x 2 x 0.75 x 0.75
    weaponMaker_.Click("optAttackType(0)").Costs("25.3125");  // flame again
    weaponMaker_.Shows("lblSpecialDescr",
                       "Flame, Needs Reloading, Reduced Range, Area of Effect 3cm Radius, Targeting Bonus +1");
    weaponMaker_.Picture("weapon_maker_scifi").Click(MMenu::AddToDb);
    BoxToAdd("WYRM TORCH", "Yes", "maker_add_question");
    InMemory({21, 13, 28, 14});
}

void CTour::ChangeTheWeaponAgain() {
    Tell("likes another name better, and walks the list past its end");
    weaponMaker_.Type("tedName", "Wyrm Lance").Click(MMenu::AddToDb);
    Box("Rename \"WYRM TORCH\" as \"WYRM LANCE\"?", "Yes", "maker_rename_question");
    InMemory({21, 13, 28, 14});
    const auto walk = [this](const QString& arrow, const QString& name, const QString& cost) {
        weaponMaker_.Click(arrow).Shows("tedName", name).Costs(cost);
    };
    walk("cmdNext", "Éclat Lance", "9");  // the last; 6 x 1.5
    walk("cmdNext", "Arbalest", "3");     // the first; 2 x 2 x 0.75
    walk("cmdPrev", "Éclat Lance", "9");
    walk("cmdPrev", "Wyrm Lance", "25.3125");

    Tell("has a look at the grenade, which nothing recharges");
    weaponMaker_.Click(MMenu::Modify);
    selector_.ClickRow("lstItems", "Grenade").Picture("selector_scifi").Click("cmdOK");
    weaponMaker_.Shows("tedName", "Grenade").Picture("weapon_maker_grenade");

    Tell("gives his weapon a wider area, and finds it on the page");
    GoTo(weaponMaker_, "Wyrm Lance");
    weaponMaker_.Costs("25.3125").Choose("cmbAreaOfEffect", "6").Costs("50.625");  // twice as much
    weaponMaker_.Click(MMenu::ViewList);
    Box("\"WYRM LANCE\" already exists in the list,\ndo you wish to update it?", "Yes", "maker_update_question");
    pageViewer_.HasTitle("Army Weapons").Picture("weapon_list");
    Holds(PageFile(), "Wyrm Lance");
    Holds(PageFile(), "50.625");
    pageViewer_.Click("cmdExit");

    Tell("saves it");
    AsInstalled("Harrow March.v2q");
    weaponMaker_.Click(MMenu::SaveChanges);
    OnDisk("Harrow March", {21, 13, 28, 14});
    Holds(DataFile("Harrow March.v2q"), "WYRM TORCH", 0);
    Holds(DataFile("Harrow March.v2q"),
          "NAME=Wyrm Lance\r\nDESCR=Lights the way, and whoever stands in it.\r\nKEY=WYRM LANCE\r\nCLASS=Projector\r\n"
          "POINTS=5,50.625\r\nPROP2=1,0,0,0,0,0,0,0,1,0,0,1\r\nPROP3=4,1.5,6,1\r\n");
    TakeOutAgain(weaponMaker_, "Wyrm Lance");
}

void CTour::TakeOutAgain(const CTourWindow& maker, const QString& name) {
    Tell("does without it");
    maker.Click(MMenu::Delete);
    selector_.ClickRow("lstItems", name).Picture("selector_delete").Click("cmdOK");
    InMemory({20, 13, 28, 14});
    selector_.Click("cmdCancel");
    // What was deleted under the player's hands counts as edited again.
    maker.Click(MMenu::SaveChanges);
    BoxToAdd(name.toUpper(), "No");
    LeaveAsInstalled(maker);
    InMemory({20, 13, 28, 14});
}

void CTour::LeaveAsInstalled(const CTourWindow& maker) {
    maker.Click("cmdExit");
    AsInstalled("Harrow March.v2q");
}

// What the fields suggest: 5 for each point of PF, unless the armour is the wearer's own, and of bonus; doubled by each
// 3 cm of radius, halved by a single use. The player's figure stays his own.
void CTour::DesignAnAccessory() {
    Enter("cmdAccessoryMaker", "Create or modify basic items of equipment");
    accessoryMaker_.Choose("cmbAccessoryType", "Infantry");
    accessoryMaker_.Type("tedName", "Salamander Coat").Type("tedDescr", "For those who follow the Wyrm Lance.");
    accessoryMaker_.Type("tedPF", "3").Shows("lblBaseCost", "15").Costs("0");  // 3 x 5
    accessoryMaker_.Shows("lblArmourInfo", "The cost of the armour should be calculated at PF x 5pts ");
    accessoryMaker_.Type("tedPointCost", "12.5").Shows("lblBaseCost", "15").Costs("12.5");
    accessoryMaker_.Type("tedTargetingBonus", "2").Shows("lblBaseCost", "25").Costs("12.5");  // 10 + 15
    accessoryMaker_.Click("chkIndividualArmour").Shows("lblBaseCost", "10").Costs("12.5");
    accessoryMaker_.Shows("lblArmourInfo", "The cost of the armour will be added to the cost of the model");
    accessoryMaker_.Choose("cmbAreaOfEffect", "6").Shows("lblBaseCost", "40").Costs("12.5");  // 10 x 4
    accessoryMaker_.Click("optRecharge(3)").Shows("lblBaseCost", "20").Costs("12.5");         // Single Use
    accessoryMaker_.Shows("lblSpecialDescr",
                          "Individual Armour, One Use, Area of Effect 6cm Radius, Targeting Bonus +2, PF 3");
    accessoryMaker_.Picture("accessory_maker_scifi").Click(MMenu::AddToDb);
    BoxToAdd("SALAMANDER COAT");
    InMemory({20, 14, 28, 14});
    AsInstalled("Harrow March.v2q");
    accessoryMaker_.Click(MMenu::SaveChanges);
    OnDisk("Harrow March", {20, 14, 28, 14});
    Holds(DataFile("Harrow March.v2q"),
          "NAME=Salamander Coat\r\nDESCR=For those who follow the Wyrm Lance.\r\nKEY=SALAMANDER COAT\r\n"
          "CLASS=Infantry\r\nPOINTS=20,12.5\r\n");
    TakeOutAgain(accessoryMaker_, "Salamander Coat");
}

void CTour::SeeTheMakersInTheOtherSkin() {
    Enter("cmdWeaponMaker", "Create or modify weapons");
    weaponMaker_.Click(MMenu::Modify);
    selector_.ClickRow("lstItems", "Plague Censer").Picture("selector_fantasy").Click("cmdOK");
    weaponMaker_.Hover("optAttackType(1)").Picture("weapon_maker_fantasy");
    Tell("thinks of another name, and better of it");
    weaponMaker_.Type("tedName", "Plague Lantern").Click(MMenu::SaveChanges);
    Box("Rename \"PLAGUE CENSER\" as \"PLAGUE LANTERN\"?", "No", "maker_rename_question_fantasy");
    BoxToAdd("PLAGUE LANTERN", "No");
    LeaveAsInstalled(weaponMaker_);

    Enter("cmdAccessoryMaker", "Create or modify basic items of equipment");
    accessoryMaker_.Click("cmdNext").Click("cmdNext").Shows("tedName", "Border Plate");
    accessoryMaker_.Picture("accessory_maker_fantasy");
    LeaveAsInstalled(accessoryMaker_);
}
