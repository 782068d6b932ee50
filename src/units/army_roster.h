#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "units/army_document.h"

/// The force picked for one game: an ordered selection in which the same unit may stand several times.
class CArmyRoster : public CArmyDocument {
  public:
    CArmyRoster() : CArmyDocument(false) {}

    /// Points of all entries with their equipment, summed at each call, never rounded.
    double PointCost() const;
    /// The unit becomes a summary. Result as of the list's Add.
    std::int32_t Add(std::shared_ptr<CGenUnit> unit);
    void Remove(std::int32_t position) { ArmyUnits().Remove(position); }
    void Remove(std::string_view key) { ArmyUnits().Remove(key); }

  protected:
    std::string_view Tag() const override { return "#ARMYROSTER"; }
};
