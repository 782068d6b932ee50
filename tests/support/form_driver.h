#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "controls/form.h"

/// Drives forms as a player does: by mouse and keys, on controls found by their object name ("cmdExit", "cmdMenu(3)").
namespace MFormDriver {

/// Shows the form without blocking, as the active window.
void Show(CForm& form);

/// Ends the test when there is no such control.
QWidget* Find(CForm& form, const QString& objectName);
template <class Control>
Control& Get(CForm& form, const QString& objectName) {
    auto* control = dynamic_cast<Control*>(Find(form, objectName));
    if (control == nullptr) qFatal("%s is no such control", qPrintable(objectName));
    return *control;
}

void Click(CForm& form, const QString& objectName);
/// Types into a control that has been clicked first.
void Type(CForm& form, const QString& objectName, const QString& text);
/// Replaces the whole text of a field by typing.
void Retype(CForm& form, const QString& objectName, const QString& text);
void Press(CForm& form, const QString& objectName, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks, or double clicks, the row of a list.
void ClickRow(CForm& form, const QString& listName, int row, bool twice = false);
/// Picks an entry of a choice list from its opened list.
void Choose(CForm& form, const QString& listName, int index);
/// Runs the menu entry of that object name.
void RunEntry(CForm& form, const QString& entryName);
/// The window's X.
inline void CloseWindow(CForm& form) {
    form.close();
}

/// Queues a step that runs while the next modal form is up; steps run in the order of the forms that come up. A form
/// that its step leaves open is closed, and the test fails.
void WhileModal(std::function<void(CForm& form)> step);
/// Fails the test when a queued step hasn't run.
void VerifySteps();

}  // namespace MFormDriver
