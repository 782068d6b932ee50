#include "tour/unit_chapter.h"

#include "core/state/global.h"
#include "units/army_list.h"

using namespace Qt::StringLiterals;

namespace {

const QString kMaker = u"FUnitMaker"_s;
const QString kDialog = u"FUnitSpecialProps"_s;
const QString kListFile = u"Harrow March.v2l"_s;

enum Stats { MV, SS, FA, PF, DP };
enum Filters { Weapons, Accessories };

QString StatField(int stat) {
    return u"tedStat(%1)"_s.arg(stat);
}

}  // namespace

void CUnitChapter::CheckCost(QWidget& form, const QString& cost, const QString& what) {
    guide_.CheckEqual(guide_.TextOf(form, u"tedPointCost"_s), cost, u"cost with "_s + what);
}

void CUnitChapter::CheckProperties(QWidget& maker, const QString& text) {
    guide_.CheckEqual(guide_.TextOf(maker, u"lblSpecialDescr(2)"_s), text, u"properties"_s);
}

void CUnitChapter::TypeStat(QWidget& maker, int stat, const QString& value, const QString& cost) {
    guide_.Type(maker, StatField(stat), value);
    CheckCost(maker, cost, guide_.TextOf(maker, u"lblStat(%1)"_s.arg(stat)) + u' ' + value);
}

void CUnitChapter::Equip(QWidget& maker, int filter, const QString& item, const QString& cost) {
    guide_.Click(maker, u"optFilter(%1)"_s.arg(filter));
    guide_.ClickRow(maker, u"lstEquipment"_s, item);
    guide_.Click(maker, u"cmdAddItem"_s);
    CheckCost(maker, cost, item);
}

