#include "controls/color_button.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

namespace {

constexpr int kHeight = 35;
constexpr int kSidePadding = 12;
constexpr int kImageGap = 8;

ButtonStyle StyleOf(std::string_view name) {
    if (name.substr(0, 3) == "opt") return ButtonStyle::Option;
    return name.substr(0, 3) == "chk" || name == "cmdSkin" ? ButtonStyle::Check : ButtonStyle::Command;
}

}  // namespace

QXColorButton::QXColorButton(CForm* form, const char* name, std::optional<int> index)
    : CControl(form, name, index), style_(StyleOf(name)) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setFont(LookFont());
    connect(this, &QAbstractButton::clicked, this, [this] { RaiseByUser(click_); });
}

void QXColorButton::SetCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    RefreshName();
    updateGeometry();
    update();
}

void QXColorButton::SetArrow(std::string_view character) {
    SetFontName("Wingdings");
    SetCaption(character);
}

void QXColorButton::SetValue(bool on) {
    setChecked(on);
}

void QXColorButton::RefreshName() {
    setAccessibleName(MPainting::IsArrow(FontName(), caption_) ? MPainting::ArrowName(caption_[0])
                                                               : ForDisplay(FromAnsi(caption_)));
}

void QXColorButton::LookChanged() {
    setFont(LookFont());
    RefreshName();
    updateGeometry();
    update();
}

void QXColorButton::nextCheckState() {
    if (style_ == ButtonStyle::Option) setChecked(true);
    if (style_ == ButtonStyle::Check) setChecked(!isChecked());
}

QSize QXColorButton::sizeHint() const {
    const QFontMetrics metrics(font());
    int width = MPainting::IsArrow(FontName(), caption_) ? metrics.height()
                                                         : metrics.horizontalAdvance(ForDisplay(FromAnsi(caption_)));
    int height = std::max(kHeight, metrics.height() + 12);
    if (const PicturePtr image = Image()) {
        width += image->Size().width() + kImageGap;
        height = std::max(height, image->Size().height() + 8);
    }
    return QSize(width + 2 * kSidePadding, height);
}

QSize QXColorButton::minimumSizeHint() const {
    return sizeHint();
}

SInk QXColorButton::Face() const {
    const QColor selected = ToQColor(selectedColor_);
    if (!isEnabled()) {
        const QColor disabled = ToQColor(disabledBackColor_);
        const QColor ground = isChecked() ? Mix(disabled, selected, 0.45) : disabled;
        return {Mix(Fore(), ground, 0.3), ground};
    }
    const QColor ground = isChecked() ? selected : Back();
    return {isChecked() ? ToQColor(selectedForeColor_) : Fore(), isDown() ? Mix(ground, selected, 0.4) : ground};
}

SInk QXColorButton::Ink() const {
    const SInk face = Face();
    const bool arrow = MPainting::IsArrow(FontName(), caption_);
    return arrow ? SInk{ReadableOn(face.ground, face.text), face.ground}
                 : MPainting::CaptionInk(face.text, face.ground);
}

void QXColorButton::paintEvent(QPaintEvent* /*event*/) {
    const auto [text, ground] = Face();
    QPainter painter(this);
    const double radius = shape_ == 1 ? 6 : 0;
    if (radius > 0) {
        painter.fillRect(rect(), parentWidget() != nullptr ? ToQColor(Form().BackColor()) : ground);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath body;
        body.addRoundedRect(QRectF(rect()), radius, radius);
        painter.fillPath(body, ground);
    } else {
        painter.fillRect(rect(), ground);
    }
    if (borderStyle_ == 1 && isEnabled()) {
        MPainting::DrawBorder(painter, rect(), ToQColor(borderColor_), borderWidth_, radius);
    }
    if (showFocus_ && hasFocus()) {
        painter.setPen(QPen(text, 1, Qt::DotLine));
        painter.drawRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5));
    }

    QRectF area = QRectF(rect()).adjusted(4, 2, -4, -2);
    if (isDown()) area.translate(0, 1);
    if (MPainting::IsArrow(FontName(), caption_)) {
        const double size = std::min({area.width(), area.height(), QFontMetricsF(font()).height()});
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(MPainting::ArrowPath(caption_[0], area, size), Ink().text);
        return;
    }
    const QString caption = ForDisplay(FromAnsi(caption_));
    if (const PicturePtr image = Image()) {
        const QSizeF size = QSizeF(image->Size()).boundedTo(QSizeF(area.width() / 2, area.height()));
        const double needed = size.width() + kImageGap + QFontMetricsF(font()).horizontalAdvance(caption);
        const double left = area.left() + std::max(0.0, (area.width() - needed) / 2);
        image->Paint(painter, QRectF(left, area.top(), size.width(), area.height()));
        area.setLeft(left + size.width() + kImageGap);
        MPainting::DrawCaption(painter, area, caption, font(), text, ground, Qt::AlignLeft | Qt::AlignVCenter);
        return;
    }
    MPainting::DrawCaption(painter, area, caption, font(), text, ground, Qt::AlignCenter);
}
