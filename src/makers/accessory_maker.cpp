#include "makers/accessory_maker.h"

#include <QScopedValueRollback>

#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "equipment/army_tables.h"
#include "roster/viewers/army_roster.h"

using MFileFormat::FormatRealField;
using MNumberText::FieldInt16;

namespace {

constexpr SMakerTerms kTerms = {
    .formName = "FAccessoryMaker",
    .caption = "Accessory Maker",
    .word = "accessory",
    .modifyPrompt = "Select a accessory from the database:",
    .deletePrompt = "Select the accessory to remove from the database:",
    .notStored = "The current accessory data is not complete/valid, it CANNOT be saved to the database.",
    .notStoredAtClosing = "The current accessory data is not complete/valid, it CANNOT be saved to the database.",
    .document = MGlobal::EquipmentDocument,
    .writeFailure = "Error while writing equipment tables.",
};

// A number field isn't left empty.
void FillWithZero(QXTextEdit& field) {
    field.OnLeave([&field] {
        if (field.Text().empty()) field.SetText("0");
    });
}

}  // namespace

FAccessoryMaker::FAccessoryMaker()
    : FMakerOf(kTerms, SUseLimitBits{CAccessory::OneUse, CAccessory::Recharge, CAccessory::NeedsReloading}) {
    lblAccessoryType.SetCaption("Type:");
    frmBaseCost.SetCaption("Suggested Cost");
    lblBaseCost.SetCaption("0");
    lblBaseCost.SetAlignment(Qt::AlignCenter);
    frmEffects.SetCaption("Properties:");
    chkIndividualArmour.SetCaption("Individual Armour");
    lblPF.SetCaption("PF:");
    tedPF.SetAlignment(Qt::AlignCenter);
    tedPF.SetDataType(1);
    tedPF.SetMaxLength(1);
    tedPF.SetText("0");
    tedPF.SetAutoSelect(true);
    lblArmourInfo.SetWordWrap(true);
    tedPointCost.SetLocked(false);
    tedPointCost.SetAutoSelect(true);

    cmbAccessoryType.OnChange([this] { cmbAccessoryType_Change(); });
    chkIndividualArmour.OnClick([this] { chkIndividualArmour_Click(); });
    tedPF.OnChange([this] { tedPF_Change(); });
    tedPointCost.OnChange([this] { tedPointCost_Change(); });
    for (QXTextEdit* field : {&tedTargetingBonus, &tedPF, &tedPointCost})
        FillWithZero(*field);
    LayOut();
}

void FAccessoryMaker::LayOut() {
    AddField(lblAccessoryType, cmbAccessoryType);
    MLayout::Column(&frmBaseCost)->addWidget(&lblBaseCost, 1);
    AddToHead(frmBaseCost);

    auto* properties = MLayout::Grid(&frmEffects);
    properties->addWidget(&chkIndividualArmour, 0, 0, 1, 2);
    properties->addWidget(&lblPF, 1, 0);
    properties->addWidget(&tedPF, 1, 1);
    properties->addWidget(&lblArmourInfo, 2, 0, 1, 2);
    properties->setColumnStretch(0, 1);
    properties->setRowStretch(2, 1);
    tedPF.setFixedWidth(cmbAreaOfEffect.minimumWidth());
    // The frames stay as they are when the text comes and goes.
    QSizePolicy infoPolicy = lblArmourInfo.sizePolicy();
    infoPolicy.setRetainSizeWhenHidden(true);
    lblArmourInfo.setSizePolicy(infoPolicy);

    auto* work = MLayout::Grid(nullptr, MLayout::FrameGap);
    work->setVerticalSpacing(MLayout::GapAboveFrame);
    work->addWidget(&frmEffects, 0, 0);
    work->addWidget(&frmLimitedUse, 0, 1);
    work->addWidget(&frmAreaOfEffect, 1, 0);
    work->addWidget(&frmDescr, 1, 1);
    work->setColumnStretch(0, 1);
    work->setColumnStretch(1, 1);
    work->setRowStretch(1, 1);
    Work().addLayout(work, 1);
    resize(1060, 560);
}

