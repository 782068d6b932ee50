#include "controls/frame.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"

namespace {

constexpr int kInside = 12;  // between border and content
constexpr int kCaptionLeft = 13;
constexpr int kCaptionPadding = 6;

}  // namespace

QXFrame::QXFrame(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    LookChanged();
}

QXFrame::~QXFrame() {
    // The controls inside belong to the form, which may have declared them before or after their frame.
    for (QWidget* child : findChildren<QWidget*>()) {
        if (dynamic_cast<IControl*>(child) != nullptr) child->setParent(nullptr);
    }
}

void QXFrame::SetCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    setAccessibleName(ForDisplay(FromAnsi(caption)));
    if (Form().isVisible()) Form().RefreshNames();
    updateGeometry();
    update();
}

int QXFrame::CaptionHeight() const {
    return QFontMetrics(font()).height();
}

void QXFrame::ApplyMargins() {
    if (panel_) {
        setContentsMargins(0, 0, 0, 0);
    } else {
        setContentsMargins(kInside, CaptionHeight() + 4, kInside, kInside);
    }
}

void QXFrame::LookChanged() {
    setFont(LookFont());
    ApplyMargins();
    updateGeometry();
    update();
}

QSize QXFrame::minimumSizeHint() const {
    QSize size = QWidget::minimumSizeHint();
    if (!caption_.empty() && !panel_) {
        const int caption = QFontMetrics(font()).horizontalAdvance(ForDisplay(FromAnsi(caption_)));
        size.setWidth(std::max(size.width(), caption + 2 * (kCaptionLeft + kCaptionPadding)));
    }
    return size;
}

void QXFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Back());
    if (panel_) return;

    // The border's upper edge runs through the middle of the caption, in frames without a caption too: frames beside
    // each other then align.
    const QFontMetricsF metrics(font());
    const QString caption = metrics.elidedText(ForDisplay(FromAnsi(caption_)), Qt::ElideRight,
                                               width() - 2 * (kCaptionLeft + kCaptionPadding));
    const QRectF border(0, CaptionHeight() / 2, width(), height() - CaptionHeight() / 2);
    const double gapLeft = kCaptionLeft;
    const double gapRight = gapLeft + metrics.horizontalAdvance(caption) + 2 * kCaptionPadding;
    const double line = borderWidth_;
    if (line > 0) {
        const QColor colour = ToQColor(borderColor_);
        if (caption.isEmpty()) {
            painter.fillRect(QRectF(border.left(), border.top(), border.width(), line), colour);
        } else {
            painter.fillRect(QRectF(border.left(), border.top(), gapLeft, line), colour);
            painter.fillRect(QRectF(gapRight, border.top(), border.right() - gapRight, line), colour);
        }
        painter.fillRect(QRectF(border.left(), border.bottom() - line, border.width(), line), colour);
        painter.fillRect(QRectF(border.left(), border.top(), line, border.height()), colour);
        painter.fillRect(QRectF(border.right() - line, border.top(), line, border.height()), colour);
    }
    painter.setFont(font());
    const SInk ink = Ink();
    painter.setPen(isEnabled() ? ink.text : Mix(ink.text, ink.ground, 0.45));
    painter.drawText(QPointF(gapLeft + kCaptionPadding, metrics.ascent()), caption);
}
