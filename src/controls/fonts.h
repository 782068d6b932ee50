#pragma once

#include <QFont>
#include <string_view>

/// The fonts of the skins, mapped to good fonts of this machine.
namespace MFonts {

inline constexpr std::string_view Plain = "MS Sans Serif";
inline constexpr std::string_view Calligraphic = "Calligraphic";
inline constexpr std::string_view Wingdings = "Wingdings";

/// `size` in points at 96 dots per inch. The calligraphic font is enlarged a little: its letters are small for their
/// size.
QFont Make(std::string_view name, double size, bool bold);

}  // namespace MFonts