void FAccessoryMaker::LoadItem() {
    FillClassList(MGlobal::SuppTables().AccessoryClasses());
    cmbAccessoryType.SetPromptText("This item is available for: ");
    lblArmourInfo.SetFontSize(10);
    OfferLimits();
    RefreshDerived();
}

bool FAccessoryMaker::ValidateItem(bool messages) {
    CValidation check(messages);
    check.Require(!WorkItem->Name().empty(),
                  "No accessory name specified. Specify a name for the accessory before adding it to the database.");
    check.Require(!WorkItem->AccClass().empty(),
                  "No accessory type specified. Specify a type for the accessory before adding it to the database.");
    return check.Valid();
}

void FAccessoryMaker::ShowItem() {
    const QScopedValueRollback loading(Loading, true);
    tedName.SetText(WorkItem->Name());
    tedDescr.SetText(WorkItem->Descr());
    if (!WorkItem->AccClass().empty()) cmbAccessoryType.SetText(WorkItem->AccClass());
    chkIndividualArmour.SetValue(WorkItem->AccProperty(CAccessory::IndividualArmour));
    tedPF.SetText(FormatRealField(WorkItem->PF()));
    ShowArmourInfo(WorkItem->PF() > 0);
    ShowAreaAndTargeting();
    ShowUseLimit();
    ShowCosts();
    ShowNewCommand();
    lblSpecialDescr.SetCaption(WorkItem->SpecialPropertiesStr());
}

void FAccessoryMaker::RefreshDerived() {
    const QScopedValueRollback loading(Loading, true);
    ShowNewCommand();
    ShowCosts();
    ShowArmourInfo(WorkItem->PF() > 0 && !tedPF.Text().empty());
    lblSpecialDescr.SetCaption(WorkItem->SpecialPropertiesStr());
}

void FAccessoryMaker::ShowCosts() {
    tedPointCost.SetText(FormatRealField(WorkItem->PointCost()));
    lblBaseCost.SetCaption(FormatRealField(WorkItem->BaseCost()));
}

void FAccessoryMaker::ShowArmourInfo(bool visible) {
    lblArmourInfo.SetVisible(visible);
    if (WorkItem->PF() <= 0) return;
    lblArmourInfo.SetCaption(WorkItem->AccProperty(CAccessory::IndividualArmour)
                                 ? "The cost of the armour will be added to the cost of the model"
                                 : "The cost of the armour should be calculated at PF x 5pts ");
}

void FAccessoryMaker::NewItemOfClass(const std::string& itemClass) {
    NewWorkItem();
    WorkItem->SetAccClass(itemClass);
}

void FAccessoryMaker::ShowList(FArmyRoster& viewer) {
    viewer.ShowAccessoryList(List(), "");
}

CEqList& FAccessoryMaker::List() const {
    return MGlobal::ArmyTables().ArmyAccessories();
}

void FAccessoryMaker::cmbAccessoryType_Change() {
    if (cmbAccessoryType.ListIndex() < 0 || Loading) return;
    WorkItem->SetAccClass(cmbAccessoryType.List(cmbAccessoryType.ListIndex()));
    ShowItem();
}

void FAccessoryMaker::chkIndividualArmour_Click() {
    Edit([this] { WorkItem->SetAccProperty(CAccessory::IndividualArmour, chkIndividualArmour.Value()); });
}

// Emptying the field takes the cost to 0 and leaves the value: the next number, or leaving, sets it.
void FAccessoryMaker::tedPF_Change() {
    Edit([this] {
        if (tedPF.Text().empty()) {
            WorkItem->SetPointCost(0);
        } else {
            WorkItem->SetPF(FieldInt16(tedPF.Text()));
        }
    });
}

void FAccessoryMaker::tedPointCost_Change() {
    WorkItem->SetPointCost(MNumberText::ToReal(tedPointCost.Text()));
}
