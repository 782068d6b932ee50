#include "controls/colour.h"

#include <algorithm>
#include <cmath>

namespace {

double Linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

}  // namespace

QColor ToQColor(Colour colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

QColor Mix(const QColor& colour, const QColor& other, double share) {
    const auto mixed = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return QColor(mixed(colour.red(), other.red()), mixed(colour.green(), other.green()),
                  mixed(colour.blue(), other.blue()));
}

double Contrast(const QColor& a, const QColor& b) {
    const double first = Luminance(a);
    const double second = Luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor ReadableOn(const QColor& ground, const QColor& preferred, double contrast) {
    const bool darken = Contrast(ground, Qt::black) > Contrast(ground, Qt::white);
    const QColor goal = darken ? Qt::black : Qt::white;
    QColor colour = preferred;
    for (int step = 1; step <= 10 && Contrast(ground, colour) < contrast; ++step) {
        colour = Mix(preferred, goal, step / 10.0);
    }
    return colour;
}

QColor PlateFor(const QColor& letters, const QColor& ground) {
    constexpr double kUnreadable = 2.0;
    if (Contrast(letters, ground) >= kUnreadable) return ground;
    return Contrast(letters, Qt::black) > Contrast(letters, Qt::white) ? Mix(ground, Qt::black, 0.8) : Qt::white;
}
