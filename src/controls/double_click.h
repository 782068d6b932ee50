#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <cstdint>

class QMouseEvent;

/// Keeps double clicks within one window. The first click may open, close or uncover one, and the second press, which
/// the player aimed at what was there before, would click on whatever lies there now.
///
/// Filters the events of the whole application. What is the second press of a double click, the toolkit decides; all
/// other presses pass, however soon they come.
class CDoubleClickGuard : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool IsAstray(const QWidget& receiver, const QMouseEvent& press) const;

    QPointer<QWidget> window_;  ///< that took the last press
    QPoint place_;
    std::uint64_t time_ = 0;
    Qt::MouseButton button_ = Qt::NoButton;
    bool dropping_ = false;  ///< a press was dropped, and with it goes all up to its release
};
