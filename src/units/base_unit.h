#pragma once

#include <cstdint>
#include <string>

#include "core/files/record.h"

class CProfile;
class CSequentialInput;

/// What single units and squads have in common, and the interface by which wrappers, lists and pages reach either.
/// Costs are points for the whole quantity, doubles, never rounded.
class CBaseUnit : public CRecord {
  public:
    /// `UnitType` of a squad; single units have 0 to 3.
    static constexpr std::int32_t kSquadType = 100;

    /// Models in the block, or squads of the kind; a value below 1 becomes 1.
    std::int16_t Quantity() const { return quantity_; }
    virtual void SetQuantity(std::int16_t quantity) = 0;

    virtual std::int32_t UnitType() const = 0;
    virtual double PointCost() const = 0;
    virtual double EquippedPointCost() const = 0;
    virtual std::string SpecialPropertiesStr() const = 0;

    /// One section of a document. All three give false on any failure; what was read up to there stays.
    virtual bool WriteInfo(CProfile* profile, const std::string& section) const = 0;
    virtual bool ReadInfo(CProfile* profile, const std::string& section) = 0;
    /// A record of the previous release. `readTag` is false when the caller has consumed the tag.
    virtual bool ImportInfoV1(CSequentialInput& file, bool readTag) = 0;

  protected:
    CBaseUnit() = default;
    CBaseUnit(const CBaseUnit&) = default;
    CBaseUnit& operator=(const CBaseUnit&) = default;

    bool WriteQuantityAndPoints(CProfile& profile, const std::string& section) const;
    bool ReadQuantityAndPoints(CProfile& profile, const std::string& section);

    // A squad's costs are a cache that each getter renews.
    mutable double pointCost_ = 0;
    mutable double equippedPointCost_ = 0;
    std::int16_t quantity_ = 1;
};
