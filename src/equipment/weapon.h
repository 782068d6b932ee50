#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "equipment/equipment.h"

/// One weapon design. Its cost is a pure function of its own fields, recomputed whenever one of them changes.
class CWeapon : public CEquipment {
  public:
    enum Property : std::int32_t {
        Flame,
        Acid,
        InhaledGas,
        AbsorbedGas,
        ParabolicTrajectory,
        Sticky,
        OneUse,
        Recharge,
        AutomaticFire,
        OffTableSupport,
        ReducedRange,
        NeedsReloading,
        PropertyCount
    };

    /// Error 9 for an index outside 0 to 11.
    bool WeaponProperty(std::int32_t index) const;
    void SetWeaponProperty(std::int32_t index, bool value);

    void SetBaseCost(double cost);
    /// Penetration value of the chosen category; shown, and no part of the cost.
    std::int16_t Pen() const { return pen_; }
    void SetPen(std::int16_t pen);
    /// Cost factor of the penetration category: 1, 1.5, 2; 0 until somebody sets it.
    float PenMultiplier() const { return penMultiplier_; }
    void SetPenMultiplier(float multiplier);
    const std::string& WeaponClass() const { return class_; }
    void SetWeaponClass(const std::string& weaponClass) { class_ = weaponClass; }

    void CalculatePointCost() override;
    std::string SpecialPropertiesStr() const override;
    /// `Version` is not copied. A full record is priced anew, a summary keeps the cost copied.
    void Clone(const CWeapon& source);

  protected:
    const char* Tag() const override { return "#W"; }
    bool WriteProperties(CProfile& profile, const std::string& section) const override;
    bool ReadProperties(CProfile& profile, const std::string& section) override;
    void ImportProperties(CSequentialInput& file) override;

  private:
    std::array<std::int16_t, PropertyCount> words_{};
    float penMultiplier_ = 0;
    std::int16_t pen_ = 0;
};
