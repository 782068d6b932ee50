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

constexpr double kReadable = 3.0;

// The colour in which a caption is written: `fore`, a little darker or lighter where that alone makes it readable.
QColor Shade(const QColor& fore, const QColor& ground) {
    const bool darken = Contrast(ground, Qt::black) > Contrast(ground, Qt::white);
    for (const double share : {0.0, 0.1, 0.2, 0.3}) {
        const QColor colour = Mix(fore, darken ? Qt::black : Qt::white, share);
        if (Contrast(colour, ground) >= kReadable) return colour;
    }
    return fore;
}

QStringList Lines(const QString& text, const QFont& font, double width, int most) {
    const QFontMetricsF metrics(font);
    if (most <= 1 || (metrics.horizontalAdvance(text) <= width && !text.contains(u'\n'))) {
        QString line = text;
        line.replace(u'\n', u' ');
        return {metrics.elidedText(line, Qt::ElideRight, width)};
    }
    QString broken = text;
    broken.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(broken, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == most) {
            QString rest = broken.mid(line.textStart());
            rest.replace(QChar::LineSeparator, u' ');
            lines << metrics.elidedText(rest, Qt::ElideRight, width);
            break;
        }
        lines << broken.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

}  // namespace

void DrawCaption(QPainter& painter, const QRectF& area, const QString& text, const QFont& font, const QColor& fore,
                 const QColor& ground, Qt::Alignment alignment) {
    if (text.isEmpty() || area.isEmpty()) return;
    const QFontMetricsF metrics(font, painter.device());
    const int most = std::max(1, static_cast<int>((area.height() + metrics.leading()) / metrics.height()));
    const QStringList lines = Lines(text, font, area.width(), most);
    const double height = metrics.height() * static_cast<double>(lines.size());

    painter.save();
    painter.setFont(font);
    painter.setRenderHint(QPainter::Antialiasing);
    double top = area.top();
    if (alignment & Qt::AlignVCenter) top += (area.height() - height) / 2;
    if (alignment & Qt::AlignBottom) top += area.height() - height;
    const QColor colour = Shade(fore, ground);
    const bool outlined = Contrast(colour, ground) < kReadable;
    for (const QString& line : lines) {
        const double width = metrics.horizontalAdvance(line);
        double left = area.left();
        if (alignment & Qt::AlignHCenter) left += (area.width() - width) / 2;
        if (alignment & Qt::AlignRight) left += area.width() - width;
        const QPointF baseline(left, top + metrics.ascent());
        if (outlined) {
            QPainterPath path;
            path.addText(baseline, font, line);
            const QColor halo = Mix(ground, Qt::black, 0.82);
            painter.strokePath(path, QPen(halo, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.fillPath(path, colour);
        } else {
            painter.setPen(colour);
            painter.drawText(baseline, line);
        }
        top += metrics.height();
    }
    painter.restore();
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
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::AlternateBase, back);
    palette.setColor(QPalette::Text, fore);
    palette.setColor(QPalette::WindowText, fore);
    palette.setColor(QPalette::ButtonText, fore);
    palette.setColor(QPalette::Window, Mix(back, form, 0.35));
    palette.setColor(QPalette::Button, bar);
    palette.setColor(QPalette::Highlight, fore);
    palette.setColor(QPalette::HighlightedText, ReadableOn(fore, back, 4.5));
    palette.setColor(QPalette::Disabled, QPalette::Base, Mix(back, form, 0.55));
    palette.setColor(QPalette::Disabled, QPalette::Text, Mix(fore, back, 0.35));
    return palette;
}

}  // namespace MPainting
