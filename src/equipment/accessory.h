#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "equipment/equipment.h"

/// One accessory design: armour, targeting aids, devices. Here `BaseCost` is what the program suggests, computed from
/// the fields, and `PointCost` is what counts: a plain value that the player types, never derived.
class CAccessory : public CEquipment {
  public:
    enum Property : std::int32_t { OneUse, Recharge, NeedsReloading, IndividualArmour, PropertyCount };

    /// Error 9 for an index outside 0 to 3.
    bool AccProperty(std::int32_t index) const;
    void SetAccProperty(std::int32_t index, bool value);

    void SetPointCost(double cost) { pointCost_ = cost; }
    /// Protection value; individual armour gives it to the unit that wears it.
    std::int16_t PF() const { return pf_; }
    void SetPF(std::int16_t pf);
    const std::string& AccClass() const { return class_; }
    void SetAccClass(const std::string& accClass) { class_ = accClass; }

    /// Computes `BaseCost` only.
    void CalculatePointCost() override;
    std::string SpecialPropertiesStr() const override;
    /// `Version` is not copied.
    void Clone(const CAccessory& source);

  protected:
    const char* Tag() const override { return "#I"; }
    bool WriteProperties(CProfile& profile, const std::string& section) const override;
    bool ReadProperties(CProfile& profile, const std::string& section) override;
    void ImportProperties(CSequentialInput& file) override;

  private:
    std::int16_t PFBaseCost() const;

    std::array<std::int16_t, PropertyCount> words_{};
    std::int16_t pf_ = 0;
};
