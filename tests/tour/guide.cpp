#include "tour/guide.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmap>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <cstdlib>

#include "controls/ansi_qt.h"
#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/frame.h"
#include "controls/label.h"

namespace {

constexpr int kLookEveryMs = 15;
constexpr int kPatienceMs = 20'000;

QWidget* TopWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    QWidget* top = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->isWindow()) top = window;
    }
    return top;
}

}  // namespace

CGuide::CGuide(const QString& pictureFolder) : pictureFolder_(pictureFolder) {}

void CGuide::At(const QString& window, const QString& step, Action action) {
    steps_.push_back({window, step, std::move(action)});
}

void CGuide::AtBox(const QString& step, const QString& text, const QString& button, const QString& picture) {
    At(QStringLiteral("QMessageBox"), step, [=, this](QWidget& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        Check(box != nullptr, step + QStringLiteral(": this is no box"));
        CheckEqual(box->text(), text, QStringLiteral("text of the box"));
        if (!picture.isEmpty()) Picture(window, picture);
        Answer(window, button);
    });
}

void CGuide::AtFileDialog(const QString& step, const QString& title, const QString& name, const QString& button,
                          const QString& picture) {
    At(QStringLiteral("QFileDialog"), step, [=, this](QWidget& window) {
        CheckEqual(window.windowTitle(), title, QStringLiteral("title of the dialog"));
        Type(window, QStringLiteral("fileNameEdit"), name);
        if (!picture.isEmpty()) Picture(window, picture);
        Answer(window, button);
    });
}

// One timer a look: a repeating one keeps still while the step that it started sits in a modal loop.
void CGuide::LookAgain() {
    QTimer::singleShot(kLookEveryMs, this, &CGuide::RunNextStep);
}

void CGuide::RunNextStep() {
    if (steps_.empty()) return;
    LookAgain();
    if (pausing_) return;
    QWidget* top = TopWindow();
    const QString& wanted = steps_.front().window;
    const bool there = top != nullptr && top->isVisible() &&
                       (top->objectName() == wanted || wanted == QString::fromLatin1(top->metaObject()->className()));
    if (!there) {
        waited_ += kLookEveryMs;
        if (waited_ > kPatienceMs) {
            Fail(QStringLiteral("%1: %2 never came; on top is %3 \"%4\"")
                     .arg(steps_.front().name, wanted, top ? top->objectName() : QStringLiteral("nothing"),
                          top ? top->windowTitle() : QString()));
        }
        return;
    }
    waited_ = 0;
    const SStep step = std::move(steps_.front());
    steps_.pop_front();
    QTextStream(stdout) << "  " << step.name << "\n" << Qt::flush;
    step.action(*top);
}

void CGuide::Check(bool holds, const QString& what) {
    if (!holds) Fail(what);
}

void CGuide::Fail(const QString& what) {
    QTextStream(stderr) << "The tour failed: " << what << "\n" << Qt::flush;
    // From the middle of any number of modal loops there is no other way out.
    std::exit(1);
}

// Lets the window paint without going on to the next step.
void CGuide::Pause() {
    pausing_ = true;
    QTest::qWait(30);
    pausing_ = false;
}

void CGuide::Picture(QWidget& window, const QString& name) {
    Pause();
    const QString file = QStringLiteral("%1_%2.png").arg(++pictures_, 2, 10, QLatin1Char('0')).arg(name);
    Check(window.grab().save(QDir(pictureFolder_).filePath(file)),
          QStringLiteral("picture %1 can't be written").arg(file));
}

QWidget& CGuide::Control(QWidget& window, const QString& name) {
    QWidget* control = window.objectName() == name ? &window : window.findChild<QWidget*>(name);
    Check(control != nullptr, QStringLiteral("%1 has no %2").arg(window.objectName(), name));
    Check(control->isVisible() && control->isEnabled(), QStringLiteral("%1 can't be used").arg(name));
    return *control;
}

void CGuide::Click(QWidget& window, const QString& control) {
    QTest::mouseClick(&Control(window, control), Qt::LeftButton);
}

QAbstractItemView& CGuide::Rows(QWidget& window, const QString& list) {
    auto* rows = qobject_cast<QAbstractItemView*>(&Control(window, list));
    Check(rows != nullptr, list + QStringLiteral(" is no list"));
    return *rows;
}

