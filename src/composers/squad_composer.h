#pragma once

#include "composers/unit_picker.h"
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
    bool QueryUnload() override;
    bool ValidateItem(bool messages) override;
    void ShowItem() override;
    void ShowModified() override;
    void ShowWalked() override;
    void cmdNew_Click() override;
    CUnitList& List() const override { return ArmyUnits(); }

  private:
    static constexpr int FilterCount = 3;

    void LayOut();
    void RefreshSourceList();
    void optFilter_Click(int index);
    void lstSquadUnits_Edit(int row);

    std::int32_t UnitFilter = 0;  ///< index of the chosen filter button

    CControlArray<QXColorButton, FilterCount> optFilter{this, "optFilter"};
    CUnitPicker<QXEditList> Picker;
};
