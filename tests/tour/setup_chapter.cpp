#include "tour/setup_chapter.h"

#include <QFile>
#include <QMessageBox>
#include <QTextStream>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "units/army_list.h"
#include "units/army_roster.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSource = u"Select the file to import"_s;
const QString kTarget = u"Select V2 target file name:"_s;
const std::string kBorrowed = "Borrowed";

template <class TList>
int Borrowed(const TList& list) {
    return int(
        std::count_if(list.begin(), list.end(), [](const auto& element) { return element.Descr() == kBorrowed; }));
}

QString Modified() {
    QString flags;
    for (const auto document : {MGlobal::ArmyListDocument, MGlobal::ArmyRosterDocument, MGlobal::EquipmentDocument}) {
        if (MGlobal::IsFileModified(document)) flags += QString::number(document);
    }
    return flags;
}

QString DoesNotExist(const QString& path, const QString& kind) {
    return u"File \"%1\" does not exits. Do you wish to create a new %2?"_s.arg(path, kind);
}

QString Replace(const QString& name, const QString& place) {
    return u"%1 already exists in the %2, would you like to replace it?\n\"Cancel\" terminates the merge."_s.arg(name,
                                                                                                                 place);
}

}  // namespace

void CSetupChapter::EnterSetup() {
    guide_.At(u"FConsole"_s, u"opens the setup"_s, [this](QWidget& console) {
        guide_.Hover(console, u"cmdFiles"_s);
        guide_.CheckEqual(guide_.TextOf(console, u"lblTip"_s), u"Set up your working files"_s, u"tip"_s);
        guide_.Click(console, u"cmdFiles"_s);
    });
}

void CSetupChapter::Press(const QString& step, const QString& button) {
    guide_.At(u"FSetup"_s, step, [this, button](QWidget& setup) { guide_.Click(setup, button); });
}

void CSetupChapter::Open(const QString& button, const QString& name) {
    Press(u"wants "_s + name, button);
    guide_.AtFileDialog(u"by its name"_s, u"Open"_s, name, u"Open"_s);
}

void CSetupChapter::OpenTheSampleArmy() {
    Open(u"cmdEqFileSelect"_s, u"Harrow March.v2q"_s);
    Open(u"cmdArmyListFileSelect"_s, u"Harrow March.v2l"_s);
    Open(u"cmdArmyRosterFileSelect"_s, u"Harrow March.v2r"_s);
    guide_.At(u"FSetup"_s, u"has the sample army again, as it was installed"_s, [this](QWidget& setup) {
        guide_.CheckEqual(guide_.TextOf(setup, u"tedEqFile"_s), DataFile(u"Harrow March.v2q"_s), u"equipment"_s);
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyWeapons().Count()), 20, u"weapons"_s);
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyAccessories().Count()), 13, u"accessories"_s);
        guide_.CheckEqual(int(MGlobal::ArmyList().ArmyUnits().Count()), 28, u"units"_s);
        guide_.CheckEqual(int(MGlobal::ArmyRoster().ArmyUnits().Count()), 14, u"entries"_s);
        guide_.CheckEqual(Modified(), QString(), u"modified documents"_s);
        for (const QString& name : {u"Harrow March.v2q"_s, u"Harrow March.v2l"_s, u"Harrow March.v2r"_s}) {
            guide_.Check(Content(DataFile(name)) == Content(QStringLiteral(TOUR_SAMPLE) + u'/' + name),
                         name + u" has changed on the disk"_s);
        }
    });
}

