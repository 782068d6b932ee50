#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The texts of the HTML pages. Every row of output is a table of its own; columns line up because each row repeats the
/// same fixed widths.
namespace MPageTemplates {

extern const std::string_view kHead;
extern const std::string_view kTail;
extern const std::string_view kSeparator;
extern const std::string_view kRosterTitle;
extern const std::string_view kRosterTitleWithPicture;
extern const std::string_view kListTitle;
extern const std::string_view kListTitleWithPicture;
extern const std::string_view kUnitHeading;
extern const std::string_view kUnitRow;
extern const std::string_view kSquadHeading;
extern const std::string_view kSectionInfantry;
extern const std::string_view kSectionVehicles;
extern const std::string_view kSectionAutonomousRobots;
extern const std::string_view kSectionSlaveRobots;
extern const std::string_view kSectionSquads;
extern const std::string_view kWeaponHeading;
extern const std::string_view kWeaponRow;
extern const std::string_view kAccessoryHeading;
extern const std::string_view kAccessoryRow;

/// Flags of FormatText.
enum TextFormat : std::uint8_t { Plain = 0, Bold = 1, Italic = 2, Underlined = 4 };

/// The text in the tags that the flags ask for, inside `tag` unless that is empty. Nothing is escaped.
std::string FormatText(std::string_view text, std::uint8_t flags, std::string_view tag);

/// A template being filled in. Each replacement changes every occurrence in the text as the one before has left it.
class CFilledTemplate {
  public:
    explicit CFilledTemplate(std::string_view text) {
        constexpr std::size_t kRoomForValues = 256;
        text_.reserve(text.size() + kRoomForValues);
        text_ = text;
    }

    CFilledTemplate& Replace(std::string_view placeholder, std::string_view value);
    CFilledTemplate& ReplaceFormatted(std::string_view placeholder, std::string_view value, std::uint8_t flags,
                                      std::string_view tag);
    const std::string& Text() const { return text_; }

  private:
    std::string text_;
};

}  // namespace MPageTemplates
