#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "units/base_unit.h"

class CMultUnit;
class CUnit;

/// Wraps a single unit or a squad, so that one list can hold both. Everything that an empty wrapper is asked for, but
/// WriteInfo, is error 91.
class CGenUnit {
  public:
    enum Kind : std::int32_t { Empty = 0, Single = 1, Squad = 2 };

    std::int32_t GenUnitClass() const { return class_; }

    CBaseUnit& Unit() { return *Wrapped(); }
    const CBaseUnit& Unit() const { return *Wrapped(); }
    /// Takes over the class of its argument and keeps the object that it holds: to fill a wrapper use NewUnit.
    void SetUnit(const CBaseUnit& unit);

    bool IsEmpty() const { return *unit_ == nullptr; }
    /// The content where it is of that class, else null.
    CUnit* AsUnit() const;
    CMultUnit* AsSquad() const;
    /// The same, for code that goes by `GenUnitClass`: error 13 where the content is of the other class.
    CUnit& SingleUnit() const;
    CMultUnit& SquadUnit() const;

    /// Drops the content and makes a new one of a kind. Any other kind leaves no content and the class as it was.
    void NewUnit(std::int32_t kind);
    void Clone(const CGenUnit& source);

    const std::string& Name() const { return Unit().Name(); }
    void SetName(const std::string& name) { Unit().SetName(name); }
    /// From now on sorted lists notice another name, be it that of another content.
    void WatchName();
    const std::string& Descr() const { return Unit().Descr(); }
    void SetDescr(const std::string& descr) { Unit().SetDescr(descr); }
    const std::string& Key() const { return Unit().Key(); }
    void SetKey(const std::string& key) { Unit().SetKey(key); }
    bool FullInfo() const { return Unit().FullInfo(); }
    void SetFullInfo(bool full) { Unit().SetFullInfo(full); }
    std::int16_t Quantity() const { return Unit().Quantity(); }
    void SetQuantity(std::int16_t quantity) { Unit().SetQuantity(quantity); }
    double PointCost() const { return Unit().PointCost(); }
    double EquippedPointCost() const { return Unit().EquippedPointCost(); }
    void CalculatePointCost() { Unit().CalculatePointCost(); }
    std::int32_t UnitType() const { return Unit().UnitType(); }
    std::string SpecialPropertiesStr() const { return Unit().SpecialPropertiesStr(); }
    /// A flag in both directions, whatever the wrapped object makes of it.
    bool Version() const { return Unit().Version() != 0; }
    void SetVersion(bool version) { Unit().SetVersion(version ? std::int16_t{-1} : std::int16_t{0}); }

    bool WriteInfo(CProfile* profile, const std::string& section) const;
    bool ReadInfo(CProfile* profile, const std::string& section);
    bool ImportInfoV1(CSequentialInput& file);

  private:
    CBaseUnit* Wrapped() const;

    std::int32_t class_ = Empty;
    CWatched<std::shared_ptr<CBaseUnit>> unit_;
};
