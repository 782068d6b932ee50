#include "core/state/tuple.h"

#include "core/files/file_format.h"
#include "core/files/sequential.h"

void CTuple::SetElements(std::int16_t count) {
    if (count > 0) values_.resize(static_cast<std::size_t>(count));
}

std::string CTuple::Element(std::int32_t index) const {
    return IsValid(index) ? values_[static_cast<std::size_t>(index)] : std::string();
}

void CTuple::SetElement(std::int32_t index, const std::string& value) {
    if (IsValid(index)) values_[static_cast<std::size_t>(index)] = value;
}

void CTuple::ReadInfo(CSequentialInput& file, bool withCount) {
    if (withCount) SetElements(file.ReadInt16());
    for (std::string& value : values_)
        value = file.ReadText();
}

void CTuple::WriteInfo(std::int16_t fileNumber, bool withCount) const {
    std::string line;
    if (withCount) line = std::to_string(Elements());
    for (const std::string& value : values_)
        MFileFormat::AppendItem(line, "\"" + value + "\"");
    MTextOutput::Print(fileNumber, line);
}
