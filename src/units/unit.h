#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "equipment/eq_list.h"
#include "units/base_unit.h"

/// One model on the table, or a block of identical ones: a type, five stats, six special properties, crew places, a
/// list of equipment and a quantity.
///
/// A setter of a field that enters the cost recomputes at once: error 6 where a 16-bit step or the result overflows. A
/// summary
/// (`FullInfo` false) never recomputes: its costs are frozen.
class CUnit : public CBaseUnit {
  public:
    enum Type : std::int32_t { Infantry, Vehicle, SlaveRobot, AutonomousRobot, TypeCount };
    /// 0 means that the unit lacks the ability. For SS, FA and DP the lower number is the better one.
    enum Stat : std::int32_t { MV, SS, FA, PF, DP, StatCount };
    enum Special : std::int32_t { Flyer, SharpShooter, Medic, Officer, HeroicSave, Ferocious, SpecialCount };
    enum CrewPlace : std::int32_t { FullyExposed, PartiallyExposed, Enclosed, LifeSupported, CrewPlaceCount };

    CUnit();
    CUnit(const CUnit&) = delete;
    CUnit& operator=(const CUnit&) = delete;

    std::int32_t UnitType() const override { return type_; }
    /// Gives class, crew and special properties the defaults of the type; stats and equipment stay.
    void SetUnitType(std::int32_t type);
    const std::string& UnitClass() const { return class_; }
    const std::string& UnitSubclass() const { return subclass_; }

    /// An index outside 0 to 4 gives 0 and sets nothing. The setter holds a value within the limits of the stat: never
    /// negative; SS, FA and DP from 2 to 6; infantry has MV up to 20 and PF up to 5.
    std::int16_t StatValue(std::int32_t index) const;
    void SetStatValue(std::int32_t index, std::int16_t value);
    /// Flags, and levels for Officer and HeroicSave, stored as they are. An index outside 0 to 5 gives 0 and sets
    /// nothing.
    std::int16_t SpecialProp(std::int32_t index) const;
    void SetSpecialProp(std::int32_t index, std::int16_t value);
    /// Places of a kind on a vehicle; a negative number becomes 0. Error 9 for an index outside 0 to 3.
    std::int16_t Crew(std::int32_t index) const;
    void SetCrew(std::int32_t index, std::int16_t places);
    /// What the form calls a kind of place.
    static std::string_view CrewDescription(std::int32_t index);

    /// A summary has nothing to recompute from: its costs are scaled instead.
    void SetQuantity(std::int16_t quantity) override;

    double PointCost() const override { return pointCost_; }
    double EquippedPointCost() const override { return equippedPointCost_; }

    /// Prices the unit by the rules of its `Version`, 2 for every unit unless somebody sets it, for the whole quantity.
    void CalculatePointCost() override;
    /// One model, by the second and by the first edition of the rules.
    void CalculatePointCostV2();
    void CalculatePointCostV1();
    double CrewPointCostV2() const;
    double CrewPointCostV1() const;

    const CEqList& EqList() const { return *eqList_; }
    CEqList& EqList() { return *eqList_; }
    /// Takes equipment, which becomes a summary; individual armour raises PF, within its limit.
    bool AddItem(std::shared_ptr<CEqItem> item);
    /// Lowers PF by the armour's full value, which may be more than it had raised it.
    bool RemoveItem(std::int32_t position);
    bool RemoveItem(std::string_view key);

    std::string SpecialPropertiesStr() const override;
    /// Back to the defaults of the type: no name, no equipment.
    void InitUnit();
    void Clone(const CUnit& source);

    bool WriteInfo(CProfile* profile, const std::string& section) const override;
    bool ReadInfo(CProfile* profile, const std::string& section) override;
    bool ImportInfoV1(CSequentialInput& file, bool readTag) override;

  private:
    enum class Edition { First, Second };

    static bool IsValidStatIndex(std::int32_t index) { return index >= 0 && index < StatCount; }
    static bool IsValidPropIndex(std::int32_t index) { return index >= 0 && index < SpecialCount; }
    static double PFPointCost(std::int16_t pf);
    void SetTypeDefaults();
    void CalculateModelCost(Edition edition);
    void ImportAbilities(CSequentialInput& file, std::int16_t recordVersion);
    template <class TKey>
    bool RemoveItemAt(TKey key);

    std::int32_t type_ = Infantry;
    std::array<std::int16_t, StatCount> stats_{};
    std::array<std::int16_t, SpecialCount> specials_{};
    double typeBaseCost_ = 0;
    std::array<std::int16_t, StatCount> baseStats_{};
    std::string class_;
    std::string subclass_;
    std::array<std::int16_t, CrewPlaceCount> crew_{};
    std::unique_ptr<CEqList> eqList_;
};
