#pragma once

#include <cstdint>
#include <limits>

#include "core/files/runtime_error.h"

/// A 16-bit signed number whose arithmetic raises the overflow error where a result leaves its range, so that a rule of
/// the game reads in code as it reads on paper.
class CInt16 {
  public:
    constexpr CInt16(int value) : value_(Checked(value)) {}

    constexpr std::int16_t Value() const { return value_; }
    constexpr operator double() const { return value_; }

    friend constexpr CInt16 operator+(CInt16 a, CInt16 b) { return CInt16(a.value_ + b.value_); }
    friend constexpr CInt16 operator+(CInt16 a, std::int16_t b) { return CInt16(a.value_ + b); }
    friend constexpr CInt16 operator+(CInt16 a, int b) { return a + CInt16(b); }
    friend constexpr CInt16 operator+(int a, CInt16 b) { return CInt16(a) + b; }
    friend constexpr CInt16 operator-(CInt16 a, CInt16 b) { return CInt16(a.value_ - b.value_); }
    friend constexpr CInt16 operator-(CInt16 a, std::int16_t b) { return CInt16(a.value_ - b); }
    friend constexpr CInt16 operator-(CInt16 a, int b) { return a - CInt16(b); }
    friend constexpr CInt16 operator-(int a, CInt16 b) { return CInt16(a) - b; }
    friend constexpr CInt16 operator*(CInt16 a, CInt16 b) { return CInt16(a.value_ * b.value_); }
    friend constexpr CInt16 operator*(CInt16 a, std::int16_t b) { return CInt16(a.value_ * b); }
    friend constexpr CInt16 operator*(CInt16 a, int b) { return a * CInt16(b); }
    friend constexpr CInt16 operator*(int a, CInt16 b) { return CInt16(a) * b; }

  private:
    static constexpr std::int16_t Checked(int value) {
        if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
            throw CRuntimeError(ErrorNumber::Overflow);
        }
        return static_cast<std::int16_t>(value);
    }

    std::int16_t value_;
};
