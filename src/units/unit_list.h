#pragma once

#include <string>

#include "core/files/keyed_list.h"
#include "units/gen_unit.h"

/// The list of units and squads in the army list, the roster and each squad. A new one is sorted and not indexed.
class CUnitList : public CKeyedList<CGenUnit> {
  public:
    CUnitList() : CKeyedList("#UL", true) {}

    std::int16_t Version() const { return version_; }
    void SetVersion(std::int16_t version) { version_ = version; }

    /// Where the header can't be read, the list stays as it was.
    bool ReadInfo(CProfile* profile, const std::string& section);

  private:
    std::int16_t version_ = 2;
};
