#pragma once

#include <string>

#include "controls/control_array.h"
#include "controls/img_button.h"
#include "controls/list_box.h"
#include "controls/picture_box.h"
#include "makers/maker_of.h"
#include "makers/unit_list_maker.h"
#include "units/unit.h"

/// Designs single units: type, stats, special properties, and what they carry of the equipment that their class may
/// have, with the equipped cost in sight after each step.
class FUnitMaker : public FMakerOf<CUnit, FUnitListMaker> {
  public:
    FUnitMaker();

  protected:
    void LoadItem() override;
    bool ValidateItem(bool messages) override;
    void ShowItem() override;
    void ShowModified() override { ShowWithSource(); }
    void ShowWalked() override { ShowWithSource(); }
    void cmdNew_Click() override;
    CUnitList& List() const override { return ArmyUnits(); }

  private:
    enum Filters { Weapons, Accessories, FilterCount };
    enum Descriptions { Source, Target, Specials, DescriptionCount };

    void LayOut();
    void ResetWorkUnit();
    void ShowWithSource();
    void ShowStats();
    void UpdateItemButtons();
    void RefreshSourceList();
    void FillAllowedWeapons();
    void FillAllowedAccessories();
    void FillAllowed(const CEqList& list);
    std::string SourceFacts() const;
    std::string TargetFacts() const;
    void MoveRow(std::int32_t position);
    void optUnit_Click(int index);
    void optFilter_Click(int index);
    void tedStat_Change(int index);
    void tedStat_LostFocus(int index);
    void lstEquipment_Click();
    void lstUnitEquipment_Click();
    void cmdAddItem_Click();
    void cmdRemoveItem_Click();
    void cmdItemMoveUp_Click();
    void cmdItemMoveDown_Click();
    void cmdSpecialProps_Click();

    Colour StatForeColor = 0;  ///< of a stat that carries no warning

    CPictureBox imgUnit{this, "imgUnit"};
    CControlArray<QXImgButton, CUnit::TypeCount> optUnit{this, "optUnit"};
    CControlArray<QXLabel, CUnit::StatCount> lblStat{this, "lblStat"};
    CControlArray<QXTextEdit, CUnit::StatCount> tedStat{this, "tedStat"};
    QXFrame frmSource{this, "frmSource"};
    CControlArray<QXColorButton, FilterCount> optFilter{this, "optFilter"};
    CListBox lstEquipment{this, "lstEquipment"};
    QXColorButton cmdAddItem{this, "cmdAddItem"};
    QXFrame frmTarget{this, "frmTarget"};
    CListBox lstUnitEquipment{this, "lstUnitEquipment"};
    QXColorButton cmdRemoveItem{this, "cmdRemoveItem"};
    QXColorButton cmdItemMoveUp{this, "cmdItemMoveUp"};
    QXColorButton cmdItemMoveDown{this, "cmdItemMoveDown"};
    CControlArray<QXFrame, DescriptionCount> frmDescr{this, "frmDescr"};
    CControlArray<QXLabel, DescriptionCount> lblSpecialDescr{this, "lblSpecialDescr"};
    QXColorButton cmdSpecialProps{this, "cmdSpecialProps"};
};