// An infantryman costs 5 with MV 10, SS 6, FA 6 and DP 6. A point of MV costs 1, each that SS is better 5, FA 3, DP 2;
// PF 3 costs 7. An officer pays 2 a level, 5 a level of heroic save, and then everything twice.
void CUnitChapter::DesignAnOfficer() {
    Enter(u"cmdUnitMaker"_s, u"Create or modify the basic units"_s);
    guide_.At(kMaker, u"trains an infantryman"_s, [this](QWidget& maker) {
        CheckCost(maker, u"5"_s, u"nothing"_s);
        guide_.Type(maker, u"tedName"_s, u"Reeve of the Ford"_s);
        guide_.Type(maker, u"tedDescr"_s, u"Knows every stone of the crossing."_s);
        TypeStat(maker, MV, u"12"_s, u"7"_s);
        TypeStat(maker, DP, u"4"_s, u"11"_s);
        TypeStat(maker, FA, u"5"_s, u"14"_s);
        TypeStat(maker, SS, u"3"_s, u"29"_s);
        guide_.Check(maker.findChild<QWidget*>(StatField(SS))->toolTip().contains(u"potentially unbalancing"_s),
                     u"no warning of SS 3"_s);
        guide_.Picture(maker, u"unit_maker_warning"_s);
        TypeStat(maker, SS, u"4"_s, u"24"_s);
    });
    guide_.At(kMaker, u"arms him"_s, [this](QWidget& maker) {
        Equip(maker, Weapons, u"Rivet Pistol"_s, u"26"_s);
        Equip(maker, Weapons, u"Knight's Sabre"_s, u"29"_s);
        Equip(maker, Accessories, u"Knight's Harness"_s, u"37"_s);  // 1, and 7 for the PF that it gives
        guide_.CheckEqual(guide_.TextOf(maker, StatField(PF)), u"3"_s, u"PF with the harness"_s);
        guide_.ClickRow(maker, u"lstUnitEquipment"_s, u"Knight's Sabre"_s);
        guide_.Click(maker, u"cmdItemMoveUp"_s);
        guide_.Click(maker, u"cmdSpecialProps"_s);
    });
    guide_.At(kDialog, u"makes him an officer"_s, [this](QWidget& dialog) {
        CheckCost(dialog, u"37"_s, u"nothing special"_s);
        guide_.Type(dialog, u"tedOfficerBonus"_s, u"7"_s);
        guide_.CheckEqual(guide_.TextOf(dialog, u"tedOfficerBonus"_s), u"4"_s, u"highest bonus"_s);
        CheckCost(dialog, u"90"_s, u"officer bonus 4"_s);  // (37 + 8) x 2
        guide_.Type(dialog, u"tedOfficerBonus"_s, u"2"_s);
        CheckCost(dialog, u"82"_s, u"officer bonus 2"_s);  // (37 + 4) x 2
        guide_.Type(dialog, u"tedHeroicSave"_s, u"1"_s);
        CheckCost(dialog, u"92"_s, u"heroic save"_s);  // (37 + 4 + 5) x 2
        guide_.Hover(dialog, u"chkFerocious"_s);
        guide_.Picture(dialog, u"unit_special_infantry_scifi"_s);
        guide_.Click(dialog, u"cmdOK"_s);
    });
    guide_.At(kMaker, u"enlists him"_s, [this](QWidget& maker) {
        CheckCost(maker, u"92"_s, u"all of it"_s);
        CheckProperties(maker, u"Officer +2, Heroic Save + 1"_s);
        guide_.ClickRow(maker, u"lstEquipment"_s, u"War Standard"_s);
        guide_.ClickRow(maker, u"lstUnitEquipment"_s, u"Knight's Sabre"_s);
        guide_.Picture(maker, u"unit_maker_officer"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
    guide_.AtBox(u"confirms it"_s, AddQuestion(u"REEVE OF THE FORD"_s), u"Yes"_s);
}

// A vehicle costs 5 at MV 10; PF 5 costs 14. A place on it costs 2, half in it 4, in it half of what the PF costs, and
// 2 more with life support.
void CUnitChapter::DesignAVehicle() {
    guide_.At(kMaker, u"builds a ferry with guns"_s, [this](QWidget& maker) {
        guide_.Click(maker, MMakerMenu::New);
        guide_.Click(maker, u"optUnit(1)"_s);
        CheckCost(maker, u"7"_s, u"one place on it"_s);
        for (const int stat : {SS, DP})
            guide_.Check(!maker.findChild<QWidget*>(StatField(stat))->isEnabled(), u"a vehicle has skills"_s);
        guide_.Type(maker, u"tedName"_s, u"Ford Ferry"_s);
        guide_.Type(maker, u"tedDescr"_s, u"Goes where the water goes, and back."_s);
        TypeStat(maker, MV, u"20"_s, u"17"_s);
        TypeStat(maker, PF, u"5"_s, u"31"_s);
        Equip(maker, Weapons, u"Harrow Cannon"_s, u"52"_s);
        Equip(maker, Weapons, u"Coil Carbine"_s, u"56"_s);
        Equip(maker, Accessories, u"Lodestone Array"_s, u"64"_s);
        guide_.Click(maker, u"cmdSpecialProps"_s);
    });
    guide_.At(kDialog, u"leaves no room for a crew"_s, [this](QWidget& dialog) {
        guide_.Type(dialog, u"tedCrewNumber(0)"_s, u"0"_s);
        CheckCost(dialog, u"62"_s, u"no crew"_s);
        guide_.Click(dialog, u"cmdOK"_s);
    });
    guide_.AtBox(u"is told that nobody steers"_s, u"A vehicle must have space for at least one crew member."_s, u"OK"_s,
                 u"unit_crew_warning"_s);
    guide_.At(kDialog, u"gives it one"_s, [this](QWidget& dialog) {
        guide_.Type(dialog, u"tedCrewNumber(1)"_s, u"1"_s);
        CheckCost(dialog, u"66"_s, u"a gunner"_s);
        guide_.Type(dialog, u"tedCrewNumber(2)"_s, u"2"_s);
        CheckCost(dialog, u"80"_s, u"two inside"_s);
        guide_.Type(dialog, u"tedCrewNumber(3)"_s, u"1"_s);
        CheckCost(dialog, u"89"_s, u"a diver"_s);
        guide_.Hover(dialog, u"lblCrewMembers(3)"_s);
        guide_.Picture(dialog, u"unit_special_crew_scifi"_s);
        guide_.Click(dialog, u"cmdOK"_s);
    });
    guide_.At(kMaker, u"launches it"_s, [this](QWidget& maker) {
        CheckCost(maker, u"89"_s, u"all of it"_s);
        guide_.Picture(maker, u"unit_maker_vehicle"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
    guide_.AtBox(u"confirms it"_s, AddQuestion(u"FORD FERRY"_s), u"Yes"_s);
}

// An autonomous robot costs 15 at MV 10 and SS 6. What flies pays half as much again on everything.
void CUnitChapter::DesignARobotFlyer() {
    guide_.At(kMaker, u"builds a robot"_s, [this](QWidget& maker) {
        guide_.Click(maker, MMakerMenu::New);
        guide_.Click(maker, u"optUnit(3)"_s);
        CheckCost(maker, u"15"_s, u"nothing"_s);
        guide_.Type(maker, u"tedName"_s, u"Ford Heron"_s);
        TypeStat(maker, MV, u"25"_s, u"30"_s);
        TypeStat(maker, PF, u"2"_s, u"34"_s);
        TypeStat(maker, SS, u"4"_s, u"44"_s);
        Equip(maker, Accessories, u"Golem Carapace"_s, u"54"_s);  // PF 5: 14 in place of 4
        Equip(maker, Accessories, u"Lodestone Array"_s, u"62"_s);
        Equip(maker, Weapons, u"Storm Rockets"_s, u"84.5"_s);
        guide_.Click(maker, u"cmdSpecialProps"_s);
    });
    guide_.At(kDialog, u"lets it fly, without a crew"_s, [this](QWidget& dialog) {
        guide_.Click(dialog, u"chkFlying"_s);
        CheckCost(dialog, u"126.75"_s, u"wings"_s);  // 84.5 x 1.5
        guide_.Click(dialog, u"cmdOK"_s);
    });
    guide_.At(kMaker, u"keeps it"_s, [this](QWidget& maker) {
        CheckProperties(maker, u"Flyer"_s);
        guide_.Picture(maker, u"unit_maker_robot"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
    guide_.AtBox(u"confirms it"_s, AddQuestion(u"FORD HERON"_s), u"Yes"_s);
}

void CUnitChapter::WalkAndSave() {
    guide_.At(kMaker, u"walks past the squads, and looks at the list"_s, [this](QWidget& maker) {
        for (const QString& name : {u"Furrow Golem"_s, u"Hedge Witch Ysoldé"_s}) {
            guide_.Click(maker, u"cmdNext"_s);
            guide_.CheckEqual(guide_.TextOf(maker, u"tedName"_s), name, u"next unit"_s);
        }
        guide_.Click(maker, MMakerMenu::ViewList);
    });
    guide_.At(u"FArmyRoster"_s, u"finds the three on the page"_s, [this](QWidget& viewer) {
        const QByteArray page = Content(home_ + u"/tmproster.html"_s);
        for (const char* text : {"Reeve of the Ford", "Ford Ferry", "Ford Heron", "126.75"})
            guide_.Check(page.contains(text), u"the page lacks "_s + QLatin1StringView(text));
        guide_.Click(viewer, u"cmdExit"_s);
    });
    guide_.At(kMaker, u"saves the list"_s, [this](QWidget& maker) {
        guide_.Click(maker, MMakerMenu::SaveChanges);
        const QByteArray list = Content(DataFile(kListFile));
        for (const char* record : {"POINTS=80,92\r\nSTATS=12,4,5,3,4\r\nPROP2=0,0,0,0\r\nPROP3=2,0,0,1,0,0\r\n",
                                   "POINTS=56,89\r\nSTATS=20,0,0,5,0\r\nPROP2=0,1,2,1\r\nPROP3=0,0,0,0,0,0\r\n",
                                   "POINTS=81,126.75\r\nSTATS=25,4,0,5,1\r\nPROP2=0,0,0,0\r\nPROP3=0,1,0,0,0,0\r\n"})
            guide_.Check(list.contains(record), u"a unit isn't on the disk as designed"_s);
        guide_.Check(!MGlobal::IsFileModified(MGlobal::ArmyListDocument), u"the list counts as modified"_s);
    });
    Leave(kMaker);
}

void CUnitChapter::SeeTheOtherSkin() {
    const auto goTo = [this](const QString& name) {
        guide_.At(kMaker, u"looks for "_s + name, [this](QWidget& maker) { guide_.Click(maker, MMakerMenu::Modify); });
        guide_.At(u"FSelector"_s, u"finds it"_s,
                  [this, name](QWidget& selector) { guide_.DoubleClickRow(selector, u"lstItems"_s, name); });
    };
    const auto lookAtSpecials = [this](const QString& picture) {
        guide_.At(kMaker, u"asks for the special properties"_s,
                  [this](QWidget& maker) { guide_.Click(maker, u"cmdSpecialProps"_s); });
        guide_.At(kDialog, u"changes its mind"_s, [this, picture](QWidget& dialog) {
            guide_.Click(dialog, u"chkFlying"_s);
            guide_.Picture(dialog, picture);
            guide_.Click(dialog, u"cmdCancel"_s);
        });
    };
    Enter(u"cmdUnitMaker"_s, u"Create or modify the basic units"_s);
    goTo(u"Ford Ferry"_s);
    lookAtSpecials(u"unit_special_crew_fantasy"_s);
    goTo(u"Reeve of the Ford"_s);
    lookAtSpecials(u"unit_special_infantry_fantasy"_s);
    guide_.At(kMaker, u"the unit maker in the other skin"_s, [this](QWidget& maker) {
        CheckCost(maker, u"92"_s, u"a mind changed"_s);
        guide_.ClickRow(maker, u"lstUnitEquipment"_s, u"Knight's Harness"_s);
        guide_.Picture(maker, u"unit_maker_fantasy"_s);
    });
    Leave(kMaker);
}
