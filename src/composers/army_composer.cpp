#include "composers/army_composer.h"

#include <QScopedValueRollback>
#include <string>

#include "composers/unit_controls.h"
#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "roster/viewers/army_roster.h"
#include "shell/look/point_cost.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace {

constexpr SArmyDocumentTerms kTerms = {
    .formName = "FArmyComposer",
    .caption = "Army Composer",
    .pictureTip = "The image will be shown full size on the army roster viewer",
    .viewCaption = "View Roster",
    .index = MGlobal::ArmyRosterDocument,
    .file = &MGlobal::ArmyRosterFile,
    .updateCosts = &MGlobal::SyncRosterWithArmyList,
    .missingHeading = MGlobal::kUnitsNotFound,
    .deleteQuestion = "Are you sure you want to remove all the units from the army?",
    .reloadQuestion = "Are you sure you want to reload the Army Roster? All changes since the last save will be lost!",
    .readFailure = "Error while reading army roster.",
};

}  // namespace

FArmyComposer::FArmyComposer()
    : FArmyDocumentForm(kTerms),
      Picker(this, "lstRosterUnits",
             {.source = []() -> const CUnitList& { return MGlobal::ArmyList().ArmyUnits(); },
              .target = [this]() -> CUnitList& { return WorkItem->ArmyUnits(); },
              .add =
                  [this](std::shared_ptr<CGenUnit> unit) {
                      WorkItem->Add(std::move(unit));
                      ContentChanged(2);
                  },
              .remove =
                  [this](std::int32_t position) {
                      WorkItem->Remove(position);
                      ContentChanged(2);
                  },
              .moved = [this] { ContentChanged(1); },
              .showItem = [this] { ShowItem(); }}) {
    Picker.frmTarget.SetCaption("Units in Army");
    OfferUnitFilters(cmbUnitType);
    OfferUnitFilters(cmbArmyUnitType);
    cmbUnitType.OnChange([this] { cmbUnitType_Change(); });
    cmbArmyUnitType.OnChange([this] { cmbArmyUnitType_Change(); });
    LayOut();
}

void FArmyComposer::LayOut() {
    SetUpPointCost(frmPointCost, tedPointCost);

    auto* head = MLayout::Row(nullptr, MLayout::FrameGap);
    head->addLayout(LayOutFields(), 1);
    head->addWidget(&frmPointCost);

    auto* right = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    right->addLayout(head);
    right->addLayout(Picker.LayOut(), 1);
    Picker.Column(Picker.Source).insertWidget(0, &cmbUnitType);
    Picker.Column(Picker.Target).insertWidget(0, &cmbArmyUnitType);
    LayOutBesideMenu(right);
    resize(1060, 740);
}

void FArmyComposer::Form_Load() {
    WorkItem = &MGlobal::ArmyRoster();
    FArmyDocumentForm::Form_Load();
    Picker.ShowArrows();
    for (const auto side : {Picker.Source, Picker.Target})
        Picker.lblSpecialDescr[side].SetFontSize(10);
    UnitFilter = 0;
    RosterFilter = 0;
    ListSourceUnits();
    ShowItem();
    EditState = 0;
}

CArmyDocument& FArmyComposer::Document() const {
    return *WorkItem;
}

void FArmyComposer::ShowItem() {
    const QScopedValueRollback loading(Loading, true);
    ShowFields();
    tedPointCost.SetText(MFileFormat::FormatRealField(WorkItem->PointCost()));
    ListRosterUnits();
    UpdateCaption();
}

void FArmyComposer::UpdateCaption() {
    Picker.frmTarget.SetCaption("Units in Army: " + std::to_string(WorkItem->ArmyUnits().Count()));
}

void FArmyComposer::ListSourceUnits() {
    Picker.RefreshSourceList(UnitFilter);
}

void FArmyComposer::ListRosterUnits() {
    ListUnits(Picker.lstTarget, WorkItem->ArmyUnits(), RosterFilter);
    Picker.TargetFilled();
}

void FArmyComposer::ContentChanged(std::int16_t editState) {
    SetModified(true);
    FArmyDocumentForm::ContentChanged(editState);
}

void FArmyComposer::Reloaded() {
    EditState = 0;
    SetModified(false);
}

void FArmyComposer::cmbUnitType_Change() {
    UnitFilter = cmbUnitType.ListIndex();
    ListSourceUnits();
    Picker.lstUnits.scrollToTop();
}

void FArmyComposer::cmbArmyUnitType_Change() {
    RosterFilter = cmbArmyUnitType.ListIndex();
    ListRosterUnits();
    Picker.lstTarget.scrollToTop();
}

void FArmyComposer::ShowPage(FArmyRoster& viewer) {
    viewer.ShowArmyRoster(*WorkItem);
}

void FArmyComposer::cmdSaveChanges_Click() {
    if (MPlatform::Ask("Save changes to file?")) SaveDocument("Error while saving army roster.");
    SetModified(false);  // comes back at closing, where the list still waits to be saved
    EditState = 0;
}
