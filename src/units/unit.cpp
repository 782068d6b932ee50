#include "units/unit.h"

#include <utility>

#include "core/files/file_format.h"
#include "core/files/int16.h"
#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/sequential.h"
#include "units/copying.h"

namespace {

constexpr std::int16_t kNoLimit = std::numeric_limits<std::int16_t>::max();

struct SStatLimits {
    std::int16_t lowest;  // of a value that isn't 0
    std::int16_t highest;
};

constexpr std::array<SStatLimits, CUnit::StatCount> kInfantryLimits = {{{1, 20}, {2, 6}, {2, 6}, {1, 5}, {2, 6}}};
constexpr std::array<SStatLimits, CUnit::StatCount> kOtherLimits = {
    {{1, kNoLimit}, {2, 6}, {2, 6}, {1, kNoLimit}, {1, 6}}};

struct STypeDefaults {
    const char* unitClass;
    const char* subclass;
    std::array<std::int16_t, CUnit::StatCount> stats;
    double baseCost;
    std::int16_t exposedCrew;
};

constexpr std::array<STypeDefaults, CUnit::TypeCount> kTypeDefaults = {{
    {"Infantry", "", {10, 6, 6, 0, 6}, 5, 0},
    {"Vehicle", "", {10, 0, 0, 0, 0}, 5, 1},
    {"Robot", "Slave", {10, 6, 0, 0, 0}, 5, 0},
    {"Robot", "Autonomous", {10, 6, 0, 0, 1}, 15, 0},
}};

// Order of the special words in files.
constexpr std::array<CUnit::Special, CUnit::SpecialCount> kSpecialFileOrder = {
    CUnit::Officer, CUnit::Flyer, CUnit::Medic, CUnit::HeroicSave, CUnit::SharpShooter, CUnit::Ferocious};

template <std::size_t size>
std::string CommaList(const std::array<std::int16_t, size>& numbers) {
    std::string list;
    for (const std::int16_t number : numbers)
        MFileFormat::AppendItem(list, std::to_string(number));
    return list;
}

template <std::size_t size>
void ReadCommaList(std::string_view text, std::array<std::int16_t, size>& numbers) {
    const MNumberText::CCommaList items(text);
    for (std::size_t i = 0; i < size; ++i)
        numbers[i] = MNumberText::ToInt16(items.Item(i));
}

std::size_t CheckedCrew(std::int32_t index) {
    if (index < 0 || index >= CUnit::CrewPlaceCount) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
}

std::string EqListSection(const std::string& section) {
    return section + "_EQLIST";
}

}  // namespace

CUnit::CUnit() {
    InitUnit();
}

void CUnit::InitUnit() {
    SetName("");
    descr_.clear();
    key_.clear();
    SetTypeDefaults();
    stats_ = baseStats_;
    eqList_ = std::make_unique<CEqList>();
    CalculatePointCost();
}

void CUnit::SetTypeDefaults() {
    baseStats_[MV] = 10;
    baseStats_[SS] = 6;
    baseStats_[FA] = 0;
    baseStats_[PF] = 0;
    crew_.fill(0);
    specials_.fill(0);
    if (type_ < 0 || type_ >= TypeCount) return;
    const STypeDefaults& defaults = kTypeDefaults[static_cast<std::size_t>(type_)];
    class_ = defaults.unitClass;
    subclass_ = defaults.subclass;
    baseStats_ = defaults.stats;
    typeBaseCost_ = defaults.baseCost;
    crew_[FullyExposed] = defaults.exposedCrew;
}

void CUnit::SetUnitType(std::int32_t type) {
    type_ = type;
    SetTypeDefaults();
    CalculatePointCost();
}

std::int16_t CUnit::StatValue(std::int32_t index) const {
    return IsValidStatIndex(index) ? stats_[static_cast<std::size_t>(index)] : std::int16_t{0};
}

void CUnit::SetStatValue(std::int32_t index, std::int16_t value) {
    if (!IsValidStatIndex(index)) return;
    const auto i = static_cast<std::size_t>(index);
    const SStatLimits& limits = (type_ == Infantry ? kInfantryLimits : kOtherLimits)[i];
    if (value < 0) value = 0;
    if (value > limits.highest) value = limits.highest;
    if (value != 0 && value < limits.lowest) value = limits.lowest;
    stats_[i] = value;
    CalculatePointCost();
}

