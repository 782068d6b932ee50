#pragma once

#include <cstdint>
#include <string>

#include "core/files/record.h"

class CProfile;
class CSequentialInput;

/// What weapons and accessories have in common, and the interface by which wrappers, units and pages reach either.
///
/// A summary (`FullInfo` false) holds identification and costs only. Costs are points, doubles, never rounded. A setter
/// of a field that enters the cost recomputes at once: error 6 where a 16-bit step or the result overflows.
class CEquipment : public CRecord {
  public:
    /// Radius in cm, 0 for none.
    std::int16_t AreaOfEffect() const { return areaOfEffect_; }
    void SetAreaOfEffect(std::int16_t radius);
    std::int16_t TargetingBonus() const { return targetingBonus_; }
    void SetTargetingBonus(std::int16_t bonus);

    double PointCost() const { return pointCost_; }
    double BaseCost() const { return baseCost_; }

    /// One line of what the item does, in the order players expect.
    virtual std::string SpecialPropertiesStr() const = 0;

    /// One section of a document. All three give false on any failure; what was read up to there stays.
    bool WriteInfo(CProfile* profile, const std::string& section) const;
    bool ReadInfo(CProfile* profile, const std::string& section);
    /// A record of the previous release. `readTag` is false when the caller has consumed the tag.
    bool ImportInfoV1(CSequentialInput& file, bool readTag);

  protected:
    CEquipment() = default;
    CEquipment(const CEquipment&) = default;
    CEquipment& operator=(const CEquipment&) = default;

    virtual const char* Tag() const = 0;
    virtual bool WriteProperties(CProfile& profile, const std::string& section) const = 0;
    virtual bool ReadProperties(CProfile& profile, const std::string& section) = 0;
    virtual void ImportProperties(CSequentialInput& file) = 0;

    /// 2 to the power of a third of the radius: 3 cm double the cost, 6 cm quadruple it.
    double AreaFactor() const;
    /// The closing pieces of SpecialPropertiesStr that both kinds share, each with its separator.
    std::string AreaAndTargetingStr() const;

    std::string class_;
    double pointCost_ = 0;
    double baseCost_ = 0;
    std::int16_t areaOfEffect_ = 0;
    std::int16_t targetingBonus_ = 0;
};

namespace MEquipmentRules {

/// `base` to the power of a property word. A word counts as a number: 2 in a file doubles the effect. Error 6 on
/// overflow.
double Power(double base, std::int16_t word);

/// Takes the separator off the end of a list of properties.
std::string WithoutLastSeparator(std::string text);

}  // namespace MEquipmentRules
