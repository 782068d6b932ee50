#pragma once

#include <QColor>
#include <cstdint>

/// A 24-bit colour in the toolkit's order: blue in the high byte, red in the low. 0xff8080 is R 0x80, G 0x80, B 0xff.
using Colour = std::uint32_t;

QColor ToQColor(Colour colour);

/// Letters, and what is right around them.
struct SInk {
    QColor text;
    QColor ground;
};

/// `share` of `other` (0 to 1) mixed into `colour`.
QColor Mix(const QColor& colour, const QColor& other, double share);
/// Contrast of two colours, from 1 (none) to 21 (black on white).
double Contrast(const QColor& a, const QColor& b);
/// The least contrast of all text that isn't disabled; what the accessibility guidelines of the web ask for.
inline constexpr double ReadableContrast = 4.5;
/// `preferred`, darkened or lightened until it is readable on `ground`.
QColor ReadableOn(const QColor& ground, const QColor& preferred, double contrast = ReadableContrast);
/// `ground`, or where letters of that colour can't be told from it, a plate that they can be read on: dark for light
/// letters, light for dark ones.
QColor PlateFor(const QColor& letters, const QColor& ground);
