#include "core/state/global.h"

#include <array>
#include <memory>

#include "core/files/file_access.h"
#include "core/files/platform.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/state/app.h"
#include "core/state/global_state.h"

namespace MGlobal {

CState& State() {
    static CState state;
    return state;
}

std::string SuppTablesFile() {
    return MPlatform::InApplicationFolder("SuppData.vdx");
}

namespace {

template <class TObject>
TObject& Required(const std::unique_ptr<TObject>& object) {
    if (!object) throw CRuntimeError(ErrorNumber::ObjectNotSet);
    return *object;
}

bool* FlagAt(std::int16_t index) {
    auto& flags = State().modified;
    return index >= 0 && static_cast<std::size_t>(index) < flags.size() ? &flags[static_cast<std::size_t>(index)]
                                                                        : nullptr;
}

}  // namespace

bool IsFileModified(std::int16_t index) {
    const bool* flag = FlagAt(index);
    return flag != nullptr && *flag;
}

void SetFileModified(std::int16_t index, bool modified) {
    if (bool* flag = FlagAt(index)) *flag = modified;
}

const std::string& DataFolder() {
    return State().dataFolder;
}

const std::string& EquipmentFile() {
    return State().equipmentFile;
}

void SetEquipmentFile(const std::string& path) {
    State().equipmentFile = path;
}

const std::string& ArmyListFile() {
    return State().armyListFile;
}

void SetArmyListFile(const std::string& path) {
    State().armyListFile = path;
}

const std::string& ArmyRosterFile() {
    return State().armyRosterFile;
}

void SetArmyRosterFile(const std::string& path) {
    State().armyRosterFile = path;
}

CSuppTables& SuppTables() {
    if (State().suppTables == nullptr) throw CRuntimeError(ErrorNumber::ObjectNotSet, SuppTablesFile());
    return *State().suppTables;
}

CArmyTables& ArmyTables() {
    return Required(State().armyTables);
}

CArmyList& ArmyList() {
    return Required(State().armyList);
}

CArmyRoster& ArmyRoster() {
    return Required(State().armyRoster);
}

std::int32_t SkinId() {
    return State().skinId;
}

void SetSkinId(std::int32_t skin) {
    State().skinId = skin;
}

void ReadWorkingFileNames() {
    CState& state = State();
    state.dataFolder = MPlatform::InApplicationFolder("Data");
    CProfile& profile = MApp::Profile();
    const auto read = [&profile](const char* key, std::string& path) {
        if (!profile.ReadProfile("Files", key, path)) path.clear();
    };
    read("ArmyRosterFile", state.armyRosterFile);
    read("EquipmentFile", state.equipmentFile);
    read("ArmyListFile", state.armyListFile);
}

void CheckDataFolder() {
    const std::string& folder = DataFolder();
    switch (PathKind(folder)) {
        case 0:
            MFileAccess::MakeFolder(folder);
            break;
        case -1:
            MPlatform::ShowWarning("Attenzione, esiste un file con nome " + folder +
                                   ". Questo file deve essere rimosso o rinominato perche' questo programma "
                                   "funzioni correttamente.");
            break;
        default:
            break;
    }
}

std::int16_t PathKind(const std::string& path) {
    return static_cast<std::int16_t>(MFileAccess::KindOf(path));
}

std::int16_t FileExists(const std::string& path) {
    return static_cast<std::int16_t>(-PathKind(path));
}

std::string LastErrorText() {
    return std::to_string(MLastError::Number()) + ": " + MLastError::Description();
}

std::string EnsureExtension(const std::string& path, const std::string& extension) {
    return path.ends_with(extension) ? path : path + extension;
}

void Reset() {
    State() = CState();
}

}  // namespace MGlobal
