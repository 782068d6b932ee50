#include "core/state/supp_tables.h"

#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "core/files/platform.h"
#include "core/files/sequential.h"
#include "core/state/global.h"

const std::array<CSuppTables::SNameSection, 3> CSuppTables::kNameSections = {{
    {"#CU", &CSuppTables::unitClasses_},
    {"#CW", &CSuppTables::weaponClasses_},
    {"#CA", &CSuppTables::accessoryClasses_},
}};

const std::array<CSuppTables::SRowSection, 5> CSuppTables::kRowSections = {{
    {"#CUW", &CSuppTables::unitWeapons_, 2, false},
    {"#CUA", &CSuppTables::unitAccessories_, 2, false},
    {"#CWBaP", &CSuppTables::baseCosts_, 2, true},
    {"#CWRan", &CSuppTables::ranges_, 8, true},
    {"#CWPen", &CSuppTables::penetrations_, 4, true},
}};

namespace {

void ShowInvalidClass(const std::string& weaponClass) {
    MPlatform::ShowCritical("Invalid Weapon Class: \"" + MAnsiText::ToUtf8(weaponClass) + "\".");
}

}  // namespace

bool CSuppTables::IsPairIn(const Rows& pairs, std::string_view unitClass, std::string_view equipmentClass) {
    for (const CTuple& pair : pairs) {
        if (MAnsiText::EqualIgnoreCase(pair.Element(0), unitClass) &&
            MAnsiText::EqualIgnoreCase(pair.Element(1), equipmentClass)) {
            return true;
        }
    }
    return false;
}

bool CSuppTables::IsEqAllowed(const CEquipment& item, std::string_view unitClass) const {
    if (const auto* weapon = dynamic_cast<const CWeapon*>(&item)) {
        return IsPairIn(unitWeapons_, unitClass, weapon->WeaponClass());
    }
    if (const auto* accessory = dynamic_cast<const CAccessory*>(&item)) {
        return IsPairIn(unitAccessories_, unitClass, accessory->AccClass());
    }
    return false;
}

bool CSuppTables::IsEqAllowed(const CEqItem& item, std::string_view unitClass) const {
    return !item.IsEmpty() && IsEqAllowed(item.Item(), unitClass);
}

std::int16_t CSuppTables::GetBasePointCost(const std::string& weaponClass) const {
    std::int16_t cost = 0;
    const bool known = Trap([&] {
        cost = MNumberText::RoundToInt16(MNumberText::ToReal(baseCosts_.Item(weaponClass)->Element(1)));
        return true;
    });
    if (!known) ShowInvalidClass(weaponClass);
    return cost;
}

std::shared_ptr<const CTuple> CSuppTables::GetPenCategories(const std::string& weaponClass) const {
    std::shared_ptr<const CTuple> row;
    const bool known = Trap([&] {
        row = penetrations_.Item(weaponClass);
        return true;
    });
    if (!known) ShowInvalidClass(weaponClass);
    return row;
}

void CSuppTables::Reset() {
    for (const SNameSection& section : kNameSections)
        (this->*section.names).Clear();
    for (const SRowSection& section : kRowSections)
        (this->*section.rows).Clear();
}

bool CSuppTables::ReadSections(CSequentialInput& file) {
    // Tag and count are read in one step, before either is looked at.
    const auto readHead = [&file](const char* tag, std::int16_t& count) {
        const bool tagged = file.ReadTag(tag);
        count = file.ReadInt16();
        return tagged;
    };
    std::int16_t count = 0;
    for (const SNameSection& section : kNameSections) {
        if (!readHead(section.tag, count)) return false;
        for (std::int16_t i = 0; i < count; ++i) {
            auto name = std::make_shared<std::string>(file.ReadText());
            const std::string key = *name;
            (this->*section.names).Append(std::move(name), key);
        }
    }
    for (const SRowSection& section : kRowSections) {
        if (!readHead(section.tag, count)) return false;
        for (std::int16_t i = 0; i < count; ++i) {
            auto row = std::make_shared<CTuple>(section.width);
            row->ReadInfo(file, false);
            const std::string key = section.keyed ? row->Element(0) : std::string();
            (this->*section.rows).Append(std::move(row), key);
        }
    }
    return true;
}

bool CSuppTables::ReadInfo(const std::string& path) {
    Reset();
    MLastError::Forget();
    const bool read = Trap([&] {
        CSequentialInput file(path);
        std::int16_t major = 0;
        std::int16_t minor = 0;
        if (!MFileFormat::ReadFileVersionV1(file, major, minor)) {
            MLastError::Forget();
            return false;
        }
        for (int skipped = 0; skipped < 3; ++skipped)
            file.ReadInt16();
        return ReadSections(file);
    });
    if (!read) MPlatform::ShowWarning("Error while reading support tables (" + MGlobal::LastErrorText() + ").");
    return read;
}

bool CSuppTables::WriteInfo(const std::string& path) const {
    MLastError::Forget();
    std::int16_t fileNumber = 0;
    const bool written = Trap([&] {
        fileNumber = MTextOutput::Open(path);
        if (!MFileFormat::WriteFileVersionV1(fileNumber)) return false;
        MTextOutput::Print(fileNumber, std::to_string(version_) + ",0,0");
        const auto printHead = [&](const char* tag, std::int32_t count) {
            MTextOutput::Print(fileNumber, "\"" + std::string(tag) + "\"," + std::to_string(count));
        };
        for (const SNameSection& section : kNameSections) {
            const Names& names = this->*section.names;
            printHead(section.tag, names.Count());
            for (const std::string& name : names)
                MTextOutput::Print(fileNumber, "\"" + name + "\"");
        }
        for (const SRowSection& section : kRowSections) {
            const Rows& rows = this->*section.rows;
            printHead(section.tag, rows.Count());
            for (const CTuple& row : rows)
                row.WriteInfo(fileNumber, false);
        }
        MTextOutput::Close(fileNumber);
        return true;
    });
    if (!written) {
        MTextOutput::Abandon(fileNumber);
        MPlatform::ShowWarning("Error while writing support tables (" + MGlobal::LastErrorText() + ").");
    }
    return written;
}
