#include "support/form_driver.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <deque>

namespace MFormDriver {

namespace {

std::deque<std::function<void(CForm&)>>& Steps() {
    static std::deque<std::function<void(CForm&)>> steps;
    return steps;
}

// Inside of lists it is the viewport that takes the mouse.
QWidget* Target(CForm& form, const QString& objectName) {
    QWidget* widget = Find(form, objectName);
    auto* list = qobject_cast<QAbstractItemView*>(widget);
    return list != nullptr ? list->viewport() : widget;
}

void TypeCharacters(CForm& form, const QString& objectName, const QString& text) {
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, Find(form, objectName), Qt::Key_unknown, QString(c), Qt::NoModifier);
}

void RunStep() {
    auto* form = dynamic_cast<CForm*>(QApplication::activeModalWidget());
    if (form == nullptr || Steps().empty()) {
        ADD_FAILURE() << "No modal form came up for the queued step";
        return;
    }
    const auto step = std::move(Steps().front());
    Steps().pop_front();
    if (!Steps().empty()) QTimer::singleShot(0, qApp, &RunStep);
    step(*form);
    if (form->isVisible()) {
        ADD_FAILURE() << form->Name() << " was left open";
        form->Unload();
        form->Hide();
    }
}

}  // namespace

void Show(CForm& form) {
    form.ShowNonModal();
    form.activateWindow();
    QApplication::processEvents();
}

QWidget* Find(CForm& form, const QString& objectName) {
    auto* widget = form.findChild<QWidget*>(objectName);
    if (widget == nullptr) qFatal("%s has no %s", form.Name().c_str(), qPrintable(objectName));
    return widget;
}

void Click(CForm& form, const QString& objectName) {
    QTest::mouseClick(Target(form, objectName), Qt::LeftButton);
}

void Type(CForm& form, const QString& objectName, const QString& text) {
    Click(form, objectName);
    Find(form, objectName)->setFocus(Qt::OtherFocusReason);
    TypeCharacters(form, objectName, text);
}

void Retype(CForm& form, const QString& objectName, const QString& text) {
    Click(form, objectName);
    if (auto* field = qobject_cast<QLineEdit*>(Find(form, objectName))) field->selectAll();
    QTest::keyClick(Find(form, objectName), Qt::Key_Delete);
    TypeCharacters(form, objectName, text);
}

void Press(CForm& form, const QString& objectName, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(Find(form, objectName), key, modifiers);
}

void ClickRow(CForm& form, const QString& listName, int row, bool twice) {
    auto* list = qobject_cast<QAbstractItemView*>(Find(form, listName));
    ASSERT_NE(list, nullptr) << qPrintable(listName) << " is no list";
    const QModelIndex index = list->model()->index(row, list->model()->columnCount() - 1);
    ASSERT_TRUE(index.isValid()) << qPrintable(listName) << " has no row " << row;
    list->scrollTo(index);
    const QPoint place = list->visualRect(index).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    if (twice) QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

void Choose(CForm& form, const QString& listName, int index) {
    auto* list = qobject_cast<QComboBox*>(Find(form, listName));
    ASSERT_NE(list, nullptr) << qPrintable(listName) << " is no choice list";
    list->showPopup();
    QAbstractItemView* view = list->view();
    view->setCurrentIndex(list->model()->index(index, 0));
    QTest::keyClick(view, Qt::Key_Return);
}

void RunEntry(CForm& form, const QString& entryName) {
    auto* entry = form.findChild<QAction*>(entryName);
    if (entry == nullptr) qFatal("%s has no %s", form.Name().c_str(), qPrintable(entryName));
    entry->trigger();
}

void WhileModal(std::function<void(CForm& form)> step) {
    Steps().push_back(std::move(step));
    if (Steps().size() == 1) QTimer::singleShot(0, qApp, &RunStep);
}

void VerifySteps() {
    EXPECT_TRUE(Steps().empty()) << "Queued steps have not run";
    Steps().clear();
}

}  // namespace MFormDriver
