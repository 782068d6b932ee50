#include "composers/army_composer.h"

#include <QScopedValueRollback>
#include <string>

#include "composers/unit_info.h"
#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "roster/viewers/army_roster.h"
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
    .reloadQuestion = "Are you sure you want to reload the Army Roster? All changes since the last save will be lost!",
    .readFailure = "Error while reading army roster.",
};

const CUnitList& ListedUnits() {
    return MGlobal::ArmyList().ArmyUnits();
}

}  // namespace

FArmyComposer::FArmyComposer() : FArmyDocumentForm(kTerms) {
    frmPointCost.SetCaption("Point Cost");
    frmSource.SetCaption("Units in Army List");
    frmTarget.SetCaption("Units in Army");
    tedPointCost.SetDataType(2);
    tedPointCost.SetLocked(true);
    tedPointCost.SetAlignment(Qt::AlignCenter);
    OfferUnitFilters(cmbUnitType);
    OfferUnitFilters(cmbArmyUnitType);

    cmbUnitType.OnChange([this] { cmbUnitType_Change(); });
    cmbArmyUnitType.OnChange([this] { cmbArmyUnitType_Change(); });
    lstUnits.OnClick([this] { lstUnits_Click(); });
    lstUnits.OnDblClick([this] { cmdAddUnit_Click(); });
    lstRosterUnits.OnClick([this] { lstRosterUnits_Click(); });
    lstRosterUnits.OnDblClick([this] { cmdRemoveUnit_Click(); });
    Buttons.cmdAddUnit.OnClick([this] { cmdAddUnit_Click(); });
    Buttons.cmdShowSelUnit.OnClick([this] { cmdShowSelUnit_Click(); });
    Buttons.cmdRemoveUnit.OnClick([this] { cmdRemoveUnit_Click(); });
    Buttons.cmdUnitMoveUp.OnClick([this] { cmdUnitMoveUp_Click(); });
    Buttons.cmdUnitMoveDown.OnClick([this] { cmdUnitMoveDown_Click(); });

    LayOut();
}

void FArmyComposer::LayOut() {
    auto* cost = MLayout::Column(&frmPointCost);
    cost->addStretch(1);
    cost->addWidget(&tedPointCost);
    cost->addStretch(1);
    frmPointCost.setFixedWidth(150);

    auto* head = MLayout::Row(nullptr, MLayout::FrameGap);
    head->addLayout(LayOutFields(), 1);
    head->addWidget(&frmPointCost);

    auto* work = MLayout::Grid(nullptr, MLayout::FrameGap);
    work->setVerticalSpacing(MLayout::GapAboveFrame);
    const auto addSide = [&](Side side, QXFrame& frame, QXChoiceList& filter, CListBox& list, QHBoxLayout* buttons) {
        auto* column = MLayout::Column(&frame);
        column->addWidget(&filter);
        column->addWidget(&list, 1);
        column->addLayout(buttons);
        work->addWidget(&frame, 0, side);

        LayOutUnitInfo(frmDescr[side], lblSpecialDescr[side]);
        work->addWidget(&frmDescr[side], 1, side);
        work->setColumnStretch(side, 1);
    };
    addSide(Source, frmSource, cmbUnitType, lstUnits, Buttons.LayOutSource());
    addSide(Target, frmTarget, cmbArmyUnitType, lstRosterUnits, Buttons.LayOutTarget());
    work->setRowStretch(0, 1);

    auto* right = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    right->addLayout(head);
    right->addLayout(work, 1);
    auto* form = MLayout::WithFormMargins(MLayout::Row(this, MLayout::FrameGap));
    form->addWidget(&Menu.frmMenu);
    form->addLayout(right, 1);
    resize(1060, 740);
}

void FArmyComposer::Form_Load() {
    WorkItem = &MGlobal::ArmyRoster();
    FArmyDocumentForm::Form_Load();
    Buttons.ShowArrows();
    lblSpecialDescr[Source].SetFontSize(10);
    lblSpecialDescr[Target].SetFontSize(10);
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
    frmTarget.SetCaption("Units in Army: " + std::to_string(WorkItem->ArmyUnits().Count()));
}

void FArmyComposer::ListSourceUnits() {
    ListUnits(lstUnits, ListedUnits(), UnitFilter);
    lblSpecialDescr[Source].SetCaption("");
    UpdateUnitButtons();
}

void FArmyComposer::ListRosterUnits() {
    ListUnits(lstRosterUnits, WorkItem->ArmyUnits(), RosterFilter);
    lblSpecialDescr[Target].SetCaption("");
    UpdateUnitButtons();
}

void FArmyComposer::ContentChanged(std::int16_t editState) {
    SetModified(true);
    EditState = editState;
}

void FArmyComposer::Reloaded() {
    EditState = 0;
    SetModified(false);
}

void FArmyComposer::cmbUnitType_Change() {
    UnitFilter = cmbUnitType.ListIndex();
    ListSourceUnits();
}

void FArmyComposer::cmbArmyUnitType_Change() {
    RosterFilter = cmbArmyUnitType.ListIndex();
    ListRosterUnits();
}

void FArmyComposer::lstUnits_Click() {
    if (lstUnits.ListIndex() >= 0) {
        lblSpecialDescr[Source].SetCaption(MUnitInfo::Text(ListedUnits(), lstUnits.Text()));
    }
    UpdateUnitButtons();
}

void FArmyComposer::lstRosterUnits_Click() {
    if (lstRosterUnits.ListIndex() >= 0) {
        lblSpecialDescr[Target].SetCaption(MUnitInfo::TextIfKnown(ListedUnits(), lstRosterUnits.Text()));
    }
    UpdateUnitButtons();
}

void FArmyComposer::cmdAddUnit_Click() {
    if (lstUnits.ListIndex() >= 0) {
        WorkItem->Add(CopyUnit(ListedUnits(), lstUnits.Text()));
        ContentChanged(2);
    }
    ShowItem();
}

void FArmyComposer::cmdShowSelUnit_Click() {
    if (lstUnits.ListIndex() >= 0) ViewUnit(*this, ListedUnits(), lstUnits.Text());
}

void FArmyComposer::cmdRemoveUnit_Click() {
    if (lstRosterUnits.ListIndex() >= 0) {
        WorkItem->Remove(lstRosterUnits.ListIndex() + 1);
        ContentChanged(2);
    }
    ShowItem();
}

void FArmyComposer::cmdUnitMoveUp_Click() {
    if (lstRosterUnits.CanMoveUp()) MoveRow(WorkItem->ArmyUnits().ShiftObjUp(lstRosterUnits.ListIndex() + 1));
}

void FArmyComposer::cmdUnitMoveDown_Click() {
    if (lstRosterUnits.CanMoveDown()) MoveRow(WorkItem->ArmyUnits().ShiftObjDown(lstRosterUnits.ListIndex() + 1));
}

// The list follows a shift that has put the entry at `position`; 0 is a shift that moved nothing.
void FArmyComposer::MoveRow(std::int32_t position) {
    if (position > 0) {
        lstRosterUnits.MoveItem(lstRosterUnits.ListIndex(), position - 1);
        ContentChanged(1);
    }
    UpdateUnitButtons();
}

void FArmyComposer::ShowPage(FArmyRoster& viewer) {
    viewer.ShowArmyRoster(*WorkItem);
}

void FArmyComposer::cmdSaveChanges_Click() {
    if (MPlatform::Ask("Save changes to file?") && !WorkItem->WriteInfo(MGlobal::ArmyRosterFile())) {
        MPlatform::ShowWarning("Error while saving army roster.");
    }
    SetModified(false);
    EditState = 0;
}
