#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class CProfile;
class CSequentialInput;

/// The framing that every persistent class shares, in both file forms. The flags among the results tell success;
/// run-time errors inside are trapped and remembered. No function shows a message.
namespace MFileFormat {

/// Section `TOP`, `APPVERSION=<major>_<minor>` of the application.
bool WriteFileVersion(CProfile* profile);
/// A well-formed version is what tells a current file from everything else; its numbers are compared with nothing.
bool ReadFileVersion(CProfile* profile, std::int16_t& major, std::int16_t& minor);

bool WriteListHeader(CProfile* profile, const std::string& section, std::int16_t sorted, std::int16_t indexed,
                     std::int32_t count);
bool ReadListHeader(CProfile* profile, const std::string& section, std::int16_t& sorted, std::int16_t& indexed,
                    std::int32_t& count);

/// The version line of the sequential form.
bool WriteFileVersionV1(std::int16_t fileNumber);
bool ReadFileVersionV1(CSequentialInput& file, std::int16_t& major, std::int16_t& minor);

/// Text of a real number, the same on every locale: point as separator, a digit before it, at most 15 significant
/// digits (7 for a single), `1.5E-05` below 0.0001 and from 1E+15 (single: 1E+07) on.
std::string FormatRealField(double value);
std::string FormatRealField(float value);
inline std::string FormatRealField(std::int32_t value) {
    return std::to_string(value);
}

/// The text as a document gives it back once it is stored: trimmed, without quotes around it, cut at 254 characters.
/// That is done until it changes nothing more, so the result survives any number of savings and readings.
/// Empty also for the one text that reads as missing, "*not_found*".
std::string AsFileGivesBack(std::string_view text);

/// Name of an element's section: that of its list, an underscore and the position from 1.
std::string ElementSection(const std::string& list, std::int32_t position);

/// A flag word as a file holds it and as the setters of the model store it.
constexpr std::int16_t FlagWord(bool flag) {
    return flag ? 1 : 0;
}

/// Appends to a comma list.
void AppendItem(std::string& list, std::string_view item);

}  // namespace MFileFormat
