#include "controls/painting.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <array>

#include "controls/ansi_qt.h"
#include "controls/colour.h"
#include "controls/fonts.h"

namespace MPainting {

namespace {

// The last line that there is room for takes all the rest, and is elided; `whole` tells whether it has room for that.
QStringList Lines(const QString& text, const QFont& font, double width, int most, bool& whole) {
    const QFontMetricsF metrics(font);
    const auto elided = [&](QString rest) {
        rest.replace(QChar::LineSeparator, u' ');
        const QString shown = metrics.elidedText(rest, Qt::ElideRight, width);
        whole = shown == rest;
        return shown;
    };
    if (most <= 1 || (metrics.horizontalAdvance(text) <= width && !text.contains(u'\n'))) {
        return {elided(QString(text).replace(u'\n', u' '))};
    }
    QString broken = text;
    broken.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(broken, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == most) {
            lines << elided(broken.mid(line.textStart()));
            break;
        }
        lines << broken.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

}  // namespace

SInk CaptionInk(const QColor& fore, const QColor& ground) {
    constexpr double kAnotherColour = 3;  // contrast
    const QColor shaded = ReadableOn(ground, fore);
    if (Contrast(shaded, fore) < kAnotherColour) return {shaded, ground};
    const QColor outline = Mix(ground, Qt::black, 0.82);
    return {ReadableOn(outline, fore), outline};
}

bool DrawCaption(QPainter& painter, const QRectF& area, const QString& text, const QFont& font, const QColor& fore,
                 const QColor& ground, Qt::Alignment alignment, int lines) {
    if (text.isEmpty() || area.isEmpty()) return text.isEmpty();
    const QFontMetricsF metrics(font, painter.device());
    const double pitch = metrics.lineSpacing();
    const int room = 1 + static_cast<int>(std::max(0.0, area.height() - metrics.height()) / pitch);
    const int most = lines > 0 ? std::min(room, lines) : room;
    bool whole = true;
    const QStringList broken = Lines(text, font, area.width(), most, whole);
    const double height = metrics.height() + pitch * static_cast<double>(broken.size() - 1);

    painter.save();
    painter.setFont(font);
    painter.setRenderHint(QPainter::Antialiasing);
    double top = area.top();
    if (alignment & Qt::AlignVCenter) top += (area.height() - height) / 2;
    if (alignment & Qt::AlignBottom) top += area.height() - height;
    const SInk ink = CaptionInk(fore, ground);
    for (const QString& line : broken) {
        const double width = metrics.horizontalAdvance(line);
        double left = area.left();
        if (alignment & Qt::AlignHCenter) left += (area.width() - width) / 2;
        if (alignment & Qt::AlignRight) left += area.width() - width;
        const QPointF baseline(left, top + metrics.ascent());
        if (ink.ground != ground) {
            QPainterPath path;
            path.addText(baseline, font, line);
            painter.strokePath(path, QPen(ink.ground, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.fillPath(path, ink.text);
        } else {
            painter.setPen(ink.text);
            painter.drawText(baseline, line);
        }
        top += pitch;
    }
    painter.restore();
    return whole;
}

bool IsArrow(std::string_view fontName, std::string_view caption) {
    return fontName == MFonts::Wingdings && caption.size() == 1 && caption[0] >= '\xE7' && caption[0] <= '\xEA';
}

QPainterPath ArrowPath(char code, const QRectF& area, double size) {
    // Pointing left, in a box of one by one around the origin.
    constexpr std::array<QPointF, 7> kLeft = {QPointF(-0.5, 0),    QPointF(-0.05, -0.42), QPointF(-0.05, -0.17),
                                              QPointF(0.5, -0.17), QPointF(0.5, 0.17),    QPointF(-0.05, 0.17),
                                              QPointF(-0.05, 0.42)};
    double turn = 0;
    if (code == '\xE8') turn = 180;
    if (code == '\xE9') turn = 90;
    if (code == '\xEA') turn = 270;
    QTransform transform;
    transform.translate(area.center().x(), area.center().y());
    transform.rotate(turn);
    transform.scale(size, size);
    QPolygonF outline;
    for (const QPointF& point : kLeft)
        outline << transform.map(point);
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

QString ArrowName(char code) {
    if (code == '\xE7') return QStringLiteral("Previous");
    if (code == '\xE8') return QStringLiteral("Next");
    return code == '\xE9' ? QStringLiteral("Move Up") : QStringLiteral("Move Down");
}

void DrawBorder(QPainter& painter, const QRectF& area, const QColor& colour, double width, double radius) {
    if (width <= 0) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    const QRectF inner = area.adjusted(width, width, -width, -width);
    if (radius > 0) {
        ring.addRoundedRect(area, radius, radius);
        ring.addRoundedRect(inner, std::max(0.0, radius - width), std::max(0.0, radius - width));
    } else {
        ring.addRect(area);
        ring.addRect(inner);
    }
    painter.fillPath(ring, colour);
    painter.restore();
}

QPalette FieldPalette(const QColor& back, const QColor& fore, const QColor& form) {
    QPalette palette;
    const QColor bar = Mix(back, fore, 0.35);
    const QColor text = ReadableOn(back, fore);
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::AlternateBase, back);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Window, Mix(back, form, 0.35));
    palette.setColor(QPalette::Button, bar);
    palette.setColor(QPalette::Highlight, fore);
    palette.setColor(QPalette::HighlightedText, ReadableOn(fore, back));
    palette.setColor(QPalette::Disabled, QPalette::Base, Mix(back, form, 0.55));
    palette.setColor(QPalette::Disabled, QPalette::Text, Mix(fore, back, 0.35));
    return palette;
}

}  // namespace MPainting
