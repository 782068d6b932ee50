#include "tour/maker_chapter.h"

#include <QListWidget>

#include "controls/ansi_qt.h"
#include "controls/color_button.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"

using namespace Qt::StringLiterals;

namespace {

const QString kWeaponMaker = u"FWeaponMaker"_s;
const QString kAccessoryMaker = u"FAccessoryMaker"_s;
constexpr int kSampleWeapons = 20;
constexpr int kSampleAccessories = 13;

// The members of a button array that are on, by their index.
QString Lit(QWidget& form, const QString& array) {
    QString lit;
    for (int index = 0;; ++index) {
        const auto* button = form.findChild<QXColorButton*>(u"%1(%2)"_s.arg(array).arg(index));
        if (button == nullptr) return lit;
        if (button->Value()) lit += QString::number(index);
    }
}

int Rows(QWidget& selector) {
    return selector.findChild<QListWidget*>(u"lstItems"_s)->count();
}

int Weapons() {
    return int(MGlobal::ArmyTables().ArmyWeapons().Count());
}

int Accessories() {
    return int(MGlobal::ArmyTables().ArmyAccessories().Count());
}

}  // namespace

void CMakerChapter::CheckUnchanged() {
    const QString name = u"Harrow March.v2q"_s;
    guide_.CheckEqual(FromPath(MGlobal::EquipmentFile()), DataFile(name), u"equipment"_s);
    guide_.Check(!MGlobal::IsFileModified(MGlobal::EquipmentDocument), u"the equipment counts as modified"_s);
    guide_.Check(Content(DataFile(name)) == Content(QStringLiteral(TOUR_SAMPLE) + u'/' + name),
                 name + u" has changed on the disk"_s);
}

void CMakerChapter::DesignAWeapon() {
    Enter(u"cmdWeaponMaker"_s, u"Create or modify weapons"_s);
    PriceAFlameThrower();
    NameIt();
    WalkAbout();
    LookAtAGrenade();
    WidenTheFlame();
    SaveTheWeapon();
    TakeOutAgain(kWeaponMaker, u"Select the weapon to remove from the database:"_s, u"Wyrm Lance"_s, kSampleWeapons);
}