void CSetupChapter::StartAnArmyList() {
    EnterSetup();
    guide_.At(u"FSetup"_s, u"finds the sample army, and what a button is for"_s, [this](QWidget& setup) {
        guide_.CheckEqual(guide_.TextOf(setup, u"tedEqFile"_s), DataFile(u"Harrow March.v2q"_s), u"equipment"_s);
        guide_.CheckEqual(guide_.TextOf(setup, u"tedArmyListFile"_s), DataFile(u"Harrow March.v2l"_s), u"list"_s);
        guide_.CheckEqual(guide_.TextOf(setup, u"tedArmyRosterFile"_s), DataFile(u"Harrow March.v2r"_s), u"roster"_s);
        guide_.Hover(setup, u"cmdRecalculateArmyList"_s);
        guide_.CheckEqual(guide_.TextOf(setup, u"lblTip"_s),
                          u"Recalculate the cost of the army list based on the specified equipment file"_s, u"tip"_s);
        guide_.Picture(setup, u"setup_scifi"_s);
        guide_.Click(setup, u"cmdArmyListFileSelect"_s);
    });
    guide_.AtFileDialog(u"thinks better of it"_s, u"Open"_s, u"Night"_s, u"Cancel"_s);
    Press(u"starts an army list of his own"_s, u"cmdArmyListFileSelect"_s);
    guide_.AtFileDialog(u"by a new name"_s, u"Open"_s, u"Night Watch"_s, u"Open"_s, u"setup_open_dialog"_s);
    guide_.AtBox(u"is asked whether it is to be new"_s, DoesNotExist(DataFile(u"Night Watch.v2l"_s), u"army list"_s),
                 u"Yes"_s, u"setup_new_file_question"_s);
    guide_.At(u"FSetup"_s, u"has it on the disk at once"_s, [this](QWidget& setup) {
        const QString path = DataFile(u"Night Watch.v2l"_s);
        guide_.CheckEqual(guide_.TextOf(setup, u"tedArmyListFile"_s), path, u"list"_s);
        guide_.Check(Content(path).contains("COUNT=0\r\n"), u"the new army list is not on the disk"_s);
        guide_.CheckEqual(int(MGlobal::ArmyList().ArmyUnits().Count()), 0, u"units of the new list"_s);
    });
}

void CSetupChapter::ImportTheFormerRelease() {
    MissTheEquipment();
    ImportFromTheBottomUp();
    FindTheImportedRoster();
}

void CSetupChapter::MissTheEquipment() {
    Press(u"starts an equipment list"_s, u"cmdEqFileSelect"_s);
    guide_.AtFileDialog(u"by a new name"_s, u"Open"_s, u"Night Watch"_s, u"Open"_s);
    guide_.AtBox(u"confirms it"_s, DoesNotExist(DataFile(u"Night Watch.v2q"_s), u"equipment list"_s), u"Yes"_s);
    Press(u"imports an army list without its equipment"_s, u"cmdImportArmyList"_s);
    guide_.AtFileDialog(u"chooses the source"_s, kSource, u"Tallow Guard.vdl"_s, u"Open"_s, u"import_source_dialog"_s);
    guide_.AtFileDialog(u"chooses the target"_s, kTarget, u"Hasty"_s, u"Save"_s, u"import_target_dialog"_s);
    guide_.At(u"QMessageBox"_s, u"is told all that is missing"_s, [this](QWidget& box) {
        const QStringList lines = qobject_cast<QMessageBox*>(&box)->text().split(u'\n');
        guide_.CheckEqual(lines.front(), u"It was not possible to find the following items in the Army Tables:"_s,
                          u"heading"_s);
        guide_.CheckEqual(int(lines.size()), 1 + 27, u"lines"_s);
        guide_.CheckEqual(lines[1], u"UNIT: Abbé of the Wick, WEAPON: Brass Snuffer"_s, u"first item"_s);
        guide_.CheckEqual(lines.back(), u"UNIT: Wax Golem, ACCESSORY: Wax Seals"_s, u"last item"_s);
        guide_.Picture(box, u"import_missing_items"_s);
        guide_.Answer(box, u"OK"_s);
    });
    guide_.AtBox(u"still has it imported"_s, u"Import complete"_s, u"OK"_s, u"import_complete"_s);
    guide_.At(u"FSetup"_s, u"finds the converted list on the disk"_s, [this](QWidget&) {
        guide_.Check(Content(DataFile(u"Hasty.v2l"_s)).contains("NAME=Wax Golem\r\n"), u"no list was written"_s);
    });
}

