#include "controls/fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>

namespace {

// Height of the calligraphic font's small letters is three quarters of that of the plain one.
constexpr double kCalligraphicScale = 1.2;

QString FirstPresent(const QStringList& families) {
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return QString();
}

const QString& PlainFamily() {
    static const QString family = FirstPresent({QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"),
                                                QStringLiteral("DejaVu Sans"), QStringLiteral("Noto Sans")});
    return family;
}

const QString& CalligraphicFamily() {
    static const QString family = FirstPresent({QStringLiteral("Z003"), QStringLiteral("URW Chancery L")});
    return family;
}

const QString& SerifFamily() {
    static const QString family = FirstPresent({QStringLiteral("Liberation Serif"), QStringLiteral("DejaVu Serif")});
    return family;
}

}  // namespace

namespace MFonts {

QFont Make(std::string_view name, double size, bool bold) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dotsPerInch = screen != nullptr ? screen->logicalDotsPerInchY() : 96;
    QFont font;
    if (name == Calligraphic && !CalligraphicFamily().isEmpty()) {
        font.setFamily(CalligraphicFamily());
        size *= kCalligraphicScale;
    } else if (name == Calligraphic) {
        font.setFamily(SerifFamily());
        font.setStyleHint(QFont::Serif);
        font.setItalic(true);
    } else {
        font.setFamily(PlainFamily());
        font.setStyleHint(QFont::SansSerif);
    }
    font.setPointSizeF(size * 96 / dotsPerInch);
    font.setBold(bold);
    return font;
}

}  // namespace MFonts
