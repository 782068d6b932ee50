#include "controls/label.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"

namespace {

constexpr double kReadable = 4.0;  // contrast

}  // namespace

QXLabel::QXLabel(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setFont(LookFont());
}

void QXLabel::SetCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    setAccessibleName(ForDisplay(FromAnsi(caption)));
    if (Form().isVisible()) Form().RefreshNames();
    updateGeometry();
    update();
}

void QXLabel::SetWordWrap(bool on) {
    setWordWrap(on);
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(on);  // the toolkit's label does this for a text of its own only
    setSizePolicy(policy);
    // Lines begin at the top, unless the form has said where they stand.
    if (!aligned_) setAlignment(Qt::AlignLeft | (on ? Qt::AlignTop : Qt::AlignVCenter));
    updateGeometry();
    update();
}

void QXLabel::SetAlignment(Qt::Alignment alignment) {
    aligned_ = true;
    setAlignment(alignment);
}

void QXLabel::SetPadding(int pixels) {
    padding_ = pixels;
    updateGeometry();
    update();
}

void QXLabel::LookChanged() {
    setFont(LookFont());
    updateGeometry();
    update();
}

// Lines break between words, but anywhere where a word is longer than a line: nothing is cut off.
int QXLabel::WrapFlags(int inner) const {
    if (!wordWrap()) return 0;
    const QRect line(0, 0, inner, QWIDGETSIZE_MAX);
    const QRect bounds = fontMetrics().boundingRect(line, Qt::TextWordWrap, ForDisplay(FromAnsi(caption_)));
    return bounds.width() > inner ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
}

// Slanted letters reach beyond their advance, so a little room is kept at both ends.
QSize QXLabel::TextSize(int width) const {
    const QFontMetrics metrics(font());
    const int inner = wordWrap() ? std::max(1, width - 2 * padding_) : QWIDGETSIZE_MAX;
    const QRect bounds =
        metrics.boundingRect(QRect(0, 0, inner, QWIDGETSIZE_MAX), WrapFlags(inner), ForDisplay(FromAnsi(caption_)));
    const int slant = font().italic() || metrics.minRightBearing() < -2 ? metrics.height() / 5 : 0;
    return QSize(bounds.width() + 2 * padding_ + slant, std::max(bounds.height(), metrics.height()) + 2 + padding_);
}

QSize QXLabel::sizeHint() const {
    constexpr int kColumn = 320;
    return wordWrap() ? TextSize(kColumn).expandedTo(QSize(kColumn, 0)) : TextSize(QWIDGETSIZE_MAX);
}

QSize QXLabel::minimumSizeHint() const {
    return wordWrap() ? QSize(60, fontMetrics().height()) : TextSize(QWIDGETSIZE_MAX);
}

int QXLabel::heightForWidth(int width) const {
    return wordWrap() ? TextSize(width).height() : -1;
}

void QXLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor ground = caption_.empty() ? Back() : PlateFor(Fore(), Back());
    painter.fillRect(rect(), ground);
    painter.setFont(font());
    const QColor text = ReadableOn(ground, Fore(), kReadable);
    painter.setPen(isEnabled() ? text : Mix(text, ground, 0.45));
    const QRect area = rect().adjusted(padding_, 0, -padding_, 0);
    painter.drawText(area, static_cast<int>(alignment()) | WrapFlags(area.width()), ForDisplay(FromAnsi(caption_)));
}