void CSetupChapter::ImportFromTheBottomUp() {
    for (const auto& [button, source] : {std::pair(u"cmdImportEqFile"_s, u"Tallow Guard.vdq"_s),
                                         std::pair(u"cmdImportArmyList"_s, u"Tallow Guard.vdl"_s),
                                         std::pair(u"cmdImportArmyRoster"_s, u"Tallow Guard.vdr"_s)}) {
        Press(u"imports "_s + source, button);
        guide_.AtFileDialog(u"chooses the source"_s, kSource, source, u"Open"_s);
        guide_.AtFileDialog(u"chooses the target"_s, kTarget, u"Tallow Guard"_s, u"Save"_s);
        guide_.AtBox(u"misses nothing"_s, u"Import complete"_s, u"OK"_s);
    }
    // The title outlives the import with the equipment list, and with it alone.
    Press(u"looks for more equipment"_s, u"cmdEqFileSelect"_s);
    guide_.AtFileDialog(u"but not now"_s, kTarget, u"x"_s, u"Cancel"_s);
    Press(u"looks for more units"_s, u"cmdArmyListFileSelect"_s);
    guide_.AtFileDialog(u"but not now"_s, u"Open"_s, u"x"_s, u"Cancel"_s);
    guide_.At(u"FSetup"_s, u"finds the converted files on the disk"_s, [this](QWidget& setup) {
        CArmyTables tables;
        CArmyList list;
        CArmyRoster roster;
        guide_.Check(tables.ReadInfo(ToPath(DataFile(u"Tallow Guard.v2q"_s))), u"no equipment list"_s);
        guide_.Check(list.ReadInfo(ToPath(DataFile(u"Tallow Guard.v2l"_s))), u"no army list"_s);
        guide_.Check(roster.ReadInfo(ToPath(DataFile(u"Tallow Guard.v2r"_s))), u"no roster"_s);
        guide_.CheckEqual(int(tables.ArmyWeapons().Count()), 11, u"weapons on the disk"_s);
        guide_.CheckEqual(int(tables.ArmyAccessories().Count()), 7, u"accessories on the disk"_s);
        guide_.CheckEqual(int(list.ArmyUnits().Count()), 13, u"units on the disk"_s);
        guide_.CheckEqual(int(roster.ArmyUnits().Count()), 9, u"entries on the disk"_s);
        guide_.Picture(setup, u"setup_imported"_s);
        guide_.Click(setup, u"cmdOK"_s);
    });
}

void CSetupChapter::FindTheImportedRoster() {
    guide_.At(u"FConsole"_s, u"takes the imported army to the Army Composer"_s, [this](QWidget& console) {
        CheckSettings(u"Tallow Guard"_s);
        guide_.Click(console, u"cmdArmyComposer"_s);
    });
    guide_.At(u"FArmyComposer"_s, u"finds its total"_s, [this](QWidget& composer) {
        guide_.CheckEqual(guide_.TextOf(composer, u"tedName"_s), u"The Long Vigil"_s, u"imported roster"_s);
        guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"764.25"_s, u"total of the imported roster"_s);
        guide_.Picture(composer, u"army_composer_imported"_s);
        guide_.Click(composer, u"cmdExit"_s);
    });
}

void CSetupChapter::MergeTwoArmies() {
    EnterSetup();
    OpenTheSampleArmy();
    MergeEquipment();
    MergeUnits();
    SaveTheMerger();
}

