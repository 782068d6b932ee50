#pragma once

#include <string>
#include <string_view>

class CUnitList;

/// What a composer tells about the entry that is selected: name, cost, special properties, description, a line each.
namespace MUnitInfo {

/// Error 5 where the list has no entry of that name.
std::string Text(const CUnitList& units, std::string_view name);
/// The same, but where the list has no entry of that name the text says so.
std::string TextIfKnown(const CUnitList& units, std::string_view name);

}  // namespace MUnitInfo
