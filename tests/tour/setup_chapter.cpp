#include <QFile>
#include <QRegularExpression>

#include "tour/tour.h"

namespace {

QString NewFileQuestion(const QString& path, const QString& kind) {
    return QString("File \"%1\" does not exits. Do you wish to create a new %2?").arg(path, kind);
}

QString ReplaceQuestion(const QString& name, const QString& place) {
    return QString("%1 already exists in the %2, would you like to replace it?\n\"Cancel\" terminates the merge.")
        .arg(name, place);
}

}  // namespace

void CTour::Pick(const QString& button, const QString& title, const QString& name, const QString& answer,
                 const QString& picture) {
    setup_.Click(button);
    FileDialog(title, name, answer, picture);
}

void CTour::OpenTheSampleArmy() {
    Tell("opens the sample army, which is as it was installed");
    Open("cmdEqFileSelect", "Harrow March.v2q");
    Open("cmdArmyListFileSelect", "Harrow March.v2l");
    Open("cmdArmyRosterFileSelect", "Harrow March.v2r");
    setup_.Shows("tedEqFile", DataFile("Harrow March.v2q"));
    InMemory({20, 13, 28, 14});
    for (const char* name : {"Harrow March.v2q", "Harrow March.v2l", "Harrow March.v2r"})
        AsInstalled(name);
}

void CTour::StartAnArmyList() {
    Enter("cmdFiles", "Set up your working files");
    setup_.Shows("tedEqFile", DataFile("Harrow March.v2q"));
    setup_.Shows("tedArmyListFile", DataFile("Harrow March.v2l"));
    setup_.Shows("tedArmyRosterFile", DataFile("Harrow March.v2r"));
    setup_.Hover("cmdRecalculateArmyList").Picture("setup_scifi");

    Tell("starts an army list of his own, at the second attempt");
    Pick("cmdArmyListFileSelect", "Open", "Night", "Cancel");
    Pick("cmdArmyListFileSelect", "Open", "Night Watch", "Open", "setup_open_dialog");
    Box(NewFileQuestion(DataFile("Night Watch.v2l"), "army list"), "Yes", "setup_new_file_question");
    setup_.Shows("tedArmyListFile", DataFile("Night Watch.v2l"));
    OnDisk("Night Watch", {-1, -1, 0, -1});
    InMemory({20, 13, 0, 14});
}

void CTour::ImportTheFormerRelease() {
    const QString source = "Select the file to import";
    const QString target = "Select V2 target file name:";
    Tell("imports an army list without its equipment, and is told all that is missing");
    Open("cmdEqFileSelect", "Night Watch");
    Box(NewFileQuestion(DataFile("Night Watch.v2q"), "equipment list"), "Yes");
    Pick("cmdImportArmyList", source, "Tallow Guard.vdl", "Open", "import_source_dialog");
    FileDialog(target, "Hasty", "Save", "import_target_dialog");
    guide_.Add("QMessageBox", {}, [this](QWidget& box) {
        const QStringList lines = box.property("text").toString().split('\n');
        guide_.CheckEqual<QString>("the box", lines.front(),
                                   "It was not possible to find the following items in the Army Tables:");
        guide_.CheckEqual("the count of missing items", int(lines.size()) - 1, 27);
        guide_.CheckEqual<QString>("the box", lines[1], "UNIT: Abbé of the Wick, WEAPON: Brass Snuffer");
        guide_.CheckEqual<QString>("the box", lines.back(), "UNIT: Wax Golem, ACCESSORY: Wax Seals");
    });
    box_.Picture("import_missing_items").Answer("OK");
    Box("Import complete", "OK", "import_complete");
    Holds(DataFile("Hasty.v2l"), "NAME=Wax Golem\r\n");

    Tell("imports from the bottom up, and misses nothing");
    for (const auto& [button, name] : {std::pair("cmdImportEqFile", "Tallow Guard.vdq"),
                                       {"cmdImportArmyList", "Tallow Guard.vdl"},
                                       {"cmdImportArmyRoster", "Tallow Guard.vdr"}}) {
        Pick(button, source, name, "Open");
        FileDialog(target, "Tallow Guard", "Save");
        Box("Import complete", "OK");
    }
    // The title outlives the import with the equipment list, and with it alone.
    Pick("cmdEqFileSelect", target, "x", "Cancel");
    Pick("cmdArmyListFileSelect", "Open", "x", "Cancel");
    OnDisk("Tallow Guard", {11, 7, 13, 9});
    setup_.Picture("setup_imported").Click("cmdOK");
    CheckSettings("Tallow Guard");
    Enter("cmdArmyComposer", "Compose your army");
    armyComposer_.Shows("tedName", "The Long Vigil").Costs("764.25").Picture("army_composer_imported").Click("cmdExit");
}

// The imported army once more, each thing in it marked.
void CTour::Borrow(const QString& extension) {
    Then([=, this] {
        QString text = QString::fromLatin1(Content(DataFile("Tallow Guard" + extension)));
        text.replace(QRegularExpression("DESCR=[^\r]*"), "DESCR=Borrowed");
        QFile file(DataFile("Borrowed" + extension));
        guide_.Check(file.open(QIODevice::WriteOnly) && file.write(text.toLatin1()) > 0, "There is nothing to borrow");
    });
}