// A projector costs 5 and penetrates 2, 4 or 6, for 1, 1.5 or 2 times the cost. Flame and each point of bonus add 5,
// each 3 cm of radius double it all.
void CMakerChapter::PriceAFlameThrower() {
    guide_.At(kWeaponMaker, u"finds the first class, and takes another"_s, [this](QWidget& maker) {
        guide_.CheckEqual(guide_.TextOf(maker, u"cmbWeaponType"_s), u"Sidearm"_s, u"class"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), u"2"_s, u"1.5 points, rounded"_s);
        guide_.Picture(maker, u"weapon_maker_empty"_s);
        guide_.Choose(maker, u"cmbWeaponType"_s, u"Projector"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), u"5"_s, u"cost of a projector"_s);
        for (const auto& [option, pen] : {std::pair(0, u"2"_s), std::pair(1, u"4"_s), std::pair(2, u"6"_s)})
            guide_.CheckEqual(guide_.TextOf(maker, u"optWeaponPen(%1)"_s.arg(option)), pen, u"penetration"_s);
    });
    guide_.At(kWeaponMaker, u"designs a flame thrower without an area of effect"_s, [this](QWidget& maker) {
        guide_.Type(maker, u"tedName"_s, u"Wyrm Torch"_s);
        guide_.Type(maker, u"tedDescr"_s, u"Lights the way, and whoever stands in it."_s);
        guide_.Click(maker, u"optAttackType(0)"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), u"10"_s, u"cost with flame"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
    guide_.AtBox(u"is told what is missing"_s, u"The weapon must have an area of effect."_s, u"OK"_s,
                 u"weapon_area_warning"_s);
    guide_.At(kWeaponMaker, u"sees the cost change with each choice"_s, [this](QWidget& maker) {
        const auto costs = [&](const QString& cost, const QString& what) {
            guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), cost, u"cost with "_s + what);
        };
        guide_.CheckEqual(Weapons(), kSampleWeapons, u"weapons after the refusal"_s);
        guide_.Choose(maker, u"cmbAreaOfEffect"_s, u"3"_s);
        costs(u"20"_s, u"area"_s);  // (5 + 5) x 2
        guide_.Click(maker, u"optWeaponPen(1)"_s);
        costs(u"30"_s, u"penetration"_s);  // (5 + 5) x 1.5 x 2
        guide_.Type(maker, u"tedTargetingBonus"_s, u"1"_s);
        costs(u"45"_s, u"bonus"_s);  // (5 + 5 + 5) x 1.5 x 2
        guide_.Click(maker, u"chkAttackType(1)"_s);
        costs(u"90"_s, u"Sticky"_s);  // twice
        guide_.Click(maker, u"chkAttackType(4)"_s);
        costs(u"67.5"_s, u"Reduced Range"_s);  // x 0.75
        guide_.Click(maker, u"optRecharge(2)"_s);
        costs(u"50.625"_s, u"Reload"_s);  // x 0.75
        guide_.Click(maker, u"chkAttackType(1)"_s);
        costs(u"25.3125"_s, u"no Sticky"_s);  // half
        guide_.Click(maker, u"optAttackType(2)"_s);
        costs(u"20.25"_s, u"gas"_s);  // (5 + 2 + 5) x 1.5 x 2 x 0.75 x 0.75
        guide_.Click(maker, u"optAttackType(0)"_s);
        costs(u"25.3125"_s, u"flame again"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"lblSpecialDescr"_s),
                          u"Flame, Needs Reloading, Reduced Range, Area of Effect 3cm Radius, Targeting Bonus +1"_s,
                          u"properties"_s);
        // The type of attack has switched the effects off on the screen alone.
        guide_.CheckEqual(Lit(maker, u"chkAttackType"_s), QString(), u"effects lit"_s);
        guide_.Picture(maker, u"weapon_maker_scifi"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
}

void CMakerChapter::NameIt() {
    guide_.AtBox(u"confirms the weapon"_s, AddQuestion(u"WYRM TORCH"_s), u"Yes"_s, u"maker_add_question"_s);
    guide_.At(kWeaponMaker, u"has it in the list, and likes another name better"_s, [this](QWidget& maker) {
        guide_.CheckEqual(Weapons(), kSampleWeapons + 1, u"weapons"_s);
        guide_.Check(MGlobal::ArmyTables().ArmyWeapons().Exists("WYRM TORCH"), u"the weapon isn't in the list"_s);
        guide_.Type(maker, u"tedName"_s, u"Wyrm Lance"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
    guide_.AtBox(u"confirms it"_s, u"Rename \"WYRM TORCH\" as \"WYRM LANCE\"?"_s, u"Yes"_s, u"maker_rename_question"_s);
}

void CMakerChapter::WalkAbout() {
    guide_.At(kWeaponMaker, u"has one weapon of the new name, and walks the list"_s, [this](QWidget& maker) {
        guide_.CheckEqual(Weapons(), kSampleWeapons + 1, u"weapons"_s);
        guide_.Check(!MGlobal::ArmyTables().ArmyWeapons().Exists("WYRM TORCH"), u"the old name is still there"_s);
        const auto walk = [&](const QString& arrow, const QString& name, const QString& cost) {
            guide_.Click(maker, arrow);
            guide_.CheckEqual(guide_.TextOf(maker, u"tedName"_s), name, u"weapon"_s);
            guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), cost, u"cost of "_s + name);
        };
        walk(u"cmdNext"_s, u"Éclat Lance"_s, u"9"_s);  // the last; 6 x 1.5
        walk(u"cmdNext"_s, u"Arbalest"_s, u"3"_s);     // the first; 2 x 2 x 0.75
        walk(u"cmdPrev"_s, u"Éclat Lance"_s, u"9"_s);
        walk(u"cmdPrev"_s, u"Wyrm Lance"_s, u"25.3125"_s);
        guide_.CheckEqual(Lit(maker, u"chkAttackType"_s), u"4"_s, u"effects lit"_s);
        guide_.CheckEqual(Lit(maker, u"optRecharge"_s), u"2"_s, u"use limit lit"_s);
        guide_.Click(maker, MMakerMenu::Modify);
    });
}

void CMakerChapter::LookAtAGrenade() {
    guide_.At(u"FSelector"_s, u"has a look at the grenade"_s, [this](QWidget& selector) {
        guide_.CheckEqual(guide_.TextOf(selector, u"lblPrompt"_s), u"Select a weapon from the database:"_s,
                          u"prompt"_s);
        guide_.CheckEqual(Rows(selector), kSampleWeapons + 1, u"rows"_s);
        guide_.Check(!selector.findChild<QWidget*>(u"cmdOK"_s)->isEnabled(), u"nothing is chosen, and can be"_s);
        guide_.ClickRow(selector, u"lstItems"_s, u"Grenade"_s);
        guide_.Picture(selector, u"selector_scifi"_s);
        guide_.Click(selector, u"cmdOK"_s);
    });
    guide_.At(kWeaponMaker, u"sees that nothing recharges it"_s, [this](QWidget& maker) {
        guide_.CheckEqual(guide_.TextOf(maker, u"tedName"_s), u"Grenade"_s, u"weapon"_s);
        guide_.CheckEqual(Lit(maker, u"optRecharge"_s), u"3"_s, u"use limit lit"_s);
        for (const QString& limit : {u"optRecharge(1)"_s, u"optRecharge(2)"_s})
            guide_.Check(!maker.findChild<QWidget*>(limit)->isEnabled(), limit + u" can be used"_s);
        guide_.Picture(maker, u"weapon_maker_grenade"_s);
        guide_.Click(maker, MMakerMenu::Modify);
    });
}

void CMakerChapter::WidenTheFlame() {
    guide_.At(u"FSelector"_s, u"goes back to his weapon"_s,
              [this](QWidget& selector) { guide_.DoubleClickRow(selector, u"lstItems"_s, u"Wyrm Lance"_s); });
    guide_.At(kWeaponMaker, u"gives it a wider area"_s, [this](QWidget& maker) {
        guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), u"25.3125"_s, u"cost"_s);
        guide_.Choose(maker, u"cmbAreaOfEffect"_s, u"6"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), u"50.625"_s, u"cost, twice as much"_s);
        guide_.Click(maker, MMakerMenu::ViewList);
    });
    guide_.AtBox(u"confirms it before he sees the list"_s,
                 u"\"WYRM LANCE\" already exists in the list,\ndo you wish to update it?"_s, u"Yes"_s,
                 u"maker_update_question"_s);
    guide_.At(u"FArmyRoster"_s, u"finds it on the page"_s, [this](QWidget& viewer) {
        guide_.CheckEqual(viewer.windowTitle(), u"Army Weapons"_s, u"caption"_s);
        const QByteArray page = Content(home_ + u"/tmproster.html"_s);
        guide_.Check(page.contains("Wyrm Lance") && page.contains("50.625"), u"the page lacks the weapon"_s);
        guide_.Picture(viewer, u"weapon_list"_s);
        guide_.Click(viewer, u"cmdExit"_s);
    });
}