// The imported army once more, each thing in it marked.
void CSetupChapter::MakeBorrowedFiles() {
    CArmyTables tables;
    CArmyList list;
    bool made = tables.ReadInfo(ToPath(DataFile(u"Tallow Guard.v2q"_s))) &&
                list.ReadInfo(ToPath(DataFile(u"Tallow Guard.v2l"_s)));
    for (CEqList* items : {&tables.ArmyWeapons(), &tables.ArmyAccessories()}) {
        for (CEqItem& item : *items)
            item.SetDescr(kBorrowed);
    }
    for (CGenUnit& unit : list.ArmyUnits())
        unit.SetDescr(kBorrowed);
    made = made && tables.WriteInfo(ToPath(DataFile(u"Borrowed.v2q"_s))) &&
           list.WriteInfo(ToPath(DataFile(u"Borrowed.v2l"_s)));
    guide_.Check(made, u"there is nothing to borrow"_s);
}

void CSetupChapter::MergeEquipment() {
    Open(u"cmdEqFileMerge"_s, u"Harrow March.v2q"_s);
    guide_.AtBox(u"can't merge a list into itself"_s,
                 u"You cannot merge data from the current file, choose a different file."_s, u"OK"_s,
                 u"merge_itself"_s);
    Open(u"cmdEqFileMerge"_s, u"Tallow Guard.v2q"_s);
    guide_.AtBox(u"merges without a clash"_s, u"Merge terminated"_s, u"OK"_s);
    guide_.At(u"FSetup"_s, u"has the equipment of two armies, and borrows some that clashes"_s, [this](QWidget&) {
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyWeapons().Count()), 20 + 11, u"weapons"_s);
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyAccessories().Count()), 13 + 7, u"accessories"_s);
        MakeBorrowedFiles();
    });

    Open(u"cmdEqFileMerge"_s, u"Borrowed.v2q"_s);
    const QString clash = Replace(u"Beeswax Coat"_s, u"equipment file"_s);
    guide_.AtBox(u"keeps the first piece"_s, clash, u"No"_s, u"merge_question"_s);
    guide_.AtBox(u"and all others"_s, u"Never substitute existing accessories?"_s, u"Yes"_s);
    guide_.AtBox(u"is asked no more"_s, u"Merge terminated"_s, u"OK"_s, u"merge_terminated"_s);
    guide_.At(u"FSetup"_s, u"has kept his own"_s, [this](QWidget&) {
        guide_.CheckEqual(Borrowed(MGlobal::ArmyTables().ArmyAccessories()), 0, u"borrowed accessories"_s);
        guide_.CheckEqual(Borrowed(MGlobal::ArmyTables().ArmyWeapons()), 0, u"borrowed weapons"_s);
    });

    Open(u"cmdEqFileMerge"_s, u"Borrowed.v2q"_s);
    guide_.AtBox(u"replaces the first piece"_s, clash, u"Yes"_s);
    guide_.AtBox(u"and all others"_s, u"Substitute all existing accessories?"_s, u"Yes"_s,
                 u"merge_substitute_question"_s);
    guide_.AtBox(u"is asked no more, about weapons neither"_s, u"Merge terminated"_s, u"OK"_s);
    guide_.At(u"FSetup"_s, u"has the borrowed ones"_s, [this](QWidget&) {
        guide_.CheckEqual(Borrowed(MGlobal::ArmyTables().ArmyAccessories()), 7, u"borrowed accessories"_s);
        guide_.CheckEqual(Borrowed(MGlobal::ArmyTables().ArmyWeapons()), 11, u"borrowed weapons"_s);
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyWeapons().Count()), 20 + 11, u"weapons"_s);
    });
}

