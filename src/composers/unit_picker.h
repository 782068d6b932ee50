#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/layout.h"
#include "controls/list_box.h"
#include "units/unit_list.h"

/// What a unit picker needs of its form.
struct SUnitPicking {
    std::function<const CUnitList&()> source;  ///< units on offer
    std::function<CUnitList&()> target;        ///< what was picked of them
    std::function<void(std::shared_ptr<CGenUnit>)> add;
    std::function<void(std::int32_t position)> remove;
    std::function<void()> moved;     ///< an entry has changed places
    std::function<void()> showItem;  ///< after Add and Remove, whether or not anything was selected
};

/// The part of a unit picker that does not depend on the kind of its target list.
class CUnitPickerBase {
  public:
    enum Side { Source, Target, SideCount };

    CUnitPickerBase(CForm* form, SUnitPicking picking);
    virtual ~CUnitPickerBase() = default;

    /// Where the form, once laid out, puts a side's filter: above everything else.
    QBoxLayout& Column(Side side) { return *columns_.at(side); }
    /// After the skin, which sets all fonts.
    void ShowArrows();
    /// Fills `lstUnits` with the names of the units that the filter selects, in list order. Nothing is selected
    /// afterwards.
    void RefreshSourceList(std::int32_t filter);

    QXFrame frmSource;
    CListBox lstUnits;
    QXColorButton cmdAddUnit;
    QXColorButton cmdShowSelUnit;
    QXFrame frmTarget;
    QXColorButton cmdRemoveUnit;
    QXColorButton cmdUnitMoveUp;
    QXColorButton cmdUnitMoveDown;
    CControlArray<QXFrame, SideCount> frmDescr;
    CControlArray<QXLabel, SideCount> lblSpecialDescr;

  protected:
    QGridLayout* LayOut(QAbstractItemView& target);
    virtual void UpdateUnitButtons() = 0;
    void Enable(bool targetSelected, bool canMoveUp, bool canMoveDown);
    void ShowTargetInfo(const std::string& name);
    void Remove(int row);

    SUnitPicking picking_;

  private:
    void lstUnits_Click();
    void cmdAddUnit_Click();
    void cmdShowSelUnit_Click();

    CForm* form_;
    QAbstractItemView* target_ = nullptr;
    std::array<QBoxLayout*, SideCount> columns_{};
};

/// Two lists side by side: the units of the army list, and what was picked of them for a roster or squad. Buttons and
/// double clicks add and remove, arrows move, and below each list stands what is known about the selected unit.
/// `TTarget` is the control that lists the target. The controls register with the form under their own names.
template <class TTarget>
class CUnitPicker : public CUnitPickerBase {
  public:
    CUnitPicker(CForm* form, const char* targetName, SUnitPicking picking)
        : CUnitPickerBase(form, std::move(picking)), lstTarget(form, targetName) {
        lstTarget.OnClick([this] { lstTarget_Click(); });
        lstTarget.OnDblClick([this] { cmdRemoveUnit_Click(); });
        cmdRemoveUnit.OnClick([this] { cmdRemoveUnit_Click(); });
        cmdUnitMoveUp.OnClick([this] { cmdUnitMoveUp_Click(); });
        cmdUnitMoveDown.OnClick([this] { cmdUnitMoveDown_Click(); });
    }

    /// Both sides, for the form's layout.
    QGridLayout* LayOut() { return CUnitPickerBase::LayOut(lstTarget); }
    /// The target list has been filled anew, and nothing in it is selected.
    void TargetFilled() {
        lblSpecialDescr[Target].SetCaption("");
        UpdateUnitButtons();
    }

    /// As a click on the row does.
    void SelectTarget(int row) {
        lstTarget.SetListIndex(row);
        lstTarget_Click();
    }

    TTarget lstTarget;  ///< on the form under the name that the form gave

  private:
    void UpdateUnitButtons() override {
        Enable(lstTarget.ListIndex() >= 0, lstTarget.CanMoveUp(), lstTarget.CanMoveDown());
    }
    void lstTarget_Click() {
        if (lstTarget.ListIndex() >= 0) ShowTargetInfo(lstTarget.List(lstTarget.ListIndex()));
        UpdateUnitButtons();
    }
    void cmdRemoveUnit_Click() { Remove(lstTarget.ListIndex()); }
    void cmdUnitMoveUp_Click() {
        if (lstTarget.CanMoveUp()) MoveRow(picking_.target().MoveUp(lstTarget.ListIndex() + 1));
    }
    void cmdUnitMoveDown_Click() {
        if (lstTarget.CanMoveDown()) MoveRow(picking_.target().MoveDown(lstTarget.ListIndex() + 1));
    }
    // The list follows a shift of the selected entry to `position`; 0 is a shift that moved nothing. Nothing else on
    // the form depends on the order.
    void MoveRow(std::int32_t position) {
        if (position > 0) {
            lstTarget.MoveItem(lstTarget.ListIndex(), position - 1);
            picking_.moved();
        }
        UpdateUnitButtons();
    }
};
