#pragma once

#include <string>

#include "equipment/weapon.h"
#include "makers/equipment_maker.h"
#include "makers/maker_of.h"

/// Designs weapons: class, penetration, kind of attack, other effects, use limit, area and bonus, with the cost in
/// sight after each choice.
///
/// A weapon of a class that the rule tables lack shows its name and description alone. `Loading` then stays on until
/// another one is shown: nothing else can be changed, and not even these count as edits.
class FWeaponMaker : public FMakerOf<CWeapon, FEquipmentMaker> {
  public:
    FWeaponMaker();

  protected:
    void LoadItem() override;
    bool ValidateItem(bool messages) override;
    void ShowItem() override;
    void RefreshDerived() override;
    void NewItemOfClass(const std::string& itemClass) override;
    void ShowList(FArmyRoster& viewer) override;
    CEqList& List() const override;
    CEquipment& Equipment() const override { return *WorkItem; }
    bool Property(std::int32_t bit) const override { return WorkItem->WeaponProperty(bit); }
    void SetProperty(std::int32_t bit, bool on) override { WorkItem->SetWeaponProperty(bit, on); }
    QXChoiceList& ClassList() override { return cmbWeaponType; }

  private:
    static constexpr int Penetrations = 3;
    static constexpr int AttackTypes = 5;
    static constexpr int OtherEffects = 5;

    void LayOut();
    void TakeClass(const std::string& weaponClass);
    void SelectPenOption(std::int16_t pen);
    void cmbWeaponType_Change();
    void optWeaponPen_Click(int index);
    void optAttackType_Click(int index);
    void chkAttackType_Click(int index);

    QXLabel lblWeaponType{this, "lblWeaponType"};
    QXChoiceList cmbWeaponType{this, "cmbWeaponType"};
    QXFrame frmAttackType{this, "frmAttackType"};
    CControlArray<QXColorButton, AttackTypes> optAttackType{this, "optAttackType"};
    QXFrame frmOtherEffects{this, "frmOtherEffects"};
    CControlArray<QXColorButton, OtherEffects> chkAttackType{this, "chkAttackType"};
    QXFrame frmWeaponPen{this, "frmWeaponPen"};
    CControlArray<QXColorButton, Penetrations> optWeaponPen{this, "optWeaponPen"};
};
