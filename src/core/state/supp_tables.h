#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/files/keyed_collection.h"
#include "core/state/tuple.h"
#include "equipment/eq_item.h"

class CSequentialInput;

/// The rule data of the game: class names, which class of unit may carry which class of equipment, base costs and
/// penetration values of weapons. Filled once at the start; nothing changes it afterwards. Class names ignore case.
class CSuppTables {
  public:
    using Names = CKeyedCollection<std::string>;
    using Rows = CKeyedCollection<CTuple>;

    std::int16_t Version() const { return version_; }
    void SetVersion(std::int16_t version) { version_ = version; }
    const Names& UnitClasses() const { return unitClasses_; }
    const Names& WeaponClasses() const { return weaponClasses_; }
    const Names& AccessoryClasses() const { return accessoryClasses_; }

    /// Whether a unit of a class may carry a piece of equipment. A class without a row allows nothing.
    bool IsEqAllowed(const CEquipment& item, std::string_view unitClass) const;
    bool IsEqAllowed(const CEqItem& item, std::string_view unitClass) const;

    /// Points, rounded to nearest, ties to even. An unknown class shows a critical box and gives 0.
    std::int16_t GetBasePointCost(const std::string& weaponClass) const;
    /// Elements 1 to 3 are the penetration values of the class, 1 the default. An unknown class shows a critical box
    /// and gives none.
    std::shared_ptr<const CTuple> GetPenCategories(const std::string& weaponClass) const;

    /// The plain form of the tables. On failure a warning shows why, and what was read up to there stays.
    bool ReadInfo(const std::string& path);
    bool WriteInfo(const std::string& path) const;

  private:
    // Sections of the file, in its order.
    struct SNameSection {
        const char* tag;
        Names CSuppTables::*names;
    };
    struct SRowSection {
        const char* tag;
        Rows CSuppTables::*rows;
        std::int16_t width;
        bool keyed;
    };
    static const std::array<SNameSection, 3> kNameSections;
    static const std::array<SRowSection, 5> kRowSections;

    void Reset();
    bool ReadSections(CSequentialInput& file);
    static bool IsPairIn(const Rows& pairs, std::string_view unitClass, std::string_view equipmentClass);

    std::int16_t version_ = 0;
    Names unitClasses_;
    Names weaponClasses_;
    Names accessoryClasses_;
    Rows unitWeapons_;
    Rows unitAccessories_;
    Rows baseCosts_;
    Rows ranges_;
    Rows penetrations_;
};
