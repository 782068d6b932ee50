#pragma once

#include <cstdint>
#include <string>

class CArmyList;
class CArmyRoster;
class CArmyTables;
class CSuppTables;

/// The one state of the application: paths, rule tables, the three working documents, a modified flag for each, the
/// skin. Every form reaches the documents through these operations; no form owns or replaces one.
namespace MGlobal {

/// Indexes of the modified flags.
enum Document : std::int16_t { ArmyListDocument = 0, ArmyRosterDocument = 1, EquipmentDocument = 2 };

bool IsFileModified(std::int16_t index);
void SetFileModified(std::int16_t index, bool modified);

/// Folder for the player's files, beside the executable.
const std::string& DataFolder();
/// Paths of the working files, empty for none. Setting one touches no document.
const std::string& EquipmentFile();
void SetEquipmentFile(const std::string& path);
const std::string& ArmyListFile();
void SetArmyListFile(const std::string& path);
const std::string& ArmyRosterFile();
void SetArmyRosterFile(const std::string& path);

/// Error 91, which names their file, where the rule tables couldn't be loaded.
CSuppTables& SuppTables();
CArmyTables& ArmyTables();
CArmyList& ArmyList();
CArmyRoster& ArmyRoster();

/// 0 at the start, 1 Sci-Fi, 2 Fantasy. Never stored.
std::int32_t SkinId();
void SetSkinId(std::int32_t skin);

/// Steps of the start. A file in the place of the data folder shows a warning; a folder that can't be made is an error.
void ReadWorkingFileNames();
void CheckDataFolder();
/// Rule tables and the three documents. Every failure shows a message of its own and the next step runs; only a
/// malformed line of the scrambled tables is an error that reaches the caller, with the plain copy deleted.
void LoadWorkingFiles();

/// Asks about saving one document, or about each if `which` is negative. There is no way to cancel.
void PromptSaveModified(std::int32_t which);

/// Bring what one document copies from another up to date. The result lists what couldn't be found, each entry behind a
/// line end of its own; it is empty when all is well. No modified flag is set.
std::string SyncRosterWithArmyList();
std::string SyncArmyListWithEquipment();
/// What a warning says in front of such a list: of units, and of items of equipment.
inline constexpr const char* kUnitsNotFound = "It was not possible to find the following units in the Army List:";
inline constexpr const char* kItemsNotFound = "It was not possible to find the following items in the Army Tables:";
/// Shows the warning, unless the list is empty.
void WarnOfMissing(const char* heading, const std::string& list);
/// Prices the equipment document anew from the rule tables; lists the summaries, which can't be priced.
std::string RecalculateEquipment();

/// 0 nothing there, 1 a folder, -1 a file.
std::int16_t PathKind(const std::string& path);
/// The negative of PathKind: above 0 means that a file is there.
std::int16_t FileExists(const std::string& path);
/// `<number>: <description>` of the last run-time error.
std::string LastErrorText();
/// The path, ending in the extension, exactly.
std::string EnsureExtension(const std::string& path, const std::string& extension);

/// Back to the state before the start: no documents, no paths, no flags.
void Reset();

}  // namespace MGlobal
