#pragma once

#include <QString>
#include <functional>

#include "tour/guide.h"

/// A window in the tour's script. Every call is an act of its own, played when the window is on top; calls can be
/// chained. Controls go by their object name: "cmdExit", "cmdMenu(3)".
class CTourWindow {
  public:
    using Self = const CTourWindow&;

    /// The object name of a form, or the class of one of the toolkit's dialogs.
    CTourWindow(CGuide& guide, QString name) : guide_(guide), name_(std::move(name)) {}

    // What a player does. The control must be there, visible and enabled.
    Self Click(const QString& control) const;
    Self ClickRow(const QString& list, const QString& row) const { return ChooseRow(list, row, false); }
    Self DoubleClickRow(const QString& list, const QString& row) const { return ChooseRow(list, row, true); }
    /// Types over the first column of the chosen row.
    Self EditRow(const QString& list, const QString& text) const;
    Self Choose(const QString& choiceList, const QString& entry) const;
    Self Type(const QString& field, const QString& text) const;
    Self Hover(const QString& control) const;
    /// Clicks a button of a box or dialog by its text, mnemonics aside.
    Self Answer(const QString& button) const;

    // What he sees.
    Self Shows(const QString& control, const QString& text) const;
    Self Costs(const QString& points) const { return Shows("tedPointCost", points); }
    Self HasTitle(const QString& title) const;
    Self Picture(const QString& name) const;

  private:
    template <class TControl>
    TControl& Find(QWidget& window, const QString& name) const;
    template <class TControl>
    Self Use(const QString& control, const QString& act, std::function<void(TControl& control)> use) const;
    Self Look(CGuide::Act look) const;
    Self ChooseRow(const QString& list, const QString& row, bool twice) const;

    CGuide& guide_;
    QString name_;
};