void CTour::MergeEquipment() {
    const QString question = ReplaceQuestion("Beeswax Coat", "equipment file");
    Enter("cmdFiles", "Set up your working files");
    OpenTheSampleArmy();
    Tell("merges equipment: not into itself, then without a clash");
    Open("cmdEqFileMerge", "Harrow March.v2q");
    Box("You cannot merge data from the current file, choose a different file.", "OK", "merge_itself");
    Open("cmdEqFileMerge", "Tallow Guard.v2q");
    Box("Merge terminated", "OK");
    InMemory({20 + 11, 13 + 7, 28, 14}, "2");

    Tell("borrows equipment that clashes, and keeps his own");
    Borrow(".v2q");
    Borrow(".v2l");
    Open("cmdEqFileMerge", "Borrowed.v2q");
    Box(question, "No", "merge_question");
    Box("Never substitute existing accessories?", "Yes");
    Box("Merge terminated", "OK", "merge_terminated");
    InMemory({20 + 11, 13 + 7, 28, 14}, "2");

    Tell("prefers the borrowed equipment, and is not asked about weapons again");
    Open("cmdEqFileMerge", "Borrowed.v2q");
    Box(question, "Yes");
    Box("Substitute all existing accessories?", "Yes", "merge_substitute_question");
    Box("Merge terminated", "OK");
    InMemory({20 + 11, 13 + 7, 28, 14}, "2", 11 + 7);
}

void CTour::MergeUnitsAndSave() {
    Tell("merges units, until he has enough");
    Open("cmdArmyListMerge", "Tallow Guard.v2l");
    Box("Merge terminated", "OK");
    Open("cmdArmyListMerge", "Borrowed.v2l");
    Box(ReplaceQuestion("Abbé of the Wick", "army list"), "Yes");
    Box("Substitute all existing units?", "No");
    Box(ReplaceQuestion("Candle Sergeant", "army list"), "No");
    Box(ReplaceQuestion("Candle Watch", "army list"), "Cancel");
    Box("Merge terminated", "OK");
    InMemory({20 + 11, 13 + 7, 28 + 13, 14}, "02", 11 + 7 + 1);

    Tell("saves both lists under other names");
    Pick("cmdEqFileSaveAs", "Save As", "Joint Host", "Save", "setup_save_dialog");
    // After a merge the army list's dialog goes on asking for a file that exists.
    Pick("cmdArmyListFileSaveAs", "Save As", "Joint Host", "Save");
    Box(DataFile("Joint Host.v2l") + "\nFile not found.\nPlease verify the correct file name was given.", "OK",
        "save_refused");
    FileDialog("Save As", "Night Watch.v2l", "Save");
    Box("Night Watch.v2l already exists.\nDo you want to replace it?", "Yes", "overwrite_question");
    OnDisk("Joint Host", {20 + 11, 13 + 7, -1, -1});
    Holds(DataFile("Joint Host.v2q"), "DESCR=Borrowed\r\n", 11 + 7);
    OnDisk("Night Watch", {0, 0, 28 + 13, -1});
    InMemory({20 + 11, 13 + 7, 28 + 13, 14}, "", 11 + 7 + 1);
}

// Only an import understands the former release. Who saves after the message loses those files.
void CTour::OpenTheWrongFiles() {
    Tell("opens files that can't be read, and saves all the same");
    Open("cmdEqFileSelect", "Tallow Guard.vdq");
    Box("Error while reading equipment tables.", "OK");
    Open("cmdArmyListFileSelect", "Tallow Guard.vdl");
    Box("Error while reading army list.", "OK", "setup_read_failure");
    Open("cmdArmyRosterFileSelect", "Tallow Guard.vdr");
    Box("Error while reading army roster.", "OK");
    setup_.Shows("tedArmyListFile", DataFile("Tallow Guard.vdl"));
    InMemory({0, 0, 0, 0});
    Holds(DataFile("Tallow Guard.vdl"), "\"#VD_VER\"");
    setup_.Picture("setup_wrong_files").Click("cmdSave");
    Box("Save all files?", "Yes", "save_all_question");
    for (const auto& [name, lists] :
         {std::pair("Tallow Guard.vdq", 2), {"Tallow Guard.vdl", 1}, {"Tallow Guard.vdr", 1}}) {
        Holds(DataFile(name), "[TOP]\r\nAPPVERSION=2_2\r\n");
        Holds(DataFile(name), "#VD_VER", 0);
        Holds(DataFile(name), "COUNT=0\r\n", lists);
    }
    OpenTheSampleArmy();
    Tell("leaves with Cancel: the sample army is in force, the settings still name the other");
    setup_.Click("cmdCancel");
    CheckSettings("Tallow Guard");
}

void CTour::SwitchTheSkin() {
    Enter("cmdFiles", "Set up your working files");
    setup_.Shows("cmdSkin", "Sci-Fi").Click("cmdSkin").Shows("cmdSkin", "Fantasy");
    setup_.Hover("cmdArmyListMerge").Picture("setup_fantasy").Click("cmdOK");
    CheckSettings("Harrow March");
    // The button knows nothing of the skin in force: it always opens unselected.
    Enter("cmdFiles", "Set up your working files");
    setup_.Shows("cmdSkin", "Sci-Fi").Picture("setup_fantasy_again").Click("cmdCancel");
}

void CTour::CheckSettings(const QString& army) {
    for (const auto& [key, extension] :
         {std::pair("EquipmentFile", ".v2q"), {"ArmyListFile", ".v2l"}, {"ArmyRosterFile", ".v2r"}}) {
        const QString line = QString("\n%1=%2\r\n").arg(key, DataFile(army + extension));
        Holds(home_ + "/vdtools2.ini", QFile::encodeName(line), 1);
    }
}