void CMakerChapter::SaveTheWeapon() {
    guide_.At(kWeaponMaker, u"saves it"_s, [this](QWidget& maker) {
        CheckUnchanged();
        guide_.Click(maker, MMakerMenu::SaveChanges);
        CArmyTables tables;
        guide_.Check(tables.ReadInfo(ToPath(DataFile(u"Harrow March.v2q"_s))), u"no equipment list"_s);
        guide_.CheckEqual(int(tables.ArmyWeapons().Count()), kSampleWeapons + 1, u"weapons on the disk"_s);
        guide_.Check(Content(DataFile(u"Harrow March.v2q"_s))
                         .contains("NAME=Wyrm Lance\r\nDESCR=Lights the way, and whoever stands in it.\r\n"
                                   "KEY=WYRM LANCE\r\nCLASS=Projector\r\nPOINTS=5,50.625\r\n"
                                   "PROP2=1,0,0,0,0,0,0,0,1,0,0,1\r\nPROP3=4,1.5,6,1\r\n"),
                     u"the weapon isn't on the disk as designed"_s);
    });
}

void CMakerChapter::TakeOutAgain(const QString& form, const QString& prompt, const QString& name, int left) {
    guide_.At(form, u"does without it"_s, [this](QWidget& maker) { guide_.Click(maker, MMakerMenu::Delete); });
    guide_.At(u"FSelector"_s, u"deletes it"_s, [this, prompt, name, left](QWidget& selector) {
        guide_.CheckEqual(guide_.TextOf(selector, u"lblPrompt"_s), prompt, u"prompt"_s);
        guide_.CheckEqual(guide_.TextOf(selector, u"cmdOK"_s), u"Delete Item"_s, u"button"_s);
        guide_.CheckEqual(Rows(selector), left + 1, u"rows"_s);
        guide_.ClickRow(selector, u"lstItems"_s, name);
        guide_.Picture(selector, u"selector_delete"_s);
        guide_.Click(selector, u"cmdOK"_s);
    });
    guide_.At(u"FSelector"_s, u"deletes nothing else"_s, [this, left](QWidget& selector) {
        guide_.CheckEqual(Rows(selector), left, u"rows"_s);
        guide_.CheckEqual(guide_.TextOf(selector, u"cmdCancel"_s), u"Close"_s, u"button"_s);
        guide_.Click(selector, u"cmdCancel"_s);
    });
    // What was deleted under the player's hands counts as edited again.
    guide_.At(form, u"saves the list without it"_s,
              [this](QWidget& maker) { guide_.Click(maker, MMakerMenu::SaveChanges); });
    guide_.AtBox(u"doesn't want it back"_s, AddQuestion(name.toUpper()), u"No"_s);
    SaveAndLeave(form);
}

