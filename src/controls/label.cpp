#include "controls/label.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

namespace {

constexpr QChar kBreakHere(u'\u200B');  // of no width

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

QString QXLabel::Shown() const {
    return ForDisplay(FromAnsi(caption_));
}

// Lines break between words; a word longer than a line may break anywhere, so that nothing is cut off.
QString QXLabel::Wrapped(const QString& text, int inner) const {
    if (!wordWrap()) return text;
    const auto endsWord = [](QChar c) { return c.isSpace() && c != QChar::Nbsp; };
    const QFontMetrics metrics(font());
    QString wrapped;
    qsizetype begin = 0;
    while (begin < text.size()) {
        const qsizetype end = std::find_if(text.begin() + begin, text.end(), endsWord) - text.begin();
        const QString word = text.mid(begin, end - begin);
        if (metrics.horizontalAdvance(word) <= inner) {
            wrapped += word;
        } else {
            for (const QChar letter : word)
                wrapped.append(letter).append(kBreakHere);
        }
        if (end < text.size()) wrapped += text[end];
        begin = end + 1;
    }
    return wrapped;
}

// Slanted letters reach beyond their advance, so a little room is kept at both ends.
QSize QXLabel::TextSize(const QString& text, int width) const {
    const QFontMetrics metrics(font());
    const int inner = wordWrap() ? std::max(1, width - 2 * padding_) : QWIDGETSIZE_MAX;
    const QRect bounds = metrics.boundingRect(QRect(0, 0, inner, QWIDGETSIZE_MAX), WrapFlag(), Wrapped(text, inner));
    const int slant = font().italic() || metrics.minRightBearing() < -2 ? metrics.height() / 5 : 0;
    return QSize(bounds.width() + 2 * padding_ + slant, std::max(bounds.height(), metrics.height()) + 2 + padding_);
}

void QXLabel::SetRoomFor(const std::vector<std::string_view>& captions) {
    int width = 0;
    for (const std::string_view caption : captions)
        width = std::max(width, TextSize(ForDisplay(FromAnsi(caption)), QWIDGETSIZE_MAX).width());
    setMinimumWidth(width);
}

QSize QXLabel::sizeHint() const {
    constexpr int kColumn = 320;
    return wordWrap() ? TextSize(Shown(), kColumn).expandedTo(QSize(kColumn, 0)) : TextSize(Shown(), QWIDGETSIZE_MAX);
}

QSize QXLabel::minimumSizeHint() const {
    return wordWrap() ? QSize(60, fontMetrics().height()) : sizeHint();
}

int QXLabel::heightForWidth(int width) const {
    return wordWrap() ? TextSize(Shown(), width).height() : -1;
}

SInk QXLabel::Ink() const {
    const QColor ground = caption_.empty() ? Back() : PlateFor(Fore(), Back());
    return {ReadableOn(ground, Fore()), ground};
}

void QXLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const SInk ink = Ink();
    painter.fillRect(rect(), ink.ground);
    if (!isEnabled()) painter.setOpacity(0.55);
    const QRect area = rect().adjusted(padding_, 0, -padding_, 0);
    const bool whole = MPainting::DrawCaption(painter, area, Wrapped(Shown(), area.width()), font(), ink.text,
                                              ink.ground, alignment(), wordWrap() ? 0 : 1);
    SetWholeText(whole ? QString() : Shown());
}
