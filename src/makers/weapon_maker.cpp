#include "makers/weapon_maker.h"

#include <array>

#include "controls/control_utils.h"
#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "equipment/army_tables.h"
#include "roster/viewers/army_roster.h"

using MFileFormat::FormatRealField;
using MNumberText::FieldInt16;
using MQXBaseGUIControlsUtils::ClearControlGroup;

namespace {

constexpr SMakerTerms kTerms = {
    .formName = "FWeaponMaker",
    .caption = "Weapon Maker",
    .word = "weapon",
    .modifyPrompt = "Select a weapon from the database:",
    .deletePrompt = "Select the weapon to remove from the database:",
    .notStored = "The current weapon data is not complete/valid, it WILL NOT be saved to the database.",
    .notStoredAtClosing = "The current weapon data is not complete/valid, it CANNOT be saved to the database.",
    .document = MGlobal::EquipmentDocument,
    .writeFailure = "Error while writing equipment tables.",
};

// Attack types exclude each other; the last option stands for none of them.
constexpr std::array kAttackTypes = {CWeapon::Flame, CWeapon::Acid, CWeapon::InhaledGas, CWeapon::AbsorbedGas};
constexpr int kStandardAttack = 4;
constexpr std::array kAttackTypeCaptions = {"Flame", "Acid", "Gas, Inhaled", "Gas, Absorbed", "Standard Attack"};

constexpr std::array kOtherEffects = {CWeapon::AutomaticFire, CWeapon::Sticky, CWeapon::ParabolicTrajectory,
                                      CWeapon::OffTableSupport, CWeapon::ReducedRange};
constexpr std::array kOtherEffectCaptions = {"Automatic Fire", "Sticky", "Parabolic Trajectory", "Off-Table Support",
                                             "Reduced Range"};

// Cost factor of a penetration category.
float PenMultiplierOf(int option) {
    return static_cast<float>(option) * 0.5F + 1.0F;
}

}  // namespace

FWeaponMaker::FWeaponMaker()
    : FMakerOf(kTerms, SUseLimitBits{CWeapon::OneUse, CWeapon::Recharge, CWeapon::NeedsReloading}) {
    lblWeaponType.SetCaption("Weapon Type:");
    frmWeaponPen.SetCaption("Penetration");
    frmAttackType.SetCaption("Type of Attack");
    frmOtherEffects.SetCaption("Other Effects");
    for (int index = 0; index < Penetrations; ++index)
        optWeaponPen[index].SetControlGroup("optWeaponPen");
    for (int index = 0; index < AttackTypes; ++index) {
        optAttackType[index].SetCaption(kAttackTypeCaptions.at(static_cast<std::size_t>(index)));
        optAttackType[index].SetControlGroup("optAttackType");
    }
    // The effects stand in the group of the attack types: choosing a type switches them off on the screen, though not
    // in the weapon. They light up again when it is shown anew.
    for (int index = 0; index < OtherEffects; ++index) {
        chkAttackType[index].SetCaption(kOtherEffectCaptions.at(static_cast<std::size_t>(index)));
        chkAttackType[index].SetControlGroup("optAttackType");
    }

    cmbWeaponType.OnChange([this] { cmbWeaponType_Change(); });
    optWeaponPen.OnClick([this](int index) { optWeaponPen_Click(index); });
    optAttackType.OnClick([this](int index) { optAttackType_Click(index); });
    chkAttackType.OnClick([this](int index) { chkAttackType_Click(index); });
    LayOut();
}

void FWeaponMaker::LayOut() {
    AddField(lblWeaponType, cmbWeaponType);

    auto* types = MLayout::Column(&frmAttackType);
    types->addWidget(&optAttackType[kStandardAttack]);
    for (int index = 0; index < kStandardAttack; ++index)
        types->addWidget(&optAttackType[index]);
    types->addStretch(1);
    auto* effects = MLayout::Column(&frmOtherEffects);
    for (int index = 0; index < OtherEffects; ++index)
        effects->addWidget(&chkAttackType[index]);
    effects->addStretch(1);
    auto* penetrations = MLayout::Row(&frmWeaponPen);
    for (int index = 0; index < Penetrations; ++index)
        penetrations->addWidget(&optWeaponPen[index], 1);

    auto* limits = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    limits->addWidget(&frmLimitedUse, 1);
    limits->addWidget(&frmWeaponPen);

    auto* work = MLayout::Grid(nullptr, MLayout::FrameGap);
    work->setVerticalSpacing(MLayout::GapAboveFrame);
    work->addWidget(&frmAttackType, 0, 0, 1, 2);
    work->addWidget(&frmOtherEffects, 0, 2, 1, 2);
    work->addLayout(limits, 0, 4, 1, 2);
    work->addWidget(&frmAreaOfEffect, 1, 0, 1, 3);
    work->addWidget(&frmDescr, 1, 3, 1, 3);
    for (int column = 0; column < 6; ++column)
        work->setColumnStretch(column, 1);
    work->setRowStretch(1, 1);
    Work().addLayout(work, 1);
    resize(1060, 620);
}

void FWeaponMaker::LoadItem() {
    FillClassList(MGlobal::SuppTables().WeaponClasses());
    cmbWeaponType.SetPromptText("Select the type of weapon:");
    OfferLimits();
}

