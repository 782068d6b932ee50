#include "composers/unit_info.h"

#include "core/files/file_format.h"
#include "units/unit_list.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string Heading(std::string_view name) {
    return std::string(name).append(":").append(kLineEnd);
}

}  // namespace

std::string MUnitInfo::Text(const CUnitList& units, std::string_view name) {
    const CGenUnit& entry = units.Item(name);
    return Heading(name)
        .append("Point Cost: ")
        .append(MFileFormat::FormatRealField(entry.EquippedPointCost()))
        .append(kLineEnd)
        .append(entry.SpecialPropertiesStr())
        .append(kLineEnd)
        .append(entry.Descr());
}

std::string MUnitInfo::TextIfKnown(const CUnitList& units, std::string_view name) {
    return units.Exists(name) ? Text(units, name) : Heading(name).append("UNABLE TO RETRIEVE INFORMATION");
}
