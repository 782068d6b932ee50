#include "tour/tour.h"

namespace {

constexpr auto MV = "tedStat(0)", SS = "tedStat(1)", FA = "tedStat(2)", PF = "tedStat(3)", DP = "tedStat(4)";
constexpr auto kWeapons = "optFilter(0)", kAccessories = "optFilter(1)";

CTourWindow::Self Equip(const CTourWindow& maker, const QString& filter, const QString& item) {
    return maker.Click(filter).ClickRow("lstEquipment", item).Click("cmdAddItem");
}

}  // namespace

// An infantryman costs 5 with MV 10, SS 6, FA 6 and DP 6. A point of MV costs 1, each that SS is better 5, FA 3, DP 2;
// PF 3 costs 7. An officer pays 2 a level, 5 a level of heroic save, and then everything twice.
void CTour::DesignAnOfficer() {
    Enter("cmdUnitMaker", "Create or modify the basic units");
    unitMaker_.Costs("5").Type("tedName", "Reeve of the Ford").Type("tedDescr", "Knows every stone of the crossing.");
    unitMaker_.Type(MV, "12").Costs("7").Type(DP, "4").Costs("11").Type(FA, "5").Costs("14");
    unitMaker_.Type(SS, "3").Costs("29").Picture("unit_maker_warning");
    unitMaker_.Type(SS, "4").Costs("24");
    Equip(unitMaker_, kWeapons, "Rivet Pistol").Costs("26");
    Equip(unitMaker_, kWeapons, "Knight's Sabre").Costs("29");
    Equip(unitMaker_, kAccessories, "Knight's Harness").Costs("37").Shows(PF, "3");  // 1, and 7 for the PF
    unitMaker_.ClickRow("lstUnitEquipment", "Knight's Sabre").Click("cmdItemMoveUp");

    Tell("makes him an officer");
    unitMaker_.Click("cmdSpecialProps");
    specials_.Costs("37").Type("tedOfficerBonus", "7").Shows("tedOfficerBonus", "4").Costs("90");  // (37 + 8) x 2
    specials_.Type("tedOfficerBonus", "2").Costs("82");                                            // (37 + 4) x 2
    specials_.Type("tedHeroicSave", "1").Costs("92");                                              // (37 + 4 + 5) x 2
    specials_.Hover("chkFerocious").Picture("unit_special_infantry_scifi").Click("cmdOK");
    unitMaker_.Costs("92").Shows("lblSpecialDescr(2)", "Officer +2, Heroic Save + 1");
    unitMaker_.ClickRow("lstEquipment", "War Standard").ClickRow("lstUnitEquipment", "Knight's Sabre");
    unitMaker_.Picture("unit_maker_officer").Click(MMenu::AddToDb);
    BoxToAdd("REEVE OF THE FORD");
}

// A vehicle costs 5 at MV 10; PF 5 costs 14. A place on it costs 2, half in it 4, in it half of what the PF costs, and
// 2 more with life support.
void CTour::DesignAVehicle() {
    Tell("builds a ferry with guns");
    unitMaker_.Click(MMenu::New).Click("optUnit(1)").Costs("7");  // one place on it
    unitMaker_.Type("tedName", "Ford Ferry").Type("tedDescr", "Goes where the water goes, and back.");
    unitMaker_.Type(MV, "20").Costs("17").Type(PF, "5").Costs("31");
    Equip(unitMaker_, kWeapons, "Harrow Cannon").Costs("52");
    Equip(unitMaker_, kWeapons, "Coil Carbine").Costs("56");
    Equip(unitMaker_, kAccessories, "Lodestone Array").Costs("64");

    Tell("leaves no room for a crew, then some");
    unitMaker_.Click("cmdSpecialProps");
    specials_.Type("tedCrewNumber(0)", "0").Costs("62").Click("cmdOK");
    Box("A vehicle must have space for at least one crew member.", "OK", "unit_crew_warning");
    specials_.Type("tedCrewNumber(1)", "1").Costs("66");  // half in it
    specials_.Type("tedCrewNumber(2)", "2").Costs("80");  // two inside
    specials_.Type("tedCrewNumber(3)", "1").Costs("89");  // with life support
    specials_.Hover("lblCrewMembers(3)").Picture("unit_special_crew_scifi").Click("cmdOK");
    unitMaker_.Costs("89").Picture("unit_maker_vehicle").Click(MMenu::AddToDb);
    BoxToAdd("FORD FERRY");
}

// An autonomous robot costs 15 at MV 10 and SS 6. What flies pays half as much again on everything.
void CTour::DesignARobotFlyer() {
    Tell("builds a robot that flies");
    unitMaker_.Click(MMenu::New).Click("optUnit(3)").Costs("15");
    unitMaker_.Type("tedName", "Ford Heron").Type(MV, "25").Costs("30");
    unitMaker_.Type(PF, "2").Costs("34").Type(SS, "4").Costs("44");
    Equip(unitMaker_, kAccessories, "Golem Carapace").Costs("54");  // PF 5: 14 in place of 4
    Equip(unitMaker_, kAccessories, "Lodestone Array").Costs("62");
    Equip(unitMaker_, kWeapons, "Storm Rockets").Costs("84.5").Click("cmdSpecialProps");
    specials_.Click("chkFlying").Costs("126.75").Click("cmdOK");  // 84.5 x 1.5
    unitMaker_.Shows("lblSpecialDescr(2)", "Flyer").Picture("unit_maker_robot").Click(MMenu::AddToDb);
    BoxToAdd("FORD HERON");
}

void CTour::FindAndSaveTheUnits() {
    Tell("walks past the squads, finds his three on the page, and saves them");
    unitMaker_.Click("cmdNext").Shows("tedName", "Furrow Golem");
    unitMaker_.Click("cmdNext").Shows("tedName", "Hedge Witch Ysoldé").Click(MMenu::ViewList);
    pageViewer_.HasTitle("The Harrow March");
    for (const char* text : {"Reeve of the Ford", "Ford Ferry", "Ford Heron", "126.75"})
        Holds(PageFile(), text);
    pageViewer_.Click("cmdExit");
    unitMaker_.Click(MMenu::SaveChanges);
    for (const char* record : {"POINTS=80,92\r\nSTATS=12,4,5,3,4\r\nPROP2=0,0,0,0\r\nPROP3=2,0,0,1,0,0\r\n",
                               "POINTS=56,89\r\nSTATS=20,0,0,5,0\r\nPROP2=0,1,2,1\r\nPROP3=0,0,0,0,0,0\r\n",
                               "POINTS=81,126.75\r\nSTATS=25,4,0,5,1\r\nPROP2=0,0,0,0\r\nPROP3=0,1,0,0,0,0\r\n"})
        Holds(DataFile("Harrow March.v2l"), record);
    InMemory({20, 13, 28 + 3, 14});
    unitMaker_.Click("cmdExit");
}

void CTour::SeeTheUnitMakerInTheOtherSkin() {
    Enter("cmdUnitMaker", "Create or modify the basic units");
    for (const auto& [unit, picture] : {std::pair("Ford Ferry", "unit_special_crew_fantasy"),
                                        {"Reeve of the Ford", "unit_special_infantry_fantasy"}}) {
        GoTo(unitMaker_, unit);
        unitMaker_.Click("cmdSpecialProps");
        specials_.Click("chkFlying").Picture(picture).Click("cmdCancel");
    }
    unitMaker_.Costs("92").ClickRow("lstUnitEquipment", "Knight's Harness");  // a mind changed
    unitMaker_.Picture("unit_maker_fantasy").Click("cmdExit");
}
