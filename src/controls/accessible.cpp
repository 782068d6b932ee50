#include "controls/accessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <algorithm>
#include <memory>

#include "controls/ansi_qt.h"
#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/edit_list.h"
#include "controls/frame.h"
#include "controls/picture_box.h"

namespace {

class CAccessibleButton : public QAccessibleWidget {
  public:
    explicit CAccessibleButton(QXColorButton* button) : QAccessibleWidget(button, RoleOf(*button)), button_(button) {}
    ~CAccessibleButton() override = default;

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button_->Style() != ButtonStyle::Command;
        state.checked = state.checkable && button_->Value();
        state.pressed = button_->isDown();
        return state;
    }
    QStringList actionNames() const override {
        QStringList names;
        if (button_->isEnabled()) {
            names << (button_->Style() == ButtonStyle::Check ? toggleAction() : pressAction());
            names << setFocusAction();
        }
        return names;
    }
    void doAction(const QString& name) override {
        if (name == pressAction() || name == toggleAction()) {
            button_->click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    static QAccessible::Role RoleOf(const QXColorButton& button) {
        if (button.Style() == ButtonStyle::Option) return QAccessible::RadioButton;
        return button.Style() == ButtonStyle::Check ? QAccessible::CheckBox : QAccessible::Button;
    }

    QXColorButton* button_;
};

// The toolkit's own gives the chosen text for the name: it leaves naming to labels, which not every choice list has. As
// the platform's protocol passes on no value that isn't a number, the chosen entry is a text that can be read, too.
class CAccessibleChoice : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit CAccessibleChoice(QXChoiceList* list) : QAccessibleWidget(list, QAccessible::ComboBox), list_(list) {}
    ~CAccessibleChoice() override = default;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Value ? Entry() : QAccessibleWidget::text(what);
    }
    QString text(int begin, int end) const override { return Entry().mid(begin, std::max(0, end - begin)); }
    int characterCount() const override { return static_cast<int>(Entry().size()); }
    // Nothing in it can be selected or pointed at.
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* begin, int* end) const override { *begin = *end = 0; }
    void addSelection(int /*begin*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*begin*/, int /*end*/) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    void scrollToSubstring(int /*begin*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* begin, int* end) const override {
        *begin = 0;
        *end = characterCount();
        return {};
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = list_->view()->isVisible();
        return state;
    }
    // The one child is the list that opens.
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(list_->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && child->object() == list_->view() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return list_->view()->isVisible() && child(0)->rect().contains(x, y) ? child(0) : nullptr;
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (list_->isEnabled()) names << showMenuAction() << pressAction();
        return names;
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction() && name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (list_->view()->isVisible()) {
            list_->hidePopup();
        } else {
            list_->showPopup();
        }
    }

  private:
    QString Entry() const { return ForDisplay(FromAnsi(list_->Text())); }

    QXChoiceList* list_;
};

class CAccessibleRole : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    ~CAccessibleRole() override = default;
};

// The toolkit's lists and trees have their cells for children and nothing else. What is edited in place stands beside
// the list in its frame.
class CAccessibleFrame : public QAccessibleWidget {
  public:
    explicit CAccessibleFrame(QXFrame* frame) : QAccessibleWidget(frame, QAccessible::Grouping), frame_(frame) {}
    ~CAccessibleFrame() override = default;

    int childCount() const override { return QAccessibleWidget::childCount() + (Editing() != nullptr ? 1 : 0); }
    QAccessibleInterface* child(int index) const override {
        QXEditList* list = index == QAccessibleWidget::childCount() ? Editing() : nullptr;
        return list != nullptr ? QAccessible::queryAccessibleInterface(list->viewport())
                               : QAccessibleWidget::child(index);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const QXEditList* list = child != nullptr ? Editing() : nullptr;
        return list != nullptr && child->object() == list->viewport() ? QAccessibleWidget::childCount()
                                                                      : QAccessibleWidget::indexOfChild(child);
    }

  private:
    QXEditList* Editing() const {
        for (auto* list : frame_->findChildren<QXEditList*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (list->Editing()) return list;
        }
        return nullptr;
    }

    QXFrame* frame_;
};

// Holds the open editor of a list.
class CAccessibleEditing : public QAccessibleWidget {
  public:
    explicit CAccessibleEditing(QXEditList* list) : QAccessibleWidget(list->viewport()), list_(list) {}
    ~CAccessibleEditing() override = default;

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list_->parentWidget());
    }

  private:
    QXEditList* list_;
};

// The caller takes what is made here.
QAccessibleInterface* Make(const QString& /*className*/, QObject* object) {
    if (auto* button = qobject_cast<QXColorButton*>(object)) {
        return std::make_unique<CAccessibleButton>(button).release();
    }
    if (auto* list = qobject_cast<QXChoiceList*>(object)) {
        return std::make_unique<CAccessibleChoice>(list).release();
    }
    if (auto* frame = qobject_cast<QXFrame*>(object)) {
        return std::make_unique<CAccessibleFrame>(frame).release();
    }
    if (auto* picture = qobject_cast<CPictureBox*>(object)) {
        return std::make_unique<CAccessibleRole>(picture, QAccessible::Graphic).release();
    }
    auto* list = qobject_cast<QXEditList*>(object->parent());
    if (list != nullptr && list->viewport() == object) return std::make_unique<CAccessibleEditing>(list).release();
    return nullptr;
}

}  // namespace

void MAccessible::Install() {
    QAccessible::installFactory(&Make);
}
