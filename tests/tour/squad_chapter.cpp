#include "tour/squad_chapter.h"

#include <QCheckBox>
#include <QLineEdit>

#include "core/state/global.h"
#include "units/army_list.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSquads = u"FSquadComposer"_s;
const QString kList = u"FArmyList"_s;
const QString kArmy = u"FArmyComposer"_s;
const QString kUpdateCosts = u"cmdMenu(1)"_s;
const QString kViewArmy = u"cmdMenu(3)"_s;

}  // namespace

void CSquadChapter::CheckTotal(QWidget& form, const QString& total) {
    guide_.CheckEqual(guide_.TextOf(form, u"tedPointCost"_s), total, u"total"_s);
}

void CSquadChapter::SeeTheSampleSquads() {
    Enter(u"cmdSquadComposer"_s, u"Compose the squads"_s);
    guide_.At(kSquads, u"walks to a squad"_s, [this](QWidget& composer) {
        guide_.Click(composer, u"cmdNext"_s);
        CheckTotal(composer, u"244.25"_s);  // 86 + 4 x 18 + 86.25
        guide_.ClickRow(composer, u"lstUnits"_s, u"Castellan Renée Harrow"_s);
        guide_.ClickRow(composer, u"lstSquadUnits"_s, u"Tin Thrall"_s);
        guide_.Picture(composer, u"squad_composer_scifi"_s);
    });
    Leave(kSquads);
    Enter(u"cmdArmyList"_s, u"Check the army list"_s);
    guide_.At(kList, u"looks through the list"_s, [this](QWidget& list) {
        for (const auto& [filter, listed] : {std::pair(0, 31), std::pair(4, 5), std::pair(5, 4)}) {
            guide_.Click(list, u"optFilter(%1)"_s.arg(filter));
            guide_.CheckEqual(guide_.TextOf(list, u"frmSource"_s), u"Units in Army List (%1 listed)"_s.arg(listed),
                              u"caption"_s);
        }
        guide_.ClickRow(list, u"lstUnits"_s, u"Ford Heron"_s);
        guide_.Picture(list, u"army_list_scifi"_s);
        guide_.Click(list, u"cmdDeleteFromDb"_s);
    });
    guide_.AtBox(u"would miss it"_s, u"Delete unit \"Ford Heron\" from Army List?"_s, u"No"_s);
    Leave(kList);
}

void CSquadChapter::ComposeAPatrol() {
    Enter(u"cmdSquadComposer"_s, u"Compose the squads"_s);
    guide_.At(kSquads, u"gathers a patrol"_s, [this](QWidget& composer) {
        guide_.DoubleClickRow(composer, u"lstUnits"_s, u"Coil Fusilier"_s);
        CheckTotal(composer, u"26"_s);
        guide_.ClickRow(composer, u"lstUnits"_s, u"Reeve of the Ford"_s);
        guide_.Click(composer, u"cmdAddUnit"_s);
        CheckTotal(composer, u"118"_s);
        guide_.Click(composer, u"optFilter(1)"_s);
        guide_.DoubleClickRow(composer, u"lstUnits"_s, u"Ford Ferry"_s);
        CheckTotal(composer, u"207"_s);
        guide_.TypeTag(composer, u"lstSquadUnits"_s, u"Coil Fusilier"_s, u"4"_s);
        CheckTotal(composer, u"285"_s);
        guide_.TypeTag(composer, u"lstSquadUnits"_s, u"Ford Ferry"_s, u"02"_s);
        CheckTotal(composer, u"374"_s);  // 4 x 26 + 92 + 2 x 89
        guide_.CheckEqual(guide_.TextOf(composer, u"frmTarget"_s), u"Units in Squad: 3"_s, u"caption"_s);
        guide_.ClickRow(composer, u"lstSquadUnits"_s, u"Reeve of the Ford"_s);
        guide_.Click(composer, u"cmdUnitMoveUp"_s);
        guide_.ClickRow(composer, u"lstUnits"_s, u"Ford Ferry"_s);
        guide_.Type(composer, u"tedName"_s, u"Ford Patrol"_s);
        guide_.Picture(composer, u"squad_composer_fantasy"_s);
        guide_.Click(composer, MMakerMenu::SaveChanges);
    });
    guide_.AtBox(u"confirms it before it is saved"_s, AddQuestion(u"FORD PATROL"_s), u"Yes"_s);
    Leave(kSquads);
}

