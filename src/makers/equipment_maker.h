#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/choice_list.h"
#include "controls/control_array.h"
#include "core/state/supp_tables.h"
#include "makers/maker.h"

class CEqList;
class CEquipment;

/// What the makers of weapons and of accessories share on top of the frame: a class out of the rule tables, area of
/// effect, targeting bonus, use limit, and the line of special properties.
class FEquipmentMaker : public FMaker {
  public:
    /// Property bits of the item by which the buttons of the use limit stand.
    struct SUseLimitBits {
        std::int32_t oneUse;
        std::int32_t recharge;
        std::int32_t reload;
    };

    FEquipmentMaker(const SMakerTerms& terms, const SUseLimitBits& bits);

  protected:
    enum UseLimits { NoLimit, Recharge, Reload, SingleUse };

    virtual CEqList& List() const = 0;
    virtual CEquipment& Equipment() const = 0;
    virtual bool Property(std::int32_t bit) const = 0;
    virtual void SetProperty(std::int32_t bit, bool on) = 0;
    /// The list of classes, which the maker has under a name of its own.
    virtual QXChoiceList& ClassList() = 0;
    /// Makes a new working item of that class.
    virtual void NewItemOfClass(const std::string& itemClass) = 0;
    /// The quick display after an edit.
    virtual void RefreshDerived() = 0;

    bool ShowSelector(FSelector& selector) override { return selector.ShowEqList(List()); }
    const std::string& DocumentFile() const override { return MGlobal::EquipmentFile(); }
    bool WriteDocument() const override;
    void cmdNew_Click() override;
    void ShowWalked() override;

    /// Offers the classes and chooses the first, which raises the list's event.
    void FillClassList(const CSuppTables::Names& classes);
    /// Load steps: nothing is limited, the radii are offered.
    void OfferLimits();

    // Parts of ShowItem.
    void ShowAreaAndTargeting();
    void ShowUseLimit();
    void ShowNewCommand();

    /// A handler that does nothing while the form writes into its own controls, and is an edit of the item otherwise.
    void Edit(const std::function<void()>& change);

    QXFrame frmAreaOfEffect{this, "frmAreaOfEffect"};
    QXLabel lblAreaOfEffect{this, "lblAreaOfEffect"};
    QXChoiceList cmbAreaOfEffect{this, "cmbAreaOfEffect"};
    QXLabel lblTargetingBonus{this, "lblTargetingBonus"};
    QXTextEdit tedTargetingBonus{this, "tedTargetingBonus"};
    QXFrame frmLimitedUse{this, "frmLimitedUse"};
    CControlArray<QXColorButton, 4> optRecharge{this, "optRecharge"};
    QXFrame frmDescr{this, "frmDescr"};
    QXLabel lblSpecialDescr{this, "lblSpecialDescr"};

  private:
    void cmbAreaOfEffect_Change();
    void tedTargetingBonus_Change();
    void optRecharge_Click(int index);

    SUseLimitBits bits_;
};