bool FWeaponMaker::ValidateItem(bool messages) {
    CValidation check(messages);
    check.Require(!WorkItem->Name().empty(),
                  "No weapon name specified. Specify a name for the weapon before adding it to the database.");
    check.Require(!WorkItem->WeaponClass().empty(),
                  "No weapon type specified. Specify a type for the weapon before adding it to the database.");
    // Flame, acid, gas and off-table support act on an area by rule.
    bool actsOnArea = WorkItem->WeaponProperty(CWeapon::OffTableSupport);
    for (const std::int32_t type : kAttackTypes)
        actsOnArea = actsOnArea || WorkItem->WeaponProperty(type);
    check.Require(!actsOnArea || WorkItem->AreaOfEffect() != 0, "The weapon must have an area of effect.");
    return check.Valid();
}

void FWeaponMaker::ShowItem() {
    Loading = true;
    tedName.SetText(WorkItem->Name());
    tedDescr.SetText(WorkItem->Descr());
    if (!WorkItem->WeaponClass().empty()) {
        cmbWeaponType.SetText(WorkItem->WeaponClass());
        const auto categories = MGlobal::SuppTables().GetPenCategories(WorkItem->WeaponClass());
        if (categories == nullptr) return;  // and `Loading` stays on
        for (int index = 0; index < Penetrations; ++index)
            optWeaponPen[index].SetCaption(FormatRealField(MNumberText::ToReal(categories->Element(index + 1))));
    }
    SelectPenOption(WorkItem->Pen());
    for (int index = 0; index < OtherEffects; ++index)
        chkAttackType[index].SetValue(WorkItem->WeaponProperty(kOtherEffects.at(static_cast<std::size_t>(index))));
    bool standard = true;
    for (int index = 0; index < kStandardAttack; ++index) {
        const bool on = WorkItem->WeaponProperty(kAttackTypes.at(static_cast<std::size_t>(index)));
        optAttackType[index].SetValue(on);
        standard = standard && !on;
    }
    optAttackType[kStandardAttack].SetValue(standard);
    ShowAreaAndTargeting();
    ShowUseLimit();
    tedPointCost.SetText(FormatRealField(WorkItem->PointCost()));
    // A grenade is told by its name, not by its class; a new name counts from the next full display.
    const bool grenade = MAnsiText::UpperCase(WorkItem->Name()) == "GRENADE";
    optRecharge[Recharge].SetEnabled(!grenade);
    optRecharge[Reload].SetEnabled(!grenade);
    ShowNewCommand();
    lblSpecialDescr.SetCaption(WorkItem->SpecialPropertiesStr());
    Loading = false;
}

void FWeaponMaker::RefreshDerived() {
    Loading = true;
    ShowNewCommand();
    tedPointCost.SetText(FormatRealField(WorkItem->PointCost()));
    SelectPenOption(WorkItem->Pen());
    lblSpecialDescr.SetCaption(WorkItem->SpecialPropertiesStr());
    Loading = false;
}

void FWeaponMaker::SelectPenOption(std::int16_t pen) {
    const std::string text = FormatRealField(pen);
    bool found = false;
    for (int index = 0; index < Penetrations; ++index) {
        const bool matches = !found && optWeaponPen[index].Caption() == text;
        optWeaponPen[index].SetValue(matches);
        found = found || matches;
    }
}

// The lowest penetration of the class; properties, area and bonus stay.
void FWeaponMaker::TakeClass(const std::string& weaponClass) {
    WorkItem->SetWeaponClass(weaponClass);
    WorkItem->SetPenMultiplier(PenMultiplierOf(0));
    WorkItem->SetBaseCost(MGlobal::SuppTables().GetBasePointCost(weaponClass));
    const auto categories = MGlobal::SuppTables().GetPenCategories(weaponClass);
    if (categories != nullptr) WorkItem->SetPen(FieldInt16(categories->Element(1)));
}

void FWeaponMaker::NewItemOfClass(const std::string& itemClass) {
    NewWorkItem();
    TakeClass(itemClass);
}

void FWeaponMaker::ShowList(FArmyRoster& viewer) {
    viewer.ShowWeaponList(List(), "");
}

CEqList& FWeaponMaker::List() const {
    return MGlobal::ArmyTables().ArmyWeapons();
}

void FWeaponMaker::cmbWeaponType_Change() {
    if (cmbWeaponType.ListIndex() < 0 || Loading) return;
    TakeClass(cmbWeaponType.List(cmbWeaponType.ListIndex()));
    EditState = Edited;
    ShowItem();
}

void FWeaponMaker::optWeaponPen_Click(int index) {
    Edit([this, index] {
        ClearControlGroup(*this, "optWeaponPen", "optWeaponPen", index);
        WorkItem->SetPen(FieldInt16(optWeaponPen[index].Caption()));
        WorkItem->SetPenMultiplier(PenMultiplierOf(index));
    });
}

void FWeaponMaker::optAttackType_Click(int index) {
    Edit([this, index] {
        ClearControlGroup(*this, "optAttackType", "optAttackType", index);
        for (const std::int32_t type : kAttackTypes)
            WorkItem->SetWeaponProperty(type, false);
        if (index != kStandardAttack)
            WorkItem->SetWeaponProperty(kAttackTypes.at(static_cast<std::size_t>(index)), true);
    });
}

void FWeaponMaker::chkAttackType_Click(int index) {
    Edit([this, index] {
        WorkItem->SetWeaponProperty(kOtherEffects.at(static_cast<std::size_t>(index)), chkAttackType[index].Value());
    });
}
