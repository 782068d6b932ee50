#include "tour/guide.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QWindow>
#include <cstdlib>

namespace {

constexpr int kLookEveryMs = 5;
constexpr int kPatienceMs = 20'000;
constexpr int kPauseMs = 30;

// The suggestions that a field drops down as one types are no window of their own.
QWidget* TopWindow() {
    QWidget* popup = QApplication::activePopupWidget();
    if (popup != nullptr && qobject_cast<QAbstractItemView*>(popup) == nullptr) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    QWidget* top = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->isWindow()) top = window;
    }
    return top;
}

bool Is(QWidget* window, const QString& wanted) {
    if (window == nullptr || !window->isVisible() || !window->windowHandle()->isExposed()) return false;
    return wanted.isEmpty() || window->objectName() == wanted || window->metaObject()->className() == wanted;
}

}  // namespace

void CGuide::Add(const QString& window, const QString& name, Act act) {
    acts_.push_back({tale_, window, name, std::move(act)});
}

void CGuide::Start() {
    // Told at the beginning of each round of a running loop: a loop that has been told to quit begins no other.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { newRound_ = true; });
    patience_.setRemainingTime(kPatienceMs);
    LookAgain();
}

// One timer a look: a repeating one keeps still while the act that it started sits in a modal loop.
void CGuide::LookAgain() {
    QTimer::singleShot(kLookEveryMs, this, &CGuide::PlayNext);
}

void CGuide::PlayNext() {
    LookAgain();
    if (pausing_ || !newRound_) return;
    QWidget* top = TopWindow();
    const QString wanted = acts_.empty() ? "The end" : acts_.front().window;
    if (acts_.empty() || !Is(top, wanted)) {
        const QString there =
            top ? top->objectName() + " \"" + top->windowTitle() + "\" " + top->property("text").toString() : "nothing";
        Check(!patience_.hasExpired(), QString("%1 never came; on top is %2").arg(wanted, there));
        return;
    }
    const SAct act = std::move(acts_.front());
    acts_.pop_front();
    if (told_ != act.tale) QTextStream(stdout) << "  " << act.tale << "\n" << Qt::flush;
    told_ = act.tale;
    patience_.setRemainingTime(kPatienceMs);
    if (!act.name.isEmpty()) last_ = act.name;
    newRound_ = false;
    act.play(*top);
}

void CGuide::Check(bool holds, const QString& what) {
    if (holds) return;
    QTextStream(stderr) << "The tour failed where the player " << told_ << ", after \"" << last_ << "\":\n"
                        << what << "\n"
                        << Qt::flush;
    // From the middle of any number of modal loops there is no other way out.
    std::exit(1);
}

void CGuide::Pause(const std::function<bool()>& until) {
    pausing_ = true;
    if (until) {
        (void)QTest::qWaitFor(until);
    } else {
        QTest::qWait(kPauseMs);
    }
    pausing_ = false;
}

void CGuide::Picture(QWidget& window, const QString& name) {
    Pause();
    const QString file = QString("%1_%2.png").arg(++pictures_, 2, 10, QChar('0')).arg(name);
    Check(window.grab().save(QDir(pictureFolder_).filePath(file)), "picture " + file + " can't be written");
}
