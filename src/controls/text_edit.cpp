#include "controls/text_edit.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <limits>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

namespace {

constexpr int kHeight = 31;
constexpr int kMargin = 6;

bool IsLeaving(Qt::FocusReason reason) {
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

bool IsDropped(QChar character) {
    return character == u'\0' || character == u'\r' || character == u'\n' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

}  // namespace

QXTextEdit::QXTextEdit(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    setTextMargins(kMargin, 0, kMargin, 0);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    LookChanged();
    connect(this, &QLineEdit::textEdited, this, [this] { UserEdited(); });
    // Undo, redo and clearing change the text without an edit of their own.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& now) {
        if (now != known_) UserEdited();
    });
}

std::string QXTextEdit::Text() const {
    return pathField_ ? ToPath(text()) : ToAnsi(text());
}

void QXTextEdit::SetText(std::string_view text) {
    const QString now = pathField_ ? FromPath(text) : FromAnsi(text);
    if (now == this->text()) return;
    const int cursor = cursorPosition();
    {
        const QSignalBlocker quiet(this);
        setText(now);
        setCursorPosition(std::min(cursor, static_cast<int>(now.size())));
    }
    known_ = now;
    if (pathField_) SetWholeText(ForDisplay(now));
    if (pathField_ && !hasFocus()) ShowHome();
    if (change_) {
        const std::function<void()> change = change_;
        change();
    }
}

bool QXTextEdit::Passes(QChar character) const {
    if (!allowedKeys_.empty()) return FromAnsi(allowedKeys_).contains(character);
    const bool digit = character >= u'0' && character <= u'9';
    if (dataType_ == 1) return digit;
    if (dataType_ == 2) return digit || character == u'.' || character == u'-';
    return true;
}

QString QXTextEdit::Clean(const QString& entered) const {
    QString kept = entered;
    kept.removeIf(IsDropped);
    const QString known = pathField_ ? kept : FromAnsi(ToAnsi(kept));
    QString clean;
    for (const QChar character : known) {
        if (Passes(character)) clean += character;
    }
    return clean;
}

// What was entered lies between the beginning that is as before and the cursor.
void QXTextEdit::UserEdited() {
    const QString now = text();
    if (now == known_) return;
    const int cursor = cursorPosition();
    const qsizetype shared = std::min<qsizetype>(cursor, known_.size());
    qsizetype start = 0;
    while (start < shared && now[start] == known_[start])
        ++start;
    const QString tail = now.mid(cursor);
    if (!known_.endsWith(tail)) start = 0;  // the cursor tells nothing here, so all of it is looked at
    start = std::min(start, std::max<qsizetype>(0, known_.size() - tail.size()));
    QString entered = Clean(now.mid(start, cursor - start));
    if (maxLength_ > 0) entered.truncate(std::max<qsizetype>(0, maxLength_ - start - tail.size()));

    QString result = now.left(start) + entered + tail;
    qsizetype place = start + entered.size();
    if (entered.isEmpty() && cursor > start) {  // nothing of it passes, so nothing happens
        result = known_;
        place = std::min(place, result.size());
    }
    if (result != now) {
        const QSignalBlocker quiet(this);
        setText(result);
        setCursorPosition(static_cast<int>(place));
    }
    if (result == known_) return;
    known_ = result;
    RaiseByUser(change_);
}

void QXTextEdit::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool printable = !typed.isEmpty() && typed[0].isPrint() && !(event->modifiers() & Qt::ControlModifier);
    if (printable && !isReadOnly()) {
        const bool full = maxLength_ > 0 && !hasSelectedText() && text().size() >= maxLength_;
        if (full || Clean(typed).isEmpty()) {
            event->accept();
            return;
        }
    }
    QLineEdit::keyPressEvent(event);
}

void QXTextEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!autoSelect_ || !IsLeaving(event->reason())) return;
    selectAll();
    enteredByClick_ = event->reason() == Qt::MouseFocusReason;
}

void QXTextEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    enteredByClick_ = false;
    if (!IsLeaving(event->reason())) return;
    ShowHome();
    RaiseByUser(leave_);
}

void QXTextEdit::mousePressEvent(QMouseEvent* event) {
    // The click that entered the field leaves the selection alone.
    swallowsMouse_ = std::exchange(enteredByClick_, false);
    if (!swallowsMouse_) QLineEdit::mousePressEvent(event);
}

void QXTextEdit::mouseMoveEvent(QMouseEvent* event) {
    if (!swallowsMouse_) QLineEdit::mouseMoveEvent(event);
}

void QXTextEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(swallowsMouse_, false)) QLineEdit::mouseReleaseEvent(event);
}

void QXTextEdit::SetLocked(bool locked) {
    setReadOnly(locked);
    LookChanged();
}

void QXTextEdit::SetRoomFor(std::string_view text) {
    roomFor_ = FromAnsi(text);
    updateGeometry();
}

void QXTextEdit::LookChanged() {
    const QColor form = ToQColor(Form().BackColor());
    setFont(LookFont());
    setPalette(MPainting::FieldPalette(PlateFor(Fore(), Locked() ? form : Back()), Fore(), form));
    updateGeometry();
}

SInk QXTextEdit::Ink() const {
    return {palette().color(QPalette::Text), palette().color(QPalette::Base)};
}

void QXTextEdit::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) update();
}

void QXTextEdit::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
    }
    QLineEdit::paintEvent(event);
    // A dark plate under letters of an odd colour isn't taken for a disabled field when it is framed in their colour.
    const bool onPlate = isEnabled() && !Locked() && PlateFor(Fore(), Back()) != Back();
    QPainter painter(this);
    // The toolkit has scrolled the text to the cursor, and cuts letters in two where it has no room.
    const QRect room = rect().adjusted(kMargin + 2, 0, -kMargin - 2, 0);
    if (!hasFocus() && !hasSelectedText() && fontMetrics().horizontalAdvance(displayText()) > room.width()) {
        const Qt::TextElideMode mode = pathField_ ? Qt::ElideLeft : Qt::ElideRight;
        painter.fillRect(rect(), Ink().ground);
        painter.setPen(Ink().text);
        painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(displayText(), mode, room.width()));
    }
    if (onPlate) MPainting::DrawBorder(painter, rect(), Fore(), 2);
    if (hasFocus()) MPainting::DrawBorder(painter, rect(), Mix(Fore(), Back(), 0.25), 1);
}

// The toolkit keeps two pixels more at both ends of the text.
int QXTextEdit::WidthFor(const QString& text) const {
    return fontMetrics().horizontalAdvance(text) + 2 * (kMargin + 2) + 1;
}

QSize QXTextEdit::sizeHint() const {
    const int width = roomFor_.isEmpty() ? QLineEdit::sizeHint().width() : WidthFor(roomFor_);
    return QSize(width, std::max(kHeight, fontMetrics().height() + 8));
}

QSize QXTextEdit::minimumSizeHint() const {
    return QSize(WidthFor(roomFor_.isEmpty() ? QStringLiteral("0000") : roomFor_), sizeHint().height());
}
