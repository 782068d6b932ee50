#pragma once

#include <string>

#include "equipment/accessory.h"
#include "makers/equipment_maker.h"
#include "makers/maker_of.h"

/// Designs accessories. The cost that counts is what the player types; beside it stands what the fields suggest.
///
/// Neither the class nor a typed cost counts as an edit by itself: alone they are not offered for storing.
class FAccessoryMaker : public FMakerOf<CAccessory, FEquipmentMaker> {
  public:
    FAccessoryMaker();

  protected:
    void LoadItem() override;
    bool ValidateItem(bool messages) override;
    void ShowItem() override;
    void RefreshDerived() override;
    void NewItemOfClass(const std::string& itemClass) override;
    void ShowList(FArmyRoster& viewer) override;
    CEqList& List() const override;
    CEquipment& Equipment() const override { return *WorkItem; }
    bool Property(std::int32_t bit) const override { return WorkItem->AccProperty(bit); }
    void SetProperty(std::int32_t bit, bool on) override { WorkItem->SetAccProperty(bit, on); }
    QXChoiceList& ClassList() override { return cmbAccessoryType; }

  private:
    void LayOut();
    void ShowCosts();
    void ShowArmourInfo(bool visible);
    void cmbAccessoryType_Change();
    void chkIndividualArmour_Click();
    void tedPF_Change();
    void tedPointCost_Change();

    QXLabel lblAccessoryType{this, "lblAccessoryType"};
    QXChoiceList cmbAccessoryType{this, "cmbAccessoryType"};
    QXFrame frmBaseCost{this, "frmBaseCost"};
    QXLabel lblBaseCost{this, "lblBaseCost"};
    QXFrame frmEffects{this, "frmEffects"};
    QXColorButton chkIndividualArmour{this, "chkIndividualArmour"};
    QXLabel lblPF{this, "lblPF"};
    QXTextEdit tedPF{this, "tedPF"};
    QXLabel lblArmourInfo{this, "lblArmourInfo"};
};
