#pragma once

#include <array>
#include <cstdint>
#include <string_view>

class CGenUnit;

/// The seven filters under which a composer lists units. The codes are also the indexes of its buttons or choice list.
namespace MUnitFilter {

enum Filter : std::int32_t { All, Infantry, Vehicles, Robots, Squads, Flyers, Specials, FilterCount };

inline constexpr std::array<std::string_view, FilterCount> kNames = {"All",    "Infantry", "Vehicles", "Robots",
                                                                     "Squads", "Flyers",   "Specials"};

/// True when the filter lets the entry through; a code that is no filter lets none. Error 91 for an empty wrapper,
/// except under All.
bool Selects(std::int32_t filter, const CGenUnit& entry);

}  // namespace MUnitFilter
