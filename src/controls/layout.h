#pragma once

#include <QBoxLayout>
#include <QGridLayout>

#include "controls/color_button.h"
#include "controls/frame.h"
#include "controls/label.h"

/// Layouts on one grid. Give `nullptr` for a layout that goes into another one.
namespace MLayout {

inline constexpr int FormMargin = 14;  ///< around the content of a form
inline constexpr int Gap = 8;          ///< between controls
inline constexpr int FrameGap = 12;    ///< between frames, and between a frame and its content
/// Above a frame: its border starts at half the height of its caption, so that less of a gap looks like the same one.
inline constexpr int GapAboveFrame = 3;

QVBoxLayout* Column(QWidget* parent = nullptr, int gap = Gap);
QHBoxLayout* Row(QWidget* parent = nullptr, int gap = Gap);
QGridLayout* Grid(QWidget* parent = nullptr, int gap = Gap);

/// A button and, at its right, the two that move a row up and down.
QHBoxLayout* ButtonWithArrows(QXColorButton& button, QXColorButton& up, QXColorButton& down);
/// A text that wraps and fills its frame, and can be scrolled where the window leaves it too little room. `room` pixels
/// of height are asked for however short it is.
void TextInFrame(QXFrame& frame, QXLabel& text, int room = 0);

/// Margins of a form's outermost layout.
template <class Layout>
Layout* WithFormMargins(Layout* layout) {
    layout->setContentsMargins(FormMargin, FormMargin, FormMargin, FormMargin);
    return layout;
}

}  // namespace MLayout
