#pragma once

#include "core/files/document.h"
#include "equipment/eq_list.h"

/// The equipment document: the player's own weapons and accessories, kept by name. A weapon and an accessory may share
/// one.
class CArmyTables : public CDocument {
  public:
    CArmyTables() { ResetLists(); }

    CEqList& ArmyWeapons() { return weapons_; }
    const CEqList& ArmyWeapons() const { return weapons_; }
    CEqList& ArmyAccessories() { return accessories_; }
    const CEqList& ArmyAccessories() const { return accessories_; }

    /// Whether a piece of equipment stands in this document, by its name.
    bool IsEqAllowed(const CEquipment& item) const;
    bool IsEqAllowed(const CEqItem& item) const;

  protected:
    std::string_view Tag() const override { return "#ARMYTBLS"; }
    void ResetLists() final { InitLists(); }
    bool WriteLists(CProfile& profile) const override;
    bool ReadLists(CProfile& profile) override;
    bool ImportLists(CSequentialInput& file) override;

  private:
    void InitLists();

    CEqList weapons_;
    CEqList accessories_;
};
