#include "controls/label.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"

namespace {

constexpr double kReadable = 4.0;       // contrast
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

// Lines break between words; a word longer than a line may break anywhere, so that nothing is cut off.
QString QXLabel::Wrapped(int inner) const {
    const QString text = ForDisplay(FromAnsi(caption_));
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
QSize QXLabel::TextSize(int width) const {
    const QFontMetrics metrics(font());
    const int inner = wordWrap() ? std::max(1, width - 2 * padding_) : QWIDGETSIZE_MAX;
    const QRect bounds = metrics.boundingRect(QRect(0, 0, inner, QWIDGETSIZE_MAX), WrapFlag(), Wrapped(inner));
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
    painter.drawText(area, static_cast<int>(alignment()) | WrapFlag(), Wrapped(area.width()));
}
