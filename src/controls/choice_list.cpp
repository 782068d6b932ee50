#include "controls/choice_list.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "controls/ansi_qt.h"
#include "controls/fonts.h"
#include "controls/painting.h"
#include "controls/row_delegate.h"
#include "core/files/ansi_text.h"
#include "core/files/runtime_error.h"

namespace {

constexpr int kHeight = 31;
constexpr int kButtonWidth = 26;
constexpr int kPopupFrame = 4;
constexpr int kTwipsPerPixel = 15;

}  // namespace

QXChoiceList::QXChoiceList(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
    setMaxVisibleItems(16);
    const auto look = [this](const QModelIndex&, bool selected) {
        const QColor ground = ToQColor(listWindowBackColor_);
        const QColor text = ReadableOn(ground, Fore());
        return selected ? SInk{ReadableOn(text, ground), text} : SInk{text, ground};
    };
    view()->setItemDelegate(std::make_unique<CRowDelegate>(view(), look, [] { return 25; }).release());
    auto* layout = qobject_cast<QBoxLayout*>(view()->parentWidget()->layout());
    prompt_ = std::make_unique<QLabel>(view()->parentWidget()).release();  // the list window's
    prompt_->setTextFormat(Qt::PlainText);
    prompt_->setAutoFillBackground(true);
    prompt_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    prompt_->setContentsMargins(8, 5, 8, 5);
    if (layout != nullptr) layout->insertWidget(0, prompt_);
    LookChanged();
    connect(this, &QComboBox::activated, this, [this](int chosen) {
        ShowText(itemText(chosen));
        RaiseByUser(change_);
    });
}

void QXChoiceList::AddItem(std::string_view text) {
    const QSignalBlocker quiet(this);
    const int chosen = currentIndex();
    addItem(FromAnsi(text));
    setCurrentIndex(chosen);  // the first entry isn't chosen by itself
    updateGeometry();
}

void QXChoiceList::Clear() {
    const QSignalBlocker quiet(this);
    clear();
    ShowText(QString());
}

std::string QXChoiceList::List(int index) const {
    return index >= 0 && index < count() ? ToAnsi(itemText(index)) : std::string();
}

void QXChoiceList::SetListIndex(int index) {
    if (index < -1 || index >= count()) throw CRuntimeError(ErrorNumber::InvalidCall);
    Write(index, index < 0 ? QString() : itemText(index));
}

std::string QXChoiceList::Text() const {
    return ToAnsi(text_);
}

