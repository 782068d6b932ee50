#include "core/files/ansi_text.h"

#include <array>
#include <cstdint>
#include <functional>
#include <random>

namespace MAnsiText {

namespace {

constexpr std::uint8_t Code(char c) {
    return static_cast<std::uint8_t>(c);
}

// Code points of 0x80 to 0x9F; outside that row the code page is Latin-1.
constexpr std::array<char16_t, 32> kHighRow = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr std::array<char, 256> MakeUpperTable() {
    std::array<char, 256> table{};
    for (int code = 0; code < 256; ++code) {
        int upper = code;
        if ((code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7)) {
            upper = code - 0x20;
        } else if (code == 0x9A || code == 0x9C || code == 0x9E) {  // š, œ, ž
            upper = code - 0x10;
        } else if (code == 0xFF) {  // ÿ
            upper = 0x9F;
        }
        table[static_cast<std::size_t>(code)] = static_cast<char>(upper);
    }
    return table;
}

constexpr std::array<char, 256> kUpper = MakeUpperTable();

__extension__ using CUint128 = unsigned __int128;

// Below 2^60, so that a hash modulo 2^61 - 1 that is carried on without the last reduction stays below 2^63.
std::uint64_t RandomPoint() {
    std::random_device random;
    return std::uniform_int_distribution<std::uint64_t>(1u << 30, (std::uint64_t{1} << 60) - 1)(random);
}

}  // namespace

char Upper(char c) {
    return kUpper[Code(c)];
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = Upper(c);
    return upper;
}

std::string OneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    char former = ' ';
    for (const char c : text) {
        const bool behindReturn = c == '\n' && former == '\r';
        if (!behindReturn) line += c == '\r' || c == '\n' ? ' ' : c;
        former = c;
    }
    return line;
}

int CompareIgnoreCase(std::string_view a, std::string_view b) {
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = int{Code(Upper(a[i]))} - int{Code(Upper(b[i]))};
        if (difference != 0) return difference;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool EqualIgnoreCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareIgnoreCase(a, b) == 0;
}

char32_t ToUnicode(char c) {
    const std::uint8_t code = Code(c);
    return code >= 0x80 && code <= 0x9F ? kHighRow[code - 0x80u] : code;
}

char FromUnicode(char32_t codePoint, char lacking) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<char>(codePoint);
    for (std::size_t i = 0; i < kHighRow.size(); ++i) {
        if (kHighRow[i] == codePoint) return static_cast<char>(0x80 + i);
    }
    return lacking;
}

std::string ToUtf8(std::string_view ansi) {
    std::string utf8;
    utf8.reserve(ansi.size());
    for (const char c : ansi) {
        const char32_t point = ToUnicode(c);
        if (point < 0x80) {
            utf8 += c;
        } else if (point < 0x800) {
            utf8 += static_cast<char>(0xC0 | (point >> 6));
            utf8 += static_cast<char>(0x80 | (point & 0x3F));
        } else {
            utf8 += static_cast<char>(0xE0 | (point >> 12));
            utf8 += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            utf8 += static_cast<char>(0x80 | (point & 0x3F));
        }
    }
    return utf8;
}

// The blocks of the text are the coefficients of a polynomial modulo a prime; its value at a point drawn for this run
// is the hash. Two texts share it at no more points than they have blocks, so nobody can write names that collide.
std::size_t HashIgnoreCase::operator()(std::string_view text) const {
    constexpr int kPrimeBits = 61;
    constexpr std::uint64_t kPrime = (std::uint64_t{1} << kPrimeBits) - 1;
    constexpr std::size_t kBlock = 7;
    static const std::uint64_t point = RandomPoint();
    std::uint64_t hash = 0;
    do {
        const std::string_view block = text.substr(0, kBlock);
        std::uint64_t coefficient = 1;  // tells a block from a shorter one with leading zeros
        for (const char c : block)
            coefficient = coefficient << 8 | Code(Upper(c));
        const CUint128 value = CUint128{hash + coefficient} * point;
        hash = static_cast<std::uint64_t>(value & kPrime) + static_cast<std::uint64_t>(value >> kPrimeBits);
        text.remove_prefix(block.size());
    } while (!text.empty());
    return static_cast<std::size_t>(hash);
}

}  // namespace MAnsiText
