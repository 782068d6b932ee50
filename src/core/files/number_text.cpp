#include "core/files/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/files/runtime_error.h"

namespace MNumberText {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A decimal number at the front of a text: its extent, and where in it the digits begin behind a plus sign that the
// standard conversion doesn't take.
struct SNumberPrefix {
    std::string_view text;
    bool negative = false;
    std::size_t length = 0;  // 0: no number
};

SNumberPrefix ScanNumber(std::string_view text) {
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) ++at;
    const std::size_t digitsFrom = at;
    std::size_t digits = 0;
    while (at < text.size() && IsDigit(text[at]))
        ++at, ++digits;
    if (at < text.size() && text[at] == '.') {
        ++at;
        while (at < text.size() && IsDigit(text[at]))
            ++at, ++digits;
    }
    if (digits == 0) return {};
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
        if (exponent < text.size() && IsDigit(text[exponent])) {
            while (exponent < text.size() && IsDigit(text[exponent]))
                ++exponent;
            at = exponent;
        }
    }
    return {text.substr(digitsFrom, at - digitsFrom), negative, at};
}

// The standard conversion says "out of range" for numbers too large and too small alike. Which it was shows in the
// power of ten of the first digit that counts.
bool IsTiny(std::string_view number) {
    long long power = 0;
    bool significant = false;
    bool behindPoint = false;
    std::size_t at = 0;
    for (; at < number.size() && number[at] != 'E' && number[at] != 'e'; ++at) {
        if (number[at] == '.') {
            behindPoint = true;
        } else if (!significant) {
            significant = number[at] != '0';
            if (behindPoint) --power;
        } else if (!behindPoint) {
            ++power;
        }
    }
    if (at < number.size()) {
        const bool negative = number[at + 1] == '-';
        long long exponent = 0;
        for (const char c : number.substr(at + 1)) {
            if (IsDigit(c) && exponent < 1'000'000'000'000) exponent = exponent * 10 + (c - '0');
        }
        power += negative ? -exponent : exponent;
    }
    return power < 0;
}

double Convert(const SNumberPrefix& number) {
    double value = 0;
    const char* end = number.text.data() + number.text.size();
    const auto result = std::from_chars(number.text.data(), end, value);
    if (result.ec == std::errc::result_out_of_range) {
        if (!IsTiny(number.text)) throw CRuntimeError(ErrorNumber::Overflow);
        value = 0;
    }
    return number.negative ? -value : value;
}

template <class TInteger>
TInteger Round(double value) {
    const double rounded = std::nearbyint(Finite(value));
    if (rounded < std::numeric_limits<TInteger>::min() || rounded > std::numeric_limits<TInteger>::max()) {
        throw CRuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<TInteger>(rounded);
}

// A text that is a number as a whole, blanks at its ends aside; of length 0 where it is none.
SNumberPrefix ScanWhole(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    const SNumberPrefix number = ScanNumber(text);
    return number.length == text.size() ? number : SNumberPrefix();
}

template <class TInteger>
TInteger ToInteger(std::string_view text) {
    TInteger plain = 0;
    const char* end = text.data() + text.size();
    if (const auto result = std::from_chars(text.data(), end, plain); result.ec == std::errc() && result.ptr == end) {
        return plain;
    }
    const SNumberPrefix number = ScanWhole(text);
    if (number.length == 0) throw CRuntimeError(ErrorNumber::TypeMismatch);
    return Round<TInteger>(Convert(number));
}

}  // namespace

double ToReal(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    const SNumberPrefix number = ScanNumber(text);
    return number.length == 0 ? 0 : Convert(number);
}

std::int16_t ToInt16(std::string_view text) {
    return ToInteger<std::int16_t>(text);
}

std::int32_t ToInt32(std::string_view text) {
    return ToInteger<std::int32_t>(text);
}

bool IsNumeric(std::string_view text) {
    return ScanWhole(text).length != 0;
}

std::int16_t RoundToInt16(double value) {
    return Round<std::int16_t>(value);
}

std::int32_t RoundToInt32(double value) {
    return Round<std::int32_t>(value);
}

std::int16_t FieldInt16(std::string_view text) {
    return RoundToInt16(ToReal(text));
}

double Finite(double value) {
    if (std::isnan(value)) throw CRuntimeError(ErrorNumber::InvalidCall);
    if (std::isinf(value)) throw CRuntimeError(ErrorNumber::Overflow);
    return value;
}

float ToSingle(double value) {
    const float single = static_cast<float>(value);
    Finite(single);
    return single;
}

CCommaList::CCommaList(std::string_view text) {
    items_.reserve(16);
    while (true) {
        const std::size_t comma = text.find(',');
        items_.push_back(text.substr(0, comma));
        if (comma == std::string_view::npos) return;
        text.remove_prefix(comma + 1);
    }
}

std::string_view CCommaList::Item(std::size_t index) const {
    if (index >= items_.size()) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
    return items_[index];
}

}  // namespace MNumberText
