#pragma once

#include "composers/unit_controls.h"
#include "controls/control_array.h"
#include "controls/edit_list.h"
#include "makers/maker_of.h"
#include "makers/unit_list_maker.h"
#include "units/mult_unit.h"

/// Builds squads out of the single units of the army list, each with a quantity of its own, which is edited in place.
/// Squads can't be put into squads here.
class FSquadComposer : public FMakerOf<CMultUnit, FUnitListMaker> {
  public:
    FSquadComposer();

  protected:
    void LoadItem() override;
    bool ValidateItem(bool messages) override;
    void ShowItem() override;
    void ShowWalked() override;
    void cmdNew_Click() override;
    CUnitList& List() const override { return ArmyUnits(); }

  private:
    enum Side { Source, Target, SideCount };
    static constexpr int FilterCount = 3;

    void LayOut();
    void RefreshSourceList();
    void UpdateUnitButtons() { Buttons.Update(lstUnits, lstSquadUnits); }
    void MoveRow(std::int32_t position);
    void optFilter_Click(int index);
    void lstUnits_Click();
    void lstSquadUnits_Click();
    void lstSquadUnits_Edit(int row);
    void cmdAddUnit_Click();
    void cmdShowSelUnit_Click();
    void cmdRemoveUnit_Click();
    void cmdUnitMoveUp_Click();
    void cmdUnitMoveDown_Click();

    std::int32_t UnitFilter = 0;  ///< index of the chosen filter button

    QXFrame frmSource{this, "frmSource"};
    CControlArray<QXColorButton, FilterCount> optFilter{this, "optFilter"};
    CListBox lstUnits{this, "lstUnits"};
    QXFrame frmTarget{this, "frmTarget"};
    QXEditList lstSquadUnits{this, "lstSquadUnits"};
    CUnitButtons Buttons{this};
    CControlArray<QXFrame, SideCount> frmDescr{this, "frmDescr"};
    CControlArray<QXLabel, SideCount> lblSpecialDescr{this, "lblSpecialDescr"};
};