void CMakerChapter::SaveAndLeave(const QString& form) {
    guide_.At(form, u"has the equipment as at first, and leaves without a question"_s, [this](QWidget& maker) {
        CheckUnchanged();
        guide_.CheckEqual(Weapons(), kSampleWeapons, u"weapons"_s);
        guide_.CheckEqual(Accessories(), kSampleAccessories, u"accessories"_s);
        guide_.Click(maker, u"cmdExit"_s);
    });
    guide_.At(u"FConsole"_s, u"is back at the console"_s, [this](QWidget&) { CheckUnchanged(); });
}

void CMakerChapter::DesignAnAccessory() {
    Enter(u"cmdAccessoryMaker"_s, u"Create or modify basic items of equipment"_s);
    PriceACoat();
    SaveTheCoat();
    TakeOutAgain(kAccessoryMaker, u"Select the accessory to remove from the database:"_s, u"Salamander Coat"_s,
                 kSampleAccessories);
}

// What the fields suggest: 5 for each point of PF, unless the armour is the wearer's own, and of bonus; doubled by each
// 3 cm of radius, halved by a single use. The player's figure stays his own.
void CMakerChapter::PriceACoat() {
    guide_.At(kAccessoryMaker, u"types a cost beside the one suggested"_s, [this](QWidget& maker) {
        const auto costs = [&](const QString& suggested, const QString& typed, const QString& what) {
            guide_.CheckEqual(guide_.TextOf(maker, u"lblBaseCost"_s), suggested, u"suggested with "_s + what);
            guide_.CheckEqual(guide_.TextOf(maker, u"tedPointCost"_s), typed, u"cost with "_s + what);
        };
        auto* info = maker.findChild<QWidget*>(u"lblArmourInfo"_s);
        guide_.Check(!info->isVisible(), u"armour information without armour"_s);
        guide_.Choose(maker, u"cmbAccessoryType"_s, u"Infantry"_s);
        guide_.Type(maker, u"tedName"_s, u"Salamander Coat"_s);
        guide_.Type(maker, u"tedDescr"_s, u"For those who follow the Wyrm Lance."_s);
        guide_.Type(maker, u"tedPF"_s, u"3"_s);
        costs(u"15"_s, u"0"_s, u"PF"_s);  // 3 x 5
        guide_.Check(info->isVisible(), u"no armour information"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"lblArmourInfo"_s),
                          u"The cost of the armour should be calculated at PF x 5pts "_s, u"armour information"_s);
        guide_.Type(maker, u"tedPointCost"_s, u"12.5"_s);
        costs(u"15"_s, u"12.5"_s, u"a typed cost"_s);
        guide_.Type(maker, u"tedTargetingBonus"_s, u"2"_s);
        costs(u"25"_s, u"12.5"_s, u"bonus"_s);  // 10 + 15
        guide_.Click(maker, u"chkIndividualArmour"_s);
        costs(u"10"_s, u"12.5"_s, u"Individual Armour"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"lblArmourInfo"_s),
                          u"The cost of the armour will be added to the cost of the model"_s, u"armour information"_s);
        guide_.Choose(maker, u"cmbAreaOfEffect"_s, u"6"_s);
        costs(u"40"_s, u"12.5"_s, u"area"_s);  // 10 x 4
        guide_.Click(maker, u"optRecharge(3)"_s);
        costs(u"20"_s, u"12.5"_s, u"Single Use"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"lblSpecialDescr"_s),
                          u"Individual Armour, One Use, Area of Effect 6cm Radius, Targeting Bonus +2, PF 3"_s,
                          u"properties"_s);
        guide_.Picture(maker, u"accessory_maker_scifi"_s);
        guide_.Click(maker, MMakerMenu::AddToDb);
    });
    guide_.AtBox(u"confirms it"_s, AddQuestion(u"SALAMANDER COAT"_s), u"Yes"_s);
}

