#include "controls/accessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <memory>

#include "controls/ansi_qt.h"
#include "controls/choice_list.h"
#include "controls/color_button.h"
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

// The toolkit's own gives the chosen text for the name: it leaves naming to labels, which not every choice list has.
class CAccessibleChoice : public QAccessibleWidget {
  public:
    explicit CAccessibleChoice(QXChoiceList* list) : QAccessibleWidget(list, QAccessible::ComboBox), list_(list) {}
    ~CAccessibleChoice() override = default;

    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Value ? ForDisplay(FromAnsi(list_->Text())) : QAccessibleWidget::text(what);
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
    QXChoiceList* list_;
};

class CAccessibleRole : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    ~CAccessibleRole() override = default;
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
        return std::make_unique<CAccessibleRole>(frame, QAccessible::Grouping).release();
    }
    if (auto* picture = qobject_cast<CPictureBox*>(object)) {
        return std::make_unique<CAccessibleRole>(picture, QAccessible::Graphic).release();
    }
    return nullptr;
}

}  // namespace

void MAccessible::Install() {
    QAccessible::installFactory(&Make);
}
