#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Numbers in text, the same on every locale: the decimal separator is always the point.
namespace MNumberText {

/// Prefix-tolerant: leading blanks, sign, digits, point, exponent; what follows is ignored, and text that begins with
/// no number gives 0. A number beyond the range of a double is error 6.
double ToReal(std::string_view text);

/// Strict: the whole text must be a number, blanks at its ends aside, else error 13. A fraction rounds to nearest, ties
/// to even; error 6 outside the range.
std::int16_t ToInt16(std::string_view text);
std::int32_t ToInt32(std::string_view text);

/// Whether the strict reading takes the text for a number, whatever its size.
bool IsNumeric(std::string_view text);

/// Rounds to nearest, ties to even; error 6 outside the range.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);
/// Number of a field's text: prefix-tolerant, then rounded.
std::int16_t FieldInt16(std::string_view text);

/// The value itself; error 6 where it is infinite, error 5 where it isn't a number.
double Finite(double value);
/// A single rounded from a double; error 6 where it overflows.
float ToSingle(double value);

/// Fields of a comma list. Asking for a field that isn't there is error 9.
class CCommaList {
  public:
    explicit CCommaList(std::string_view text);
    std::string_view Item(std::size_t index) const;

  private:
    std::vector<std::string_view> items_;
};

}  // namespace MNumberText