std::int16_t CUnit::SpecialProp(std::int32_t index) const {
    return IsValidPropIndex(index) ? specials_[static_cast<std::size_t>(index)] : std::int16_t{0};
}

void CUnit::SetSpecialProp(std::int32_t index, std::int16_t value) {
    if (!IsValidPropIndex(index)) return;
    specials_[static_cast<std::size_t>(index)] = value;
    CalculatePointCost();
}

std::int16_t CUnit::Crew(std::int32_t index) const {
    return crew_[CheckedCrew(index)];
}

void CUnit::SetCrew(std::int32_t index, std::int16_t places) {
    crew_[CheckedCrew(index)] = places < 0 ? std::int16_t{0} : places;
    CalculatePointCost();
}

std::string_view CUnit::CrewDescription(std::int32_t index) {
    constexpr std::array<std::string_view, CrewPlaceCount> kDescriptions = {
        "Fully exposed crew (riding outside or on the vehicle)",
        "Partially exposed crew (head or torso always out of the vehicle)",
        "Crew riding inside the vehicle",
        "Crew riding inside the vehicle with full life support",
    };
    return kDescriptions[CheckedCrew(index)];
}

void CUnit::SetQuantity(std::int16_t quantity) {
    if (quantity < 1) quantity = 1;
    if (FullInfo()) {
        quantity_ = quantity;
        CalculatePointCost();
        return;
    }
    if (quantity_ == 0) throw CRuntimeError(ErrorNumber::DivisionByZero);
    pointCost_ = MNumberText::Finite((pointCost_ / quantity_) * quantity);
    equippedPointCost_ = MNumberText::Finite((equippedPointCost_ / quantity_) * quantity);
    quantity_ = quantity;
}

bool CUnit::AddItem(std::shared_ptr<CEqItem> item) {
    return Trap([&] {
        eqList_->Add(item);
        const CAccessory* accessory = item->AsAccessory();
        if (accessory != nullptr && accessory->AccProperty(CAccessory::IndividualArmour)) {
            SetStatValue(PF, (CInt16(stats_[PF]) + accessory->PF()).Value());
        }
        item->SetFullInfo(false);
        CalculatePointCost();
        return true;
    });
}

template <class TKey>
bool CUnit::RemoveItemAt(TKey key) {
    return Trap([&] {
        const CAccessory* accessory = eqList_->Item(key).AsAccessory();
        if (accessory != nullptr && accessory->AccProperty(CAccessory::IndividualArmour)) {
            SetStatValue(PF, (CInt16(stats_[PF]) - accessory->PF()).Value());
        }
        eqList_->Remove(key);
        CalculatePointCost();
        return true;
    });
}

bool CUnit::RemoveItem(std::int32_t position) {
    return RemoveItemAt(position);
}

bool CUnit::RemoveItem(std::string_view key) {
    return RemoveItemAt(key);
}

std::string CUnit::SpecialPropertiesStr() const {
    std::string text;
    if (specials_[Officer] > 0) text += "Officer +" + std::to_string(specials_[Officer]) + ", ";
    if (specials_[HeroicSave] > 0) text += "Heroic Save + " + std::to_string(specials_[HeroicSave]) + ", ";
    if (specials_[Medic] != 0) text += "Medic, ";
    if (specials_[SharpShooter] != 0) text += "SharpShooter, ";
    if (specials_[Flyer] != 0) text += "Flyer, ";
    if (specials_[Ferocious] != 0) text += "Ferocious, ";
    return MEquipmentRules::WithoutLastSeparator(text);
}

void CUnit::Clone(const CUnit& source) {
    SetVersion(source.version_);
    SetName(source.Name());
    descr_ = source.descr_;
    SetUnitType(source.type_);
    key_ = source.key_;
    quantity_ = source.quantity_;
    SetFullInfo(source.FullInfo());
    for (std::int32_t i = 0; i < StatCount; ++i)
        SetStatValue(i, source.StatValue(i));
    for (std::int32_t i = 0; i < SpecialCount; ++i)
        SetSpecialProp(i, source.SpecialProp(i));
    for (std::int32_t i = 0; i < CrewPlaceCount; ++i)
        SetCrew(i, source.Crew(i));
    eqList_->Clear();
    CCopying copying;
    for (const CEqItem& item : source.EqList()) {
        copying.CountItem();
        auto copy = std::make_shared<CEqItem>();
        copy->Clone(item);
        eqList_->Add(std::move(copy));
    }
    pointCost_ = source.pointCost_;
    equippedPointCost_ = source.equippedPointCost_;
}

