#include "core/files/file_format.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/files/number_text.h"
#include "core/files/platform.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"

namespace MFileFormat {

namespace {

constexpr std::string_view kVersionTagV1 = "#VD_VER";

template <class TReal>
std::string Format(TReal value, int significantDigits, TReal exponentFrom) {
    if (std::abs(value) < exponentFrom && value == std::trunc(value)) {  // most costs are, and minus zero is "0"
        return std::to_string(static_cast<std::int64_t>(value));
    }
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general,
                                   significantDigits);
    for (char* c = buffer.data(); c != end.ptr; ++c) {
        if (*c == 'e') *c = 'E';
    }
    return std::string(buffer.data(), end.ptr);
}

}  // namespace

bool WriteFileVersion(CProfile* profile) {
    return Trap([&] {
        const CAppVersion version = MPlatform::Current().Version();
        return profile != nullptr &&
               profile->WriteProfile("TOP", "APPVERSION",
                                     std::to_string(version.Major) + "_" + std::to_string(version.Minor));
    });
}

bool ReadFileVersion(CProfile* profile, std::int16_t& major, std::int16_t& minor) {
    return Trap([&] {
        std::string text;
        if (profile == nullptr || !profile->ReadProfile("TOP", "APPVERSION", text)) return false;
        const std::size_t underscore = text.find('_');
        if (underscore == std::string::npos) return false;
        const std::string_view rest = std::string_view(text).substr(underscore + 1);
        major = MNumberText::ToInt16(std::string_view(text).substr(0, underscore));
        minor = MNumberText::ToInt16(rest.substr(0, rest.find('_')));
        return true;
    });
}

bool WriteListHeader(CProfile* profile, const std::string& section, std::int16_t sorted, std::int16_t indexed,
                     std::int32_t count) {
    return Trap([&] {
        return profile != nullptr && profile->WriteProfile(section, "SORTED", std::to_string(sorted)) &&
               profile->WriteProfile(section, "INDEXED", std::to_string(indexed)) &&
               profile->WriteProfile(section, "COUNT", std::to_string(count));
    });
}

bool ReadListHeader(CProfile* profile, const std::string& section, std::int16_t& sorted, std::int16_t& indexed,
                    std::int32_t& count) {
    return Trap([&] {
        std::string text;
        if (profile == nullptr || !profile->ReadProfile(section, "SORTED", text)) return false;
        sorted = MNumberText::ToInt16(text);
        if (!profile->ReadProfile(section, "INDEXED", text)) return false;
        indexed = MNumberText::ToInt16(text);
        if (!profile->ReadProfile(section, "COUNT", text)) return false;
        count = MNumberText::ToInt32(text);
        return true;
    });
}

bool WriteFileVersionV1(std::int16_t fileNumber) {
    return Trap([&] {
        const CAppVersion version = MPlatform::Current().Version();
        MTextOutput::Print(fileNumber, "\"" + std::string(kVersionTagV1) + "\"," + std::to_string(version.Major) + "," +
                                           std::to_string(version.Minor));
        return true;
    });
}

bool ReadFileVersionV1(CSequentialInput& file, std::int16_t& major, std::int16_t& minor) {
    return Trap([&] {
        if (!file.ReadTag(kVersionTagV1)) return false;
        major = file.ReadInt16();
        minor = file.ReadInt16();
        return true;
    });
}

std::string FormatRealField(double value) {
    return Format(value, 15, 1e15);
}

std::string FormatRealField(float value) {
    return Format(value, 7, 1e7F);
}

std::string AsFileGivesBack(std::string_view text) {
    CProfile file = CProfile::ForSaving("");
    std::string stored;
    std::string read(text);
    do {
        stored.swap(read);
        read.clear();
        file.WriteProfile("TOP", "NAME", stored);
        file.ReadProfile("TOP", "NAME", read);
    } while (read != stored);
    return read;
}

std::string ElementSection(const std::string& list, std::int32_t position) {
    return list + "_" + std::to_string(position);
}

void AppendItem(std::string& list, std::string_view item) {
    if (!list.empty()) list += ',';
    list += item;
}

}  // namespace MFileFormat