void CMakerChapter::SaveTheCoat() {
    guide_.At(kAccessoryMaker, u"saves it"_s, [this](QWidget& maker) {
        guide_.CheckEqual(Accessories(), kSampleAccessories + 1, u"accessories"_s);
        CheckUnchanged();
        guide_.Click(maker, MMakerMenu::SaveChanges);
        CArmyTables tables;
        guide_.Check(tables.ReadInfo(ToPath(DataFile(u"Harrow March.v2q"_s))), u"no equipment list"_s);
        guide_.CheckEqual(int(tables.ArmyAccessories().Count()), kSampleAccessories + 1, u"accessories on the disk"_s);
        guide_.Check(Content(DataFile(u"Harrow March.v2q"_s))
                         .contains("NAME=Salamander Coat\r\nDESCR=For those who follow the Wyrm Lance.\r\n"
                                   "KEY=SALAMANDER COAT\r\nCLASS=Infantry\r\nPOINTS=20,12.5\r\n"),
                     u"the coat isn't on the disk as designed"_s);
    });
}

void CMakerChapter::SeeTheOtherSkin() {
    Enter(u"cmdWeaponMaker"_s, u"Create or modify weapons"_s);
    guide_.At(kWeaponMaker, u"looks for a weapon"_s,
              [this](QWidget& maker) { guide_.Click(maker, MMakerMenu::Modify); });
    guide_.At(u"FSelector"_s, u"the selector in the other skin"_s, [this](QWidget& selector) {
        guide_.ClickRow(selector, u"lstItems"_s, u"Plague Censer"_s);
        guide_.Picture(selector, u"selector_fantasy"_s);
        guide_.Click(selector, u"cmdOK"_s);
    });
    guide_.At(kWeaponMaker, u"the weapon maker in the other skin; thinks of another name"_s, [this](QWidget& maker) {
        guide_.Hover(maker, u"optAttackType(1)"_s);
        guide_.Picture(maker, u"weapon_maker_fantasy"_s);
        guide_.Type(maker, u"tedName"_s, u"Plague Lantern"_s);
        guide_.Click(maker, MMakerMenu::SaveChanges);
    });
    guide_.AtBox(u"better not"_s, u"Rename \"PLAGUE CENSER\" as \"PLAGUE LANTERN\"?"_s, u"No"_s,
                 u"maker_rename_question_fantasy"_s);
    guide_.AtBox(u"nor beside it"_s, AddQuestion(u"PLAGUE LANTERN"_s), u"No"_s);
    SaveAndLeave(kWeaponMaker);

    Enter(u"cmdAccessoryMaker"_s, u"Create or modify basic items of equipment"_s);
    guide_.At(kAccessoryMaker, u"the accessory maker in the other skin"_s, [this](QWidget& maker) {
        guide_.Click(maker, u"cmdNext"_s);
        guide_.Click(maker, u"cmdNext"_s);
        guide_.CheckEqual(guide_.TextOf(maker, u"tedName"_s), u"Border Plate"_s, u"second accessory"_s);
        guide_.Picture(maker, u"accessory_maker_fantasy"_s);
    });
    SaveAndLeave(kAccessoryMaker);
}
