#include "makers/equipment_maker.h"

#include "controls/control_utils.h"
#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "equipment/army_tables.h"

using MFileFormat::FormatRealField;
using MNumberText::FieldInt16;

FEquipmentMaker::FEquipmentMaker(const SMakerTerms& terms, const SUseLimitBits& bits) : FMaker(terms), bits_(bits) {
    frmAreaOfEffect.SetCaption("Area of Effect");
    lblAreaOfEffect.SetCaption("Radius of Area of Effect (in cm):");
    lblTargetingBonus.SetCaption("Targeting Bonus:");
    tedTargetingBonus.SetAlignment(Qt::AlignCenter);
    tedTargetingBonus.SetDataType(1);
    tedTargetingBonus.SetAllowedKeys("0123456789.");
    tedTargetingBonus.SetMaxLength(1);
    tedTargetingBonus.SetText("0");
    tedTargetingBonus.SetAutoSelect(true);
    frmLimitedUse.SetCaption("Use Limit");
    constexpr const char* kLimits[] = {"None", "Recharge", "Reload", "Single Use"};
    for (int index = 0; index < optRecharge.Size(); ++index) {
        optRecharge[index].SetCaption(kLimits[index]);
        optRecharge[index].SetControlGroup("optRecharge");
    }

    cmbAreaOfEffect.OnChange([this] { cmbAreaOfEffect_Change(); });
    tedTargetingBonus.OnChange([this] { tedTargetingBonus_Change(); });
    optRecharge.OnClick([this](int index) { optRecharge_Click(index); });

    auto* limits = MLayout::Grid(&frmLimitedUse);
    limits->addWidget(&optRecharge[NoLimit], 0, 0, 1, 2);
    limits->addWidget(&optRecharge[Recharge], 1, 0);
    limits->addWidget(&optRecharge[Reload], 1, 1);
    limits->addWidget(&optRecharge[SingleUse], 2, 0, 1, 2);
    limits->setRowStretch(3, 1);

    constexpr int kFieldWidth = 80;
    auto* area = MLayout::Grid(&frmAreaOfEffect);
    area->addWidget(&lblAreaOfEffect, 0, 0);
    area->addWidget(&cmbAreaOfEffect, 0, 1);
    area->addWidget(&lblTargetingBonus, 1, 0);
    area->addWidget(&tedTargetingBonus, 1, 1);
    area->setColumnStretch(0, 1);
    area->setRowStretch(2, 1);
    cmbAreaOfEffect.setFixedWidth(kFieldWidth);
    tedTargetingBonus.setFixedWidth(kFieldWidth);

    MLayout::TextInFrame(frmDescr, lblSpecialDescr);
}

bool FEquipmentMaker::WriteDocument() const {
    return MGlobal::ArmyTables().WriteInfo(DocumentFile());
}

void FEquipmentMaker::cmdNew_Click() {
    StoreIfEdited();
    NewItemOfClass(ClassList().List(ClassList().ListIndex()));
    SourceName.clear();
    ShowItem();
}

void FEquipmentMaker::ShowWalked() {
    RefreshDerived();
    ShowItem();
}

void FEquipmentMaker::FillClassList(const CSuppTables::Names& classes) {
    ClassList().Clear();
    for (const std::string& name : classes)
        ClassList().AddItem(name);
    if (ClassList().ListCount() > 0) ClassList().SetListIndex(0);
}

void FEquipmentMaker::OfferLimits() {
    optRecharge[NoLimit].SetValue(true);
    for (const char* radius : {"0", "3", "6", "9", "12", "15"})
        cmbAreaOfEffect.AddItem(radius);
    cmbAreaOfEffect.SetText("0");
}

void FEquipmentMaker::ShowAreaAndTargeting() {
    tedTargetingBonus.SetText(FormatRealField(Equipment().TargetingBonus()));
    cmbAreaOfEffect.SetText(FormatRealField(Equipment().AreaOfEffect()));
}

void FEquipmentMaker::ShowUseLimit() {
    const bool oneUse = Property(bits_.oneUse);
    const bool recharge = Property(bits_.recharge);
    const bool reload = Property(bits_.reload);
    optRecharge[NoLimit].SetValue(!oneUse && !recharge && !reload);
    optRecharge[SingleUse].SetValue(oneUse);
    optRecharge[Recharge].SetValue(recharge);
    optRecharge[Reload].SetValue(reload);
}

void FEquipmentMaker::ShowNewCommand() {
    Menu.cmdMenu[New].SetEnabled(ClassList().ListIndex() >= 0);
}

void FEquipmentMaker::Edit(const std::function<void()>& change) {
    if (Loading) return;
    change();
    RefreshDerived();
    EditState = Edited;
}

void FEquipmentMaker::cmbAreaOfEffect_Change() {
    Edit([this] { Equipment().SetAreaOfEffect(FieldInt16(cmbAreaOfEffect.Text())); });
}

void FEquipmentMaker::tedTargetingBonus_Change() {
    Edit([this] { Equipment().SetTargetingBonus(FieldInt16(tedTargetingBonus.Text())); });
}

void FEquipmentMaker::optRecharge_Click(int index) {
    Edit([this, index] {
        MQXBaseGUIControlsUtils::ClearControlGroup(*this, "optRecharge", "optRecharge", index);
        SetProperty(bits_.oneUse, optRecharge[SingleUse].Value());
        SetProperty(bits_.recharge, optRecharge[Recharge].Value());
        SetProperty(bits_.reload, optRecharge[Reload].Value());
    });
}
