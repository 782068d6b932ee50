#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "units/base_unit.h"
#include "units/unit_list.h"

/// A squad: a unit made of units, squads among them. Its cost is the sum of its members times its own quantity, renewed
/// by each getter; the stored values are a cache. A squad without members costs 0, a summary read from a file too.
class CMultUnit : public CBaseUnit {
  public:
    CMultUnit();
    CMultUnit(const CMultUnit&) = delete;
    CMultUnit& operator=(const CMultUnit&) = delete;

    /// Deeper nesting in a file fails the read, as running out of stack would.
    static constexpr int kDeepestNesting = 500;

    std::int32_t UnitType() const override { return kSquadType; }
    void SetQuantity(std::int16_t quantity) override;
    double PointCost() const override;
    double EquippedPointCost() const override;
    void CalculatePointCost() override { Recalculate(); }
    std::string SpecialPropertiesStr() const override { return "Squad"; }

    CUnitList& Units() { return *units_; }
    const CUnitList& Units() const { return *units_; }

    /// The member enters the sum with the cost it has and becomes a summary. Null where the list refuses it.
    CGenUnit* Add(std::shared_ptr<CGenUnit> member, const std::string& key);
    CGenUnit& Item(std::int32_t position) { return units_->Item(position); }
    CGenUnit& Item(std::string_view key) { return units_->Item(key); }
    std::int32_t Count() const { return units_->Count(); }
    void Remove(std::int32_t position);
    void Remove(std::string_view key);
    auto begin() const { return Units().begin(); }
    auto end() const { return Units().end(); }

    void InitUnit();
    /// `Version` and `FullInfo` are not copied. Error 7 where the copy unfolds into too many members (see CCopying).
    void Clone(const CMultUnit& source);

    bool WriteInfo(CProfile* profile, const std::string& section) const override;
    bool ReadInfo(CProfile* profile, const std::string& section) override;
    bool ImportInfoV1(CSequentialInput& file, bool readTag) override;

  private:
    void Recalculate() const;
    void CloneWithoutSum(const CMultUnit& source);
    void AddAsSummary(std::shared_ptr<CGenUnit> member);

    std::unique_ptr<CUnitList> units_;
};