void CSetupChapter::MergeUnits() {
    Open(u"cmdArmyListMerge"_s, u"Tallow Guard.v2l"_s);
    guide_.AtBox(u"merges without a clash"_s, u"Merge terminated"_s, u"OK"_s);
    Open(u"cmdArmyListMerge"_s, u"Borrowed.v2l"_s);
    guide_.AtBox(u"replaces the first unit"_s, Replace(u"Abbé of the Wick"_s, u"army list"_s), u"Yes"_s);
    guide_.AtBox(u"but wants to be asked"_s, u"Substitute all existing units?"_s, u"No"_s);
    guide_.AtBox(u"keeps the second"_s, Replace(u"Candle Sergeant"_s, u"army list"_s), u"No"_s);
    guide_.AtBox(u"has enough"_s, Replace(u"Candle Watch"_s, u"army list"_s), u"Cancel"_s);
    guide_.AtBox(u"is through"_s, u"Merge terminated"_s, u"OK"_s);
    guide_.At(u"FSetup"_s, u"has what was merged up to then"_s, [this](QWidget&) {
        guide_.CheckEqual(int(MGlobal::ArmyList().ArmyUnits().Count()), 28 + 13, u"units"_s);
        guide_.CheckEqual(Borrowed(MGlobal::ArmyList().ArmyUnits()), 1, u"borrowed units"_s);
        guide_.CheckEqual(Modified(), u"02"_s, u"modified documents"_s);
    });
}

void CSetupChapter::SaveTheMerger() {
    Press(u"saves the equipment under a new name"_s, u"cmdEqFileSaveAs"_s);
    guide_.AtFileDialog(u"which it gets"_s, u"Save As"_s, u"Joint Host"_s, u"Save"_s, u"setup_save_dialog"_s);
    // After a merge the army list's dialog goes on asking for a file that exists.
    Press(u"saves the army list"_s, u"cmdArmyListFileSaveAs"_s);
    guide_.AtFileDialog(u"under a new name too"_s, u"Save As"_s, u"Joint Host"_s, u"Save"_s);
    guide_.AtBox(u"which isn't taken"_s,
                 DataFile(u"Joint Host.v2l"_s) + u"\nFile not found.\nPlease verify the correct file name was given."_s,
                 u"OK"_s, u"save_refused"_s);
    guide_.AtFileDialog(u"takes an old name"_s, u"Save As"_s, u"Night Watch.v2l"_s, u"Save"_s);
    guide_.AtBox(u"confirms it"_s, u"Night Watch.v2l already exists.\nDo you want to replace it?"_s, u"Yes"_s,
                 u"overwrite_question"_s);
    guide_.At(u"FSetup"_s, u"has both on the disk"_s, [this](QWidget&) {
        CArmyTables tables;
        CArmyList list;
        guide_.Check(tables.ReadInfo(ToPath(DataFile(u"Joint Host.v2q"_s))), u"no equipment list"_s);
        guide_.Check(list.ReadInfo(ToPath(DataFile(u"Night Watch.v2l"_s))), u"no army list"_s);
        guide_.CheckEqual(Borrowed(tables.ArmyWeapons()), 11, u"borrowed weapons on the disk"_s);
        guide_.CheckEqual(int(list.ArmyUnits().Count()), 28 + 13, u"units on the disk"_s);
        guide_.CheckEqual(Modified(), QString(), u"modified documents"_s);
    });
}

