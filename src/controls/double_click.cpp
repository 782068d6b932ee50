#include "controls/double_click.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <utility>

namespace {

// A popup that is open takes the presses beside it too.
QWidget* WindowUnder(const QWidget& receiver, const QPoint& place) {
    QWidget* window = receiver.window();
    return window->geometry().contains(place) ? window : QApplication::topLevelAt(place);
}

}  // namespace

bool CDoubleClickGuard::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    const auto& receiver = static_cast<const QWidget&>(*watched);
    switch (event->type()) {
        case QEvent::MouseButtonPress: {
            const auto& press = static_cast<const QMouseEvent&>(*event);
            dropping_ = false;
            place_ = press.globalPosition().toPoint();
            window_ = WindowUnder(receiver, place_);
            time_ = press.timestamp();
            button_ = press.button();
            return false;
        }
        case QEvent::MouseButtonDblClick:
            dropping_ = IsAstray(receiver, static_cast<const QMouseEvent&>(*event));
            return dropping_;
        case QEvent::MouseMove:
            return dropping_ && static_cast<const QMouseEvent*>(event)->buttons() != Qt::NoButton;
        case QEvent::MouseButtonRelease:
            return std::exchange(dropping_, false);
        default:
            return false;
    }
}

// One that is made up, by a test or a tool, and has no first press at its place, is no part of that one.
bool CDoubleClickGuard::IsAstray(const QWidget& receiver, const QMouseEvent& press) const {
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const QPoint place = press.globalPosition().toPoint();
    const bool second = press.button() == button_ &&
                        press.timestamp() - time_ < static_cast<std::uint64_t>(hints.mouseDoubleClickInterval()) &&
                        (place - place_).manhattanLength() <= 2 * hints.mouseDoubleClickDistance();
    return second && WindowUnder(receiver, place) != window_;
}