bool CUnit::WriteInfo(CProfile* profile, const std::string& section) const {
    return Trap([&] {
        if (profile == nullptr) return false;
        if (!WriteIdentity(*profile, section, "#U") || !profile->WriteProfile(section, "TYPE", std::to_string(type_)) ||
            !profile->WriteProfile(section, "CLASS", class_) ||
            !profile->WriteProfile(section, "SUBCLASS", subclass_) || !WriteQuantityAndPoints(*profile, section)) {
            return false;
        }
        if (!FullInfo()) return true;
        std::string specials;
        for (const Special index : kSpecialFileOrder) {
            MFileFormat::AppendItem(specials, std::to_string(specials_[index]));
        }
        return profile->WriteProfile(section, "STATS", CommaList(stats_)) &&
               profile->WriteProfile(section, "PROP2", CommaList(crew_)) &&
               profile->WriteProfile(section, "PROP3", specials) && eqList_->WriteInfo(profile, EqListSection(section));
    });
}

bool CUnit::ReadInfo(CProfile* profile, const std::string& section) {
    return Trap([&] {
        if (profile == nullptr || !ReadIdentity(*profile, section, "#U")) return false;
        std::string text;
        if (!profile->ReadProfile(section, "TYPE", text)) return false;
        type_ = MNumberText::ToInt32(text);
        class_.clear();
        subclass_.clear();
        if (!profile->ReadProfile(section, "CLASS", class_)) return false;
        if (!profile->ReadProfile(section, "SUBCLASS", subclass_)) return false;
        if (!ReadQuantityAndPoints(*profile, section)) return false;
        if (!FullInfo()) return true;

        SetTypeDefaults();
        if (!profile->ReadProfile(section, "STATS", text)) return false;
        ReadCommaList(text, stats_);
        if (!profile->ReadProfile(section, "PROP2", text)) return false;
        ReadCommaList(text, crew_);
        if (!profile->ReadProfile(section, "PROP3", text)) return false;
        const MNumberText::CCommaList specials(text);
        for (std::size_t i = 0; i < kSpecialFileOrder.size(); ++i) {
            const Special index = kSpecialFileOrder[i];
            // These two were reals once, and old files may still hold fractions.
            const bool real = index == Flyer || index == Ferocious;
            specials_[index] = real ? MNumberText::RoundToInt16(MNumberText::ToReal(specials.Item(i)))
                                    : MNumberText::ToInt16(specials.Item(i));
        }
        if (!eqList_->ReadInfo(profile, EqListSection(section))) return false;
        CalculatePointCost();
        return true;
    });
}

void CUnit::ImportAbilities(CSequentialInput& file, std::int16_t recordVersion) {
    class_ = file.ReadText();
    subclass_ = file.ReadText();
    for (std::int16_t& stat : stats_)
        stat = file.ReadInt16();
    for (std::int16_t& places : crew_)
        places = file.ReadInt16();
    specials_[Officer] = file.ReadInt16();
    specials_[Flyer] = file.ReadInt16();
    if (recordVersion >= 2) {
        specials_[Medic] = file.ReadInt16();
        specials_[HeroicSave] = file.ReadInt16();
        specials_[SharpShooter] = file.ReadInt16();
    } else if (stats_[FA] != 0) {
        // The first records counted FA upward.
        const CInt16 downward = CInt16(7) - stats_[FA];
        stats_[FA] = downward.Value() < 0 ? std::int16_t{0} : downward.Value();
    }
}

bool CUnit::ImportInfoV1(CSequentialInput& file, bool readTag) {
    return Trap([&] {
        if (readTag && !file.ReadTag("#U")) return false;
        const std::int16_t recordVersion = ImportIdentity(file);
        type_ = file.ReadInt32();
        SetTypeDefaults();
        if (FullInfo()) {
            ImportAbilities(file, recordVersion);
        } else {
            class_ = file.ReadText();
            subclass_ = file.ReadText();
        }
        if (!file.SkipToTag("#P")) return false;
        pointCost_ = file.ReadReal();
        equippedPointCost_ = file.ReadReal();
        if (!FullInfo()) return true;
        const bool equipped = eqList_->ImportInfoV1(file, false);
        CalculatePointCost();
        return equipped;
    });
}
