#include "tour/tour.h"

#include <QFile>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace {

using CCounts = QList<int>;

CCounts Count(CArmyTables& tables, CArmyList& list, CArmyRoster& roster) {
    return {int(tables.ArmyWeapons().Count()), int(tables.ArmyAccessories().Count()), int(list.ArmyUnits().Count()),
            int(roster.ArmyUnits().Count())};
}

CCounts CountOnDisk(const QString& path) {
    CArmyTables tables;
    CArmyList list;
    CArmyRoster roster;
    const bool hasTables = tables.ReadInfo(ToPath(path + ".v2q"));
    const bool hasList = list.ReadInfo(ToPath(path + ".v2l"));
    const bool hasRoster = roster.ReadInfo(ToPath(path + ".v2r"));
    CCounts counts = Count(tables, list, roster);
    if (!hasTables) counts[0] = counts[1] = -1;
    if (!hasList) counts[2] = -1;
    if (!hasRoster) counts[3] = -1;
    return counts;
}

template <class TList>
int CountBorrowed(const TList& list) {
    return int(std::count_if(list.begin(), list.end(), [](const auto& item) { return item.Descr() == "Borrowed"; }));
}

}  // namespace

void CTour::Write() {
    LookAround("console_scifi");
    ReadAbout("about_scifi");
    StartAnArmyList();
    ImportTheFormerRelease();
    MergeEquipment();
    MergeUnitsAndSave();
    OpenTheWrongFiles();
    DesignAWeapon();
    ChangeTheWeaponAgain();
    DesignAnAccessory();
    DesignAnOfficer();
    DesignAVehicle();
    DesignARobotFlyer();
    FindAndSaveTheUnits();
    SeeTheSampleSquads();
    PickAnArmy();
    ViewAndSaveTheRoster();
    MindThePicture();
    SwitchTheSkin();
    ReadAbout("about_fantasy");
    LookAround("console_fantasy");
    SeeTheMakersInTheOtherSkin();
    SeeTheUnitMakerInTheOtherSkin();
    SeeTheComposerInTheOtherSkin();
    ComposeAPatrol();
    ChangeAWeapon();
    PrintTheRoster();
    Quit();
}

void CTour::LookAround(const QString& picture) {
    Tell("looks at the console, which tells what a button is for");
    console_.Hover("cmdArmyComposer").Shows("lblTip", "Compose your army").Picture(picture);
}

void CTour::ReadAbout(const QString& picture) {
    Tell("reads about the program");
    console_.Click("cmdAbout");
    about_.Hover("cmdOK").Picture(picture).Click("cmdOK");
}

void CTour::Quit() {
    Tell("quits, and saves on the way out");
    console_.Click("cmdQuit");
    // The deletion that was declined has left the army list counting as modified.
    Box("Army List modified, save changes to file?", "Yes", "save_question");
    Box("Army Roster modified, save changes to file?", "Yes");
}

void CTour::CheckTheEnd() {
    CArmyRoster roster;
    guide_.CheckEqual("the army on the disk", CountOnDisk(DataFile("Harrow March")), {20, 13, 32, 16});
    guide_.Check(roster.ReadInfo(ToPath(DataFile("Harrow March.v2r"))), "The saved roster can't be read");
    guide_.CheckEqual<QString>("its name", FromAnsi(roster.Name()), "Ford Watch");
    guide_.CheckEqual("the place of the squad", int(roster.ArmyUnits().GetIndex("HEDGE FIRE")), 14);
}

void CTour::Then(std::function<void()> look) {
    guide_.Add({}, {}, [look = std::move(look)](QWidget&) { look(); });
}

void CTour::Enter(const QString& button, const QString& tip) {
    Tell("wants to " + tip.toLower());
    console_.Hover(button).Shows("lblTip", tip).Click(button);
}

void CTour::GoTo(const CTourWindow& maker, const QString& item) {
    maker.Click(MMenu::Modify);
    selector_.DoubleClickRow("lstItems", item);
}

void CTour::Box(const QString& text, const QString& button, const QString& picture) {
    box_.Shows("qt_msgbox_label", text);
    if (!picture.isEmpty()) box_.Picture(picture);
    box_.Answer(button);
}

void CTour::BoxToAdd(const QString& key, const QString& button, const QString& picture) {
    Box("Add \"" + key + "\" to the list?", button, picture);
}

void CTour::FileDialog(const QString& title, const QString& name, const QString& button, const QString& picture) {
    fileDialog_.HasTitle(title).Type("fileNameEdit", name);
    if (!picture.isEmpty()) fileDialog_.Picture(picture);
    fileDialog_.Answer(button);
}

void CTour::InMemory(const QList<int>& counts, const QString& modified, int borrowed) {
    Then([=, this] {
        CArmyTables& tables = MGlobal::ArmyTables();
        CArmyList& list = MGlobal::ArmyList();
        guide_.CheckEqual("the documents", Count(tables, list, MGlobal::ArmyRoster()), counts);
        QString flags;
        for (const auto document : {MGlobal::ArmyListDocument, MGlobal::ArmyRosterDocument, MGlobal::EquipmentDocument})
            if (MGlobal::IsFileModified(document)) flags += QString::number(document);
        guide_.CheckEqual("the modified documents", flags, modified);
        const int seen = CountBorrowed(tables.ArmyWeapons()) + CountBorrowed(tables.ArmyAccessories()) +
                         CountBorrowed(list.ArmyUnits());
        guide_.CheckEqual("the things borrowed", seen, borrowed);
    });
}

void CTour::OnDisk(const QString& army, const QList<int>& counts) {
    Then([=, this] { guide_.CheckEqual(army, CountOnDisk(DataFile(army)), counts); });
}

void CTour::Holds(const QString& path, const QByteArray& text, int times) {
    Then([=, this] {
        const auto seen = Content(path).count(text);
        guide_.Check(times < 0 ? seen > 0 : seen == times,
                     QString("%1 holds %2 times, expected %3:\n%4").arg(path).arg(seen).arg(times).arg(QString(text)));
    });
}

void CTour::Equal(const QString& path, const QString& expected) {
    Then([=, this] { guide_.Check(Content(path) == Content(expected), path + " isn't equal to " + expected); });
}

QByteArray CTour::Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