// Only an import understands the former release. Who saves after the message loses those files.
void CSetupChapter::OpenTheWrongFiles() {
    Open(u"cmdEqFileSelect"_s, u"Tallow Guard.vdq"_s);
    guide_.AtBox(u"can't read it"_s, u"Error while reading equipment tables."_s, u"OK"_s);
    Open(u"cmdArmyListFileSelect"_s, u"Tallow Guard.vdl"_s);
    guide_.AtBox(u"can't read it"_s, u"Error while reading army list."_s, u"OK"_s, u"setup_read_failure"_s);
    Open(u"cmdArmyRosterFileSelect"_s, u"Tallow Guard.vdr"_s);
    guide_.AtBox(u"can't read it"_s, u"Error while reading army roster."_s, u"OK"_s);
    guide_.At(u"FSetup"_s, u"has empty lists, and saves all"_s, [this](QWidget& setup) {
        guide_.CheckEqual(guide_.TextOf(setup, u"tedArmyListFile"_s), DataFile(u"Tallow Guard.vdl"_s), u"list"_s);
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyWeapons().Count()), 0, u"weapons"_s);
        guide_.CheckEqual(int(MGlobal::ArmyTables().ArmyAccessories().Count()), 0, u"accessories"_s);
        guide_.CheckEqual(int(MGlobal::ArmyList().ArmyUnits().Count()), 0, u"units"_s);
        guide_.CheckEqual(int(MGlobal::ArmyRoster().ArmyUnits().Count()), 0, u"entries"_s);
        guide_.Check(Content(DataFile(u"Tallow Guard.vdl"_s)).startsWith("\"#VD_VER\""),
                     u"the failed reading has changed the file"_s);
        guide_.Picture(setup, u"setup_wrong_files"_s);
        guide_.Click(setup, u"cmdSave"_s);
    });
    guide_.AtBox(u"confirms it"_s, u"Save all files?"_s, u"Yes"_s, u"save_all_question"_s);
    guide_.At(u"FSetup"_s, u"looks at what is on the disk now"_s, [this](QWidget&) {
        for (const QString& name : {u"Tallow Guard.vdq"_s, u"Tallow Guard.vdl"_s, u"Tallow Guard.vdr"_s}) {
            const QByteArray content = Content(DataFile(name));
            QTextStream(stdout) << "--- " << name << "\n" << FromAnsi(content.toStdString()).remove(u'\r') << Qt::flush;
            guide_.Check(content.startsWith("[TOP]\r\nAPPVERSION=2_2\r\n") && !content.contains("#VD_VER"),
                         name + u" is not in the new form"_s);
            guide_.CheckEqual(int(content.count("COUNT=0\r\n")), name.endsWith(u'q') ? 2 : 1, u"empty lists"_s);
        }
    });
    OpenTheSampleArmy();
    Press(u"leaves with Cancel: the sample army is in force, the settings still name the other"_s, u"cmdCancel"_s);
}

void CSetupChapter::SwitchTheSkin() {
    EnterSetup();
    guide_.At(u"FSetup"_s, u"switches to the Fantasy skin"_s, [this](QWidget& setup) {
        CheckSettings(u"Tallow Guard"_s);
        guide_.CheckEqual(guide_.TextOf(setup, u"cmdSkin"_s), u"Sci-Fi"_s, u"skin"_s);
        guide_.Click(setup, u"cmdSkin"_s);
        guide_.CheckEqual(guide_.TextOf(setup, u"cmdSkin"_s), u"Fantasy"_s, u"skin"_s);
        guide_.CheckEqual(int(MGlobal::SkinId()), 2, u"skin"_s);
        guide_.Hover(setup, u"cmdArmyListMerge"_s);
        guide_.Picture(setup, u"setup_fantasy"_s);
        guide_.Click(setup, u"cmdOK"_s);
    });
    guide_.At(u"FConsole"_s, u"has the settings on the disk, and looks again"_s, [this](QWidget& console) {
        CheckSettings(u"Harrow March"_s);
        guide_.Click(console, u"cmdFiles"_s);
    });
    // The button knows nothing of the skin in force: it always opens unselected.
    guide_.At(u"FSetup"_s, u"finds the button as at first, in the Fantasy skin"_s, [this](QWidget& setup) {
        guide_.CheckEqual(guide_.TextOf(setup, u"cmdSkin"_s), u"Sci-Fi"_s, u"skin"_s);
        guide_.Picture(setup, u"setup_fantasy_again"_s);
        guide_.Click(setup, u"cmdCancel"_s);
    });
}

void CSetupChapter::CheckSettings(const QString& army) {
    const QString settings = QFile::decodeName(Content(home_ + u"/vdtools2.ini"_s));
    for (const auto& [key, extension] :
         {std::pair(u"EquipmentFile"_s, u".v2q"_s), std::pair(u"ArmyListFile"_s, u".v2l"_s),
          std::pair(u"ArmyRosterFile"_s, u".v2r"_s)}) {
        const QString line = u"\n%1=%2\r\n"_s.arg(key, DataFile(army + extension));
        guide_.Check(settings.contains(line), u"the settings lack "_s + line.trimmed());
    }
}
