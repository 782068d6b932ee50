#include "tour/tour_window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "controls/ansi_qt.h"
#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/frame.h"
#include "controls/label.h"

namespace {

QString TextOf(QWidget& control) {
    if (auto* edit = dynamic_cast<QLineEdit*>(&control)) return edit->text();
    if (auto* button = dynamic_cast<QXColorButton*>(&control)) return FromAnsi(button->Caption());
    if (auto* label = dynamic_cast<QXLabel*>(&control)) return FromAnsi(label->Caption());
    if (auto* choice = dynamic_cast<QXChoiceList*>(&control)) return FromAnsi(choice->Text());
    if (auto* frame = dynamic_cast<QXFrame*>(&control)) return FromAnsi(frame->Caption());
    if (auto* text = dynamic_cast<QLabel*>(&control)) return text->text();
    return "(no text)";
}

// Letters that the test library has no key for come as from an input method.
void TypeInto(QLineEdit& edit, const QString& text) {
    for (const QChar letter : text) {
        QInputMethodEvent event;
        event.setCommitString(letter);
        if (letter.unicode() < 128) {
            QTest::keyClick(&edit, letter.toLatin1());
        } else {
            QCoreApplication::sendEvent(&edit, &event);
        }
    }
}

}  // namespace

template <class TControl>
TControl& CTourWindow::Find(QWidget& window, const QString& name) const {
    auto* control = dynamic_cast<TControl*>(window.findChild<QWidget*>(name));
    guide_.Check(control != nullptr && control->isVisible(), name_ + " doesn't show " + name);
    return *control;
}

template <class TControl>
CTourWindow::Self CTourWindow::Use(const QString& control, const QString& act,
                                   std::function<void(TControl&)> use) const {
    guide_.Add(name_, QString("%1: %2 %3").arg(name_, act, control), [=, *this](QWidget& window) {
        auto& found = Find<TControl>(window, control);
        guide_.Check(found.isEnabled(), name_ + " has disabled " + control);
        use(found);
    });
    return *this;
}

CTourWindow::Self CTourWindow::Look(CGuide::Act look) const {
    guide_.Add(name_, {}, std::move(look));
    return *this;
}

CTourWindow::Self CTourWindow::Click(const QString& control) const {
    return Use<QWidget>(control, "click", [](QWidget& target) { QTest::mouseClick(&target, Qt::LeftButton); });
}

// The name of a row stands in its last column.
CTourWindow::Self CTourWindow::ChooseRow(const QString& list, const QString& row, bool twice) const {
    return Use<QAbstractItemView>(list, "click \"" + row + "\" in", [=, *this](QAbstractItemView& rows) {
        const auto names = rows.model()->index(0, rows.model()->columnCount() - 1);
        const auto found = rows.model()->match(names, Qt::DisplayRole, row, 1, Qt::MatchExactly);
        guide_.Check(!found.isEmpty(), QString("%1.%2 has no row \"%3\"").arg(name_, list, row));
        rows.scrollTo(found.front());
        const QPoint place = rows.visualRect(found.front()).center();
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place);
        if (twice) QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, place);
    });
}

CTourWindow::Self CTourWindow::EditRow(const QString& list, const QString& text) const {
    return Use<QAbstractItemView>(list, "type \"" + text + "\" into", [=, *this](QAbstractItemView& rows) {
        QTest::keyClicks(&rows, text.left(1));
        auto* editor = rows.findChild<QLineEdit*>();
        guide_.Check(editor != nullptr, QString("%1.%2 takes no keys").arg(name_, list));
        QTest::keyClicks(editor, text.mid(1));
        QTest::keyClick(editor, Qt::Key_Return);
        guide_.Pause();  // the list takes the text after the key
    });
}

CTourWindow::Self CTourWindow::Choose(const QString& choiceList, const QString& entry) const {
    return Use<QComboBox>(choiceList, "choose \"" + entry + "\" in", [=, *this](QComboBox& combo) {
        const int index = combo.findText(entry);
        guide_.Check(index >= 0, QString("%1.%2 has no \"%3\"").arg(name_, choiceList, entry));
        QTest::mouseClick(&combo, Qt::LeftButton);
        const QModelIndex row = combo.model()->index(index, combo.modelColumn());
        const QPoint place = combo.view()->visualRect(row).center();
        QTest::mouseMove(combo.view()->viewport(), place);
        QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {}, place);
    });
}

CTourWindow::Self CTourWindow::Type(const QString& field, const QString& text) const {
    return Use<QLineEdit>(field, "type \"" + text + "\" into", [=, *this](QLineEdit& edit) {
        edit.window()->activateWindow();  // as a click on it does where somebody manages windows
        QTest::mouseClick(&edit, Qt::LeftButton);
        // Typing waits for the focus: a file dialog without it would keep the file that it stands on.
        guide_.Pause([&edit] { return edit.hasFocus(); });
        guide_.Check(edit.hasFocus(), QString("%1.%2 takes no keys").arg(name_, field));
        edit.selectAll();
        TypeInto(edit, text);
    });
}

// To the window itself: where there is no display the toolkit would give the move to whichever window lies there first.
CTourWindow::Self CTourWindow::Hover(const QString& control) const {
    return Use<QWidget>(control, "hover over", [guide = &guide_](QWidget& target) {
        QWidget* window = target.window();
        QTest::mouseMove(window->windowHandle(), target.mapTo(window, target.rect().center()));
        guide->Pause();
    });
}

CTourWindow::Self CTourWindow::Answer(const QString& button) const {
    guide_.Add(name_, QString("%1: answer \"%2\"").arg(name_, button), [=, *this](QWidget& window) {
        for (QAbstractButton* candidate : window.findChildren<QAbstractButton*>()) {
            if (!candidate->isVisible() || candidate->text().remove('&') != button) continue;
            guide_.Check(candidate->isEnabled(), QString("%1 has disabled \"%2\"").arg(name_, button));
            QTest::mouseClick(candidate, Qt::LeftButton);
            return;
        }
        guide_.Check(false, QString("%1 \"%2\" has no button \"%3\"").arg(name_, window.windowTitle(), button));
    });
    return *this;
}

CTourWindow::Self CTourWindow::Shows(const QString& control, const QString& text) const {
    return Look([=, *this](QWidget& window) {
        guide_.CheckEqual(name_ + "." + control, TextOf(Find<QWidget>(window, control)), text);
    });
}

CTourWindow::Self CTourWindow::HasTitle(const QString& title) const {
    return Look([=, *this](QWidget& window) { guide_.CheckEqual(name_ + "'s title", window.windowTitle(), title); });
}

CTourWindow::Self CTourWindow::Picture(const QString& name) const {
    return Look([=, guide = &guide_](QWidget& window) { guide->Picture(window, name); });
}
