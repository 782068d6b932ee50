// The operations that act on the working documents as a whole.

#include "core/files/ansi_text.h"
#include "core/files/file_access.h"
#include "core/files/hide_utils.h"
#include "core/files/platform.h"
#include "core/files/runtime_error.h"
#include "core/state/global.h"
#include "core/state/global_state.h"
#include "units/copying.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace MGlobal {

namespace {

constexpr const char* kLineEnd = "\r\n";

// Deletes the plain copy of the rule tables on every way out of the step, so that it never stays behind.
class CPlainCopy {
  public:
    explicit CPlainCopy(std::string path) : path_(std::move(path)) {}
    CPlainCopy(const CPlainCopy&) = delete;
    CPlainCopy& operator=(const CPlainCopy&) = delete;
    ~CPlainCopy() {
        Trap([&] { return MFileAccess::DeleteFile(path_), true; });
    }
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

bool ReadSuppTables(const std::string& path) {
    State().suppTables = std::make_unique<CSuppTables>();
    return State().suppTables->ReadInfo(path);
}

void LoadSuppTables() {
    const CPlainCopy plain(MPlatform::InApplicationFolder("SuppData.tmp"));
    const std::int16_t result = MHideUtils::DecodeFile(SuppTablesFile(), plain.Path());
    if (result == 1) {
        MPlatform::ShowCritical("Cannot find support tables.");
    } else if (result == 2) {
        MPlatform::ShowCritical(
            "Error while reading support tables (check disk space and file permission to the application directory).");
    } else if (result != 0 || !ReadSuppTables(plain.Path())) {
        MPlatform::ShowCritical("Error while reading support tables.");
    }
}

template <class TDocument>
void LoadDocument(std::unique_ptr<TDocument>& document, const std::string& path, const char* failure) {
    document = std::make_unique<TDocument>();
    if (!path.empty() && !document->ReadInfo(path)) MPlatform::ShowWarning(failure);
}

void PromptSave(std::int32_t which, Document index, CDocument& document, const std::string& path, const char* question,
                const char* failure) {
    if ((which >= 0 && which != index) || !IsFileModified(index) || !MPlatform::Ask(question)) return;
    if (document.WriteInfo(path)) {
        SetFileModified(index, false);
    } else {
        MPlatform::ShowWarning(failure);
    }
}

// A wrapper whose renewal fails keeps what it held: nothing is left half made.
template <class TWrapper, class TRenewal>
void RenewWhole(TWrapper& wrapper, const TRenewal& renewal) {
    const TWrapper before = wrapper;
    try {
        renewal();
    } catch (...) {
        wrapper = before;
        throw;
    }
}

// Renews a summary from its source; what it has of its own is the quantity.
void Renew(CGenUnit& unit, const CGenUnit& source) {
    RenewWhole(unit, [&] {
        const std::int16_t quantity = unit.Quantity();
        unit.Clone(source);
        unit.SetQuantity(quantity);
        unit.SetFullInfo(false);
    });
}

void Renew(CEqItem& item, const CEqItem& source) {
    RenewWhole(item, [&] {
        item.Clone(source);
        item.SetFullInfo(false);
    });
}

// Renews what a unit or squad holds, and prices it: also where the renewal ends half way.
template <class TOwner, class TRenewal>
void RenewAndPrice(TOwner& owner, const TRenewal& renewal) {
    try {
        renewal();
    } catch (...) {
        owner.CalculatePointCost();
        throw;
    }
    owner.CalculatePointCost();
}

// Renews the summaries of a list from the army list; gives the names that it doesn't hold, each behind `prefix`.
std::string RenewSummaries(CUnitList& units, const std::string& prefix) {
    std::string missing;
    const CUnitList& sources = static_cast<const CArmyList&>(ArmyList()).ArmyUnits();
    for (CGenUnit& unit : units) {
        if (unit.FullInfo()) continue;
        if (sources.Exists(unit.Name())) {
            Renew(unit, sources.Item(unit.Name()));
        } else {
            missing += prefix + unit.Name();
        }
    }
    return missing;
}

std::string RenewEquipment(CUnit& unit) {
    std::string missing;
    for (CEqItem& item : unit.EqList()) {
        if (item.FullInfo()) continue;
        const bool weapon = item.EqType() == CEqItem::Weapon;
        const CArmyTables& tables = ArmyTables();
        const CEqList& sources = weapon ? tables.ArmyWeapons() : tables.ArmyAccessories();
        if (sources.Exists(item.Name())) {
            Renew(item, sources.Item(item.Name()));
        } else {
            missing += kLineEnd + ("UNIT: " + unit.Name()) + (weapon ? ", WEAPON: " : ", ACCESSORY: ") + item.Name();
        }
    }
    return missing;
}

}  // namespace

void LoadWorkingFiles() {
    LoadSuppTables();
    CState& state = State();
    LoadDocument(state.armyTables, state.equipmentFile, "Error while reading equipment tables.");
    LoadDocument(state.armyList, state.armyListFile, "Error while reading army list.");
    LoadDocument(state.armyRoster, state.armyRosterFile, "Error while reading army roster.");
}

void PromptSaveModified(std::int32_t which) {
    PromptSave(which, EquipmentDocument, ArmyTables(), EquipmentFile(),
               "Equipment List modified, save changes to file?", "Error while writing equipment list.");
    PromptSave(which, ArmyListDocument, ArmyList(), ArmyListFile(), "Army List modified, save changes to file?",
               "Error while saving army list.");
    PromptSave(which, ArmyRosterDocument, ArmyRoster(), ArmyRosterFile(), "Army Roster modified, save changes to file?",
               "Error while saving army roster.");
}

std::string SyncRosterWithArmyList() {
    const CCopying copying;
    return RenewSummaries(ArmyRoster().ArmyUnits(), kLineEnd);
}

std::string SyncArmyListWithEquipment() {
    const CCopying copying;
    std::string missing;
    // Single units first, so that the squads copy fresh data.
    for (CGenUnit& entry : ArmyList().ArmyUnits()) {
        if (entry.GenUnitClass() != CGenUnit::Single) continue;
        CUnit& unit = entry.SingleUnit();
        RenewAndPrice(unit, [&] { missing += RenewEquipment(unit); });
    }
    for (CGenUnit& entry : ArmyList().ArmyUnits()) {
        if (entry.GenUnitClass() != CGenUnit::Squad) continue;
        CMultUnit& squad = entry.SquadUnit();
        RenewAndPrice(squad, [&] { missing += RenewSummaries(squad.Units(), std::string(kLineEnd) + "UNIT: "); });
    }
    return missing;
}

void WarnOfMissing(const char* heading, const std::string& list) {
    if (!list.empty()) MPlatform::ShowWarning(heading + MAnsiText::ToUtf8(list));
}

std::string RecalculateEquipment() {
    std::string notComputed;
    for (CEqItem& item : ArmyTables().ArmyAccessories()) {
        if (item.FullInfo()) {
            item.CalculatePointCost();
        } else {
            notComputed +=
                kLineEnd + std::string(item.EqType() == CEqItem::Accessory ? "ACCESSORY: " : "ITEM: ") + item.Name();
        }
    }
    for (CEqItem& item : ArmyTables().ArmyWeapons()) {
        if (!item.FullInfo()) {
            notComputed +=
                kLineEnd + std::string(item.EqType() == CEqItem::Weapon ? "WEAPON: " : "ITEM: ") + item.Name();
            continue;
        }
        if (CWeapon* weapon = item.AsWeapon()) {
            weapon->SetBaseCost(SuppTables().GetBasePointCost(weapon->WeaponClass()));
        }
        item.CalculatePointCost();
    }
    return notComputed;
}

}  // namespace MGlobal
