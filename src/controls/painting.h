#pragma once

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPalette>
#include <QRect>
#include <QString>
#include <string_view>

#include "controls/colour.h"

class QPainter;

/// How the controls of this floor draw what they have in common.
namespace MPainting {

/// In what a caption of colour `fore` is written on `ground`: shaded until it can be read, or where that would make
/// another colour of it, as it is with a dark outline.
SInk CaptionInk(const QColor& fore, const QColor& ground);

/// A caption of as many lines as `area` has room for, at most `lines` where that isn't 0, elided at the end.
/// False where it had to be elided.
bool DrawCaption(QPainter& painter, const QRectF& area, const QString& text, const QFont& font, const QColor& fore,
                 const QColor& ground, Qt::Alignment alignment, int lines = 0);

/// True for the four arrows of "Wingdings": codes 231 to 234, left, right, up, down.
bool IsArrow(std::string_view fontName, std::string_view caption);
/// The arrow of that code in the middle of `area`.
QPainterPath ArrowPath(char code, const QRectF& area, double size);
/// What a screen reader says for an arrow.
QString ArrowName(char code);

/// A border of whole pixels along the inside of `area`.
void DrawBorder(QPainter& painter, const QRectF& area, const QColor& colour, double width, double radius = 0);

/// Palette of a control that shows text on a ground of its own: fields and lists, their scroll bars included.
QPalette FieldPalette(const QColor& back, const QColor& fore, const QColor& form);

}  // namespace MPainting