void CSquadChapter::SendItToTheArmy() {
    Enter(u"cmdArmyComposer"_s, u"Compose your army"_s);
    guide_.At(kArmy, u"adds the patrol to the army"_s, [this](QWidget& composer) {
        CheckTotal(composer, u"1452.5"_s);
        guide_.Choose(composer, u"cmbUnitType"_s, u"Squads"_s);
        guide_.DoubleClickRow(composer, u"lstUnits"_s, u"Ford Patrol"_s);
        CheckTotal(composer, u"1826.5"_s);
    });
    Leave(kArmy);
}

// A rifle of the best penetration costs twice its 4 points.
void CSquadChapter::ChangeAWeapon() {
    Enter(u"cmdWeaponMaker"_s, u"Create or modify weapons"_s);
    guide_.At(u"FWeaponMaker"_s, u"looks for the carbine"_s,
              [this](QWidget& maker) { guide_.Click(maker, MMakerMenu::Modify); });
    guide_.At(u"FSelector"_s, u"finds it"_s,
              [this](QWidget& selector) { guide_.DoubleClickRow(selector, u"lstItems"_s, u"Coil Carbine"_s); });
    guide_.At(u"FWeaponMaker"_s, u"sharpens it"_s, [this](QWidget& maker) {
        CheckTotal(maker, u"4"_s);
        guide_.Click(maker, u"optWeaponPen(2)"_s);
        CheckTotal(maker, u"8"_s);
        guide_.Click(maker, MMakerMenu::SaveChanges);
    });
    guide_.AtBox(u"confirms it"_s, u"\"COIL CARBINE\" already exists in the list,\ndo you wish to update it?"_s,
                 u"Yes"_s);
    Leave(u"FWeaponMaker"_s);
}

void CSquadChapter::UpdateTheList() {
    Enter(u"cmdArmyList"_s, u"Check the army list"_s);
    guide_.At(kList, u"brings the list up to date"_s, [this](QWidget& list) { guide_.Click(list, kUpdateCosts); });
    guide_.AtBox(u"is told that it is done"_s, u"Recalculation complete."_s, u"OK"_s);
    guide_.At(kList, u"finds the patrol dearer"_s, [this](QWidget& list) {
        guide_.Click(list, u"optFilter(4)"_s);
        guide_.ClickRow(list, u"lstUnits"_s, u"Ford Patrol"_s);
        // 4 x 30 + 92 + 2 x 93
        guide_.Check(guide_.TextOf(list, u"lblSpecialDescr"_s).contains(u"Point Cost: 398\r\n"_s),
                     u"the patrol costs the same as before"_s);
        guide_.Picture(list, u"army_list_fantasy"_s);
        guide_.Click(list, MMakerMenu::SaveChanges);
    });
    Leave(kList);
}

// In the roster ten fusiliers carry a carbine, in the patrol four more and two ferries.
void CSquadChapter::PrintTheRoster() {
    Enter(u"cmdArmyComposer"_s, u"Compose your army"_s);
    guide_.At(kArmy, u"brings the roster up to date"_s, [this](QWidget& composer) {
        CheckTotal(composer, u"1826.5"_s);
        guide_.Click(composer, kUpdateCosts);
    });
    guide_.AtBox(u"is told that it is done"_s, u"Recalculation complete."_s, u"OK"_s);
    guide_.At(kArmy, u"finds the army dearer"_s, [this](QWidget& composer) {
        CheckTotal(composer, u"1890.5"_s);  // 16 x 4 more
        guide_.Click(composer, kViewArmy);
    });
    guide_.At(u"FArmyRoster"_s, u"prints the page"_s, [this](QWidget& viewer) {
        guide_.Check(Content(home_ + u"/tmproster.html"_s).contains("<H3>Total Cost: 1890.5</H3>"),
                     u"the page lacks the new total"_s);
        guide_.Click(viewer, u"cmdPrint"_s);
    });
    guide_.At(u"QPrintDialog"_s, u"prints it to a file"_s, [this](QWidget& dialog) {
        guide_.Type(dialog, u"filename"_s, folder_ + u"/ford_watch.pdf"_s);
        guide_.Picture(dialog, u"print_dialog"_s);
        guide_.Answer(dialog, u"Print"_s);
    });
    guide_.At(u"FArmyRoster"_s, u"has it on paper"_s, [this](QWidget& viewer) {
        guide_.Check(Content(folder_ + u"/ford_watch.pdf"_s).startsWith("%PDF-"), u"nothing was printed"_s);
        guide_.Click(viewer, u"cmdExit"_s);
    });
    Leave(kArmy);
}
