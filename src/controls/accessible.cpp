#include "controls/accessible.h"

#include <QAccessibleWidget>
#include <memory>

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
