#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text of the model: 8-bit, Windows-1252 on every platform. All 256 values are characters.
namespace MAnsiText {

char Upper(char c);
/// Upper case, one character for one: é, ÿ, š, œ, ž change; ß, µ, ƒ have no upper case here and stay.
std::string UpperCase(std::string_view text);

/// The text on one line, as every file form needs it: a line break (CR LF, CR or LF) becomes a blank.
std::string OneLine(std::string_view text);

/// Below 0, 0 or above 0 as `a` comes before, equals or comes after `b`, by the codes of their upper-cased characters.
int CompareIgnoreCase(std::string_view a, std::string_view b);
bool EqualIgnoreCase(std::string_view a, std::string_view b);

/// Unicode code point of a character. The five codes that the code page leaves open map to themselves.
char32_t ToUnicode(char c);
/// The character of a code point; `lacking` where the code page has none.
char FromUnicode(char32_t codePoint, char lacking = '?');

/// For texts that leave the model for a box or caption.
std::string ToUtf8(std::string_view ansi);

/// Hash and equality of keys that ignore case, for unordered containers that are searched by string views. The hash of
/// a text differs from run to run: keys come from files, and nobody may choose them so that a container becomes a list.
struct HashIgnoreCase {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const;
};
struct EqualToIgnoreCase {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return EqualIgnoreCase(a, b); }
};

}  // namespace MAnsiText