void QXChoiceList::SetText(std::string_view text) {
    int found = findText(FromAnsi(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    for (int i = 0; i < count() && found < 0; ++i) {
        if (MAnsiText::EqualIgnoreCase(List(i), text)) found = i;
    }
    Write(found, found < 0 ? FromAnsi(text) : itemText(found));
}

void QXChoiceList::Write(int index, const QString& text) {
    const bool differs = text != text_;
    {
        const QSignalBlocker quiet(this);
        setCurrentIndex(index);
    }
    ShowText(text);
    if (differs && change_) {
        const std::function<void()> change = change_;
        change();
    }
}

void QXChoiceList::ShowText(const QString& text) {
    const QString before = std::exchange(text_, text);
    update();
    // Also while it is closed the list has its entry chosen, for those who read instead of look.
    view()->selectionModel()->select(model()->index(currentIndex(), modelColumn()),
                                     QItemSelectionModel::ClearAndSelect);
    if (before == text_) return;
    QAccessibleTextUpdateEvent told(this, 0, ForDisplay(before), ForDisplay(text_));
    QAccessible::updateAccessibility(&told);
}

void QXChoiceList::showPopup() {
    QWidget* window = view()->parentWidget();
    prompt_->setVisible(!promptText_.empty());
    prompt_->setText(ForDisplay(FromAnsi(promptText_)));
    QComboBox::showPopup();
    // The toolkit has sized the window for the entries alone.
    QRect area = window->geometry();
    const int head = promptText_.empty() ? 0 : prompt_->sizeHint().height();
    const int width =
        std::max({this->width(), listWidth_ / kTwipsPerPixel, promptText_.empty() ? 0 : prompt_->sizeHint().width()});
    const QRect room = screen()->availableGeometry();
    const QPoint below = mapToGlobal(QPoint(0, height()));
    area.setWidth(std::min(width, room.width()));
    const int rows = std::clamp(count(), 1, maxVisibleItems()) * std::max(1, view()->sizeHintForRow(0));
    area.setHeight(std::min(rows + head + kPopupFrame, room.height()));
    area.moveTopLeft(below);
    if (area.bottom() > room.bottom()) area.moveBottom(mapToGlobal(QPoint(0, 0)).y() - 1);
    if (area.top() < room.top()) area.moveTop(room.top());
    if (area.right() > room.right()) area.moveRight(room.right());
    window->setGeometry(area);
}

void QXChoiceList::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void QXChoiceList::changeEvent(QEvent* event) {
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) update();
}

void QXChoiceList::LookChanged() {
    setFont(LookFont());
    view()->setFont(LookFont());
    const QColor ground = ToQColor(listWindowBackColor_);
    QPalette window = MPainting::FieldPalette(ground, ReadableOn(ground, Fore()), ToQColor(Form().BackColor()));
    window.setColor(QPalette::Window, ground);
    view()->parentWidget()->setPalette(window);
    view()->setPalette(window);
    if (prompt_ != nullptr) {
        // The head stands on the form's own ground, which tells it from the entries.
        const QColor head = ToQColor(Form().BackColor());
        QPalette palette = window;
        palette.setColor(QPalette::Window, head);
        palette.setColor(QPalette::WindowText, ReadableOn(head, ToQColor(promptFontColor_)));
        prompt_->setPalette(palette);
        prompt_->setFont(MFonts::Make(FontName(), promptFontSize_, FontBold()));
    }
    updateGeometry();
    update();
}

void QXChoiceList::paintEvent(QPaintEvent* /*event*/) {
    const QColor ground = isEnabled() ? Back() : Mix(Back(), ToQColor(Form().BackColor()), 0.55);
    const QColor text = isEnabled() ? Fore() : Mix(Fore(), ground, 0.45);
    QPainter painter(this);
    painter.fillRect(rect(), ground);
    const QRectF button(width() - kButtonWidth, 0, kButtonWidth, height());
    const QColor face = isEnabled() ? ToQColor(buttonColor_) : Mix(ToQColor(buttonColor_), ground, 0.6);
    painter.fillRect(button.adjusted(0, 3, -3, -3), face);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = button.center() + QPointF(-1.5, 0);
    QPainterPath mark;
    mark.addPolygon(QPolygonF({middle + QPointF(-6, -3.5), middle + QPointF(6, -3.5), middle + QPointF(0, 4.5)}));
    painter.fillPath(mark, ReadableOn(face, isEnabled() ? Mix(ground, Qt::black, 0.5) : text, 3));
    MPainting::DrawCaption(painter, QRectF(8, 0, width() - kButtonWidth - 12, height()), ForDisplay(text_), font(),
                           text, ground, Qt::AlignLeft | Qt::AlignVCenter, 1);
    if (hasFocus()) MPainting::DrawBorder(painter, rect(), Mix(Fore(), Back(), 0.25), 1);
}

QSize QXChoiceList::sizeHint() const {
    const QFontMetrics metrics(font());
    int width = metrics.horizontalAdvance(QStringLiteral("0"));
    for (int i = 0; i < count(); ++i)
        width = std::max(width, metrics.horizontalAdvance(itemText(i)));
    return QSize(width + kButtonWidth + 20, std::max(kHeight, metrics.height() + 8));
}

QSize QXChoiceList::minimumSizeHint() const {
    return QSize(QFontMetrics(font()).horizontalAdvance(QStringLiteral("000")) + kButtonWidth + 16,
                 sizeHint().height());
}