// The name of a row stands in its last column.
void CGuide::ClickRow(QWidget& window, const QString& list, const QString& row) {
    QAbstractItemView& rows = Rows(window, list);
    QAbstractItemModel* model = rows.model();
    const auto found =
        model->match(model->index(0, model->columnCount() - 1), Qt::DisplayRole, row, 1, Qt::MatchExactly);
    Check(!found.isEmpty(), QStringLiteral("%1 has no row \"%2\"").arg(list, row));
    rows.scrollTo(found.front());
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualRect(found.front()).center());
}

void CGuide::DoubleClickRow(QWidget& window, const QString& list, const QString& row) {
    ClickRow(window, list, row);
    QAbstractItemView& rows = Rows(window, list);
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, rows.visualRect(rows.currentIndex()).center());
}

void CGuide::TypeTag(QWidget& window, const QString& list, const QString& row, const QString& tag) {
    ClickRow(window, list, row);
    QAbstractItemView& rows = Rows(window, list);
    QTest::keyClicks(&rows, tag.left(1));
    auto* editor = rows.findChild<QLineEdit*>();
    Check(editor != nullptr, QStringLiteral("%1 takes no keys").arg(list));
    QTest::keyClicks(editor, tag.mid(1));
    QTest::keyClick(editor, Qt::Key_Return);
    Pause();  // the list takes the text after the key
}

void CGuide::Choose(QWidget& window, const QString& choiceList, const QString& entry) {
    auto* combo = qobject_cast<QComboBox*>(&Control(window, choiceList));
    Check(combo != nullptr && combo->findText(entry) >= 0, QStringLiteral("%1 has no \"%2\"").arg(choiceList, entry));
    QTest::mouseClick(combo, Qt::LeftButton);
    QAbstractItemView* rows = combo->view();
    const QModelIndex row = combo->model()->index(combo->findText(entry), combo->modelColumn());
    QTest::mouseMove(rows->viewport(), rows->visualRect(row).center());
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualRect(row).center());
}

void CGuide::Type(QWidget& window, const QString& field, const QString& text) {
    auto* edit = qobject_cast<QLineEdit*>(&Control(window, field));
    Check(edit != nullptr, field + QStringLiteral(" is no field"));
    window.activateWindow();  // as a click on it does where somebody manages windows
    QTest::mouseClick(edit, Qt::LeftButton);
    // Typing waits for the focus: a file dialog without it would keep the file that it stands on.
    pausing_ = true;
    const bool focused = QTest::qWaitFor([edit] { return edit->hasFocus(); });
    pausing_ = false;
    Check(focused, field + QStringLiteral(" takes no keys"));
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

// To the window itself: where there is no display the toolkit would give the move to whichever window lies there first.
void CGuide::Hover(QWidget& window, const QString& control) {
    QWidget& target = Control(window, control);
    QTest::mouseMove(window.windowHandle(), target.mapTo(&window, target.rect().center()));
    Pause();
}

void CGuide::Answer(QWidget& window, const QString& button) {
    for (QAbstractButton* candidate : window.findChildren<QAbstractButton*>()) {
        if (candidate->isVisible() && candidate->text().remove(QLatin1Char('&')) == button) {
            QTest::mouseClick(candidate, Qt::LeftButton);
            return;
        }
    }
    Fail(QStringLiteral("%1 has no button %2").arg(window.windowTitle(), button));
}

QString CGuide::TextOf(QWidget& window, const QString& control) {
    QWidget* widget = window.findChild<QWidget*>(control);
    Check(widget != nullptr, QStringLiteral("%1 has no %2").arg(window.objectName(), control));
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
    if (auto* button = dynamic_cast<QXColorButton*>(widget)) return FromAnsi(button->Caption());
    if (auto* label = dynamic_cast<QXLabel*>(widget)) return FromAnsi(label->Caption());
    if (auto* choice = dynamic_cast<QXChoiceList*>(widget)) return FromAnsi(choice->Text());
    if (auto* frame = dynamic_cast<QXFrame*>(widget)) return FromAnsi(frame->Caption());
    return {};
}
