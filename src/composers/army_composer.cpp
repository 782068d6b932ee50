#include "composers/army_composer.h"

#include <QScopedValueRollback>
#include <string>

#include "composers/unit_info.h"
#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/file_format.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "roster/viewers/army_roster.h"
#include "roster/viewers/unit_viewer.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace {

constexpr int kCommandSave = 5;

const CUnitList& ListedUnits() {
    return MGlobal::ArmyList().ArmyUnits();
}

void SetRosterModified(bool modified) {
    MGlobal::SetFileModified(MGlobal::ArmyRosterDocument, modified);
}

}  // namespace

FArmyComposer::FArmyComposer() : CForm("FArmyComposer") {
    SetCaption("Army Composer");
    lblName.SetCaption("Name:");
    lblDescr.SetCaption("Description:");
    frmPointCost.SetCaption("Point Cost");
    frmSource.SetCaption("Units in Army List");
    frmTarget.SetCaption("Units in Army");
    tedPointCost.SetDataType(2);
    tedPointCost.SetLocked(true);
    tedPointCost.SetAlignment(Qt::AlignCenter);
    OfferUnitFilters(cmbUnitType);
    OfferUnitFilters(cmbArmyUnitType);

    Menu.SetCommand(0, "Delete All Units", [this] { cmdDeleteAll_Click(); });
    Menu.SetCommand(1, "Update Costs", [this] { cmdUpdateCosts_Click(); });
    Menu.SetCommand(2, "Reload", [this] { cmdReload_Click(); });
    Menu.SetCommand(3, "View Roster", [this] { cmdViewList_Click(); });
    Menu.SetCommand(4, "Unused");
    Menu.SetCommand(kCommandSave, "Save Changes", [this] { cmdSaveChanges_Click(); });

    tedName.OnChange([this] { tedName_Change(); });
    tedDescr.OnChange([this] { tedDescr_Change(); });
    Picture.OnEdited([this] { Edited(); });
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
    auto* fields = MLayout::Grid();
    fields->addWidget(&lblName, 0, 0);
    fields->addWidget(&tedName, 0, 1, 1, 3);
    fields->addWidget(&lblDescr, 1, 0);
    fields->addWidget(&tedDescr, 1, 1, 1, 3);
    fields->addWidget(&Picture.lblPictureFile, 2, 0);
    fields->addWidget(&Picture.tedPictureFile, 2, 1);
    fields->addWidget(&Picture.cmdPictureFileSelect, 2, 2);
    fields->addWidget(&Picture.cmdPictureFileClear, 2, 3);
    fields->addWidget(&Picture.lblPictureTip, 3, 1, 1, 3);
    fields->addWidget(&Picture.imgPicture, 0, 4, 3, 1);
    fields->setColumnStretch(1, 1);
    Picture.tedPictureFile.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);  // as high as its buttons
    // The rows below stay where they are when the tip comes and goes.
    QSizePolicy tipPolicy = Picture.lblPictureTip.sizePolicy();
    tipPolicy.setRetainSizeWhenHidden(true);
    Picture.lblPictureTip.setSizePolicy(tipPolicy);

    auto* cost = MLayout::Column(&frmPointCost);
    cost->addStretch(1);
    cost->addWidget(&tedPointCost);
    cost->addStretch(1);
    frmPointCost.setFixedWidth(150);

    auto* head = MLayout::Row(nullptr, MLayout::FrameGap);
    head->addLayout(fields, 1);
    head->addWidget(&frmPointCost);

    auto* sourceButtons = MLayout::Row();
    sourceButtons->addWidget(&Buttons.cmdAddUnit, 1);
    sourceButtons->addWidget(&Buttons.cmdShowSelUnit, 1);
    auto* targetButtons = MLayout::Row();
    targetButtons->addWidget(&Buttons.cmdRemoveUnit, 1);
    for (QXColorButton* arrow : {&Buttons.cmdUnitMoveUp, &Buttons.cmdUnitMoveDown}) {
        arrow->setFixedWidth(56);
        arrow->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);  // as high as the button beside it
        targetButtons->addWidget(arrow);
    }

    auto* work = MLayout::Grid(nullptr, MLayout::FrameGap);
    work->setVerticalSpacing(MLayout::GapAboveFrame);
    const auto addSide = [&](Side side, QXFrame& frame, QXChoiceList& filter, CListBox& list, QHBoxLayout* buttons) {
        auto* column = MLayout::Column(&frame);
        column->addWidget(&filter);
        column->addWidget(&list, 1);
        column->addLayout(buttons);
        work->addWidget(&frame, 0, side);

        QXLabel& info = lblSpecialDescr[side];
        info.SetWordWrap(true);
        info.SetAlignment(Qt::AlignLeft | Qt::AlignTop);
        auto* below = MLayout::Column(&frmDescr[side]);
        below->addWidget(&info, 1);
        frmDescr[side].setMinimumHeight(150);  // room for most texts, so that the lists above seldom move
        work->addWidget(&frmDescr[side], 1, side);
        work->setColumnStretch(side, 1);
    };
    addSide(Source, frmSource, cmbUnitType, lstUnits, sourceButtons);
    addSide(Target, frmTarget, cmbArmyUnitType, lstRosterUnits, targetButtons);
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
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    Menu.ShowPictures(*GuiHandler);
    Buttons.ShowArrows();
    tedName.SetMaxLength(50);
    tedDescr.SetMaxLength(100);
    lblSpecialDescr[Source].SetFontSize(10);
    lblSpecialDescr[Target].SetFontSize(10);

    WorkItem = &MGlobal::ArmyRoster();
    Picture.Load(*WorkItem);
    UnitFilter = 0;
    RosterFilter = 0;
    ListSourceUnits();
    ShowItem();
    EditState = 0;
}

void FArmyComposer::Form_Activate() {
    Menu.cmdMenu[kCommandSave].SetEnabled(!MGlobal::ArmyRosterFile().empty());
}

bool FArmyComposer::QueryUnload() {
    if (EditState != 0) SetRosterModified(true);
    EditState = 0;
    return true;
}

void FArmyComposer::ClosingFailed() {
    SetRosterModified(true);
}

void FArmyComposer::MouseMove(IControl* control) {
    GuiHandler->FollowPointer(control);
}

void FArmyComposer::ShowItem() {
    const QScopedValueRollback loading(Loading, true);
    tedName.SetText(WorkItem->Name());
    tedDescr.SetText(WorkItem->Descr());
    tedPointCost.SetText(MFileFormat::FormatRealField(WorkItem->PointCost()));
    Picture.ShowItem();
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

void FArmyComposer::Edited() {
    if (!Loading) EditState = 1;
}

void FArmyComposer::RosterChanged(std::int16_t editState) {
    SetRosterModified(true);
    EditState = editState;
}

void FArmyComposer::tedName_Change() {
    WorkItem->SetName(tedName.Text());
    Edited();
}

void FArmyComposer::tedDescr_Change() {
    WorkItem->SetDescr(tedDescr.Text());
    Edited();
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
        RosterChanged(2);
    }
    ShowItem();
}

void FArmyComposer::cmdShowSelUnit_Click() {
    if (lstUnits.ListIndex() < 0) return;
    FUnitViewer viewer;
    viewer.Load();
    viewer.ShowUnit(ListedUnits().Item(lstUnits.Text()), 0);
    viewer.ShowModal(this);
}

void FArmyComposer::cmdRemoveUnit_Click() {
    if (lstRosterUnits.ListIndex() >= 0) {
        WorkItem->Remove(lstRosterUnits.ListIndex() + 1);
        RosterChanged(2);
    }
    ShowItem();
}

void FArmyComposer::cmdUnitMoveUp_Click() {
    if (!lstRosterUnits.CanMoveUp()) return;
    const int row = lstRosterUnits.ListIndex();
    MoveRow(row, WorkItem->ArmyUnits().ShiftObjUp(row + 1));
}

void FArmyComposer::cmdUnitMoveDown_Click() {
    if (!lstRosterUnits.CanMoveDown()) return;
    const int row = lstRosterUnits.ListIndex();
    MoveRow(row, WorkItem->ArmyUnits().ShiftObjDown(row + 1));
}

// The list follows a shift that has put the entry at `position`; 0 is a shift that moved nothing.
void FArmyComposer::MoveRow(int row, std::int32_t position) {
    if (position > 0) {
        const std::string name = lstRosterUnits.List(row);
        lstRosterUnits.RemoveItem(row);
        lstRosterUnits.AddItem(name, position - 1);
        lstRosterUnits.SetListIndex(position - 1);
        RosterChanged(1);
    }
    UpdateUnitButtons();
}

void FArmyComposer::cmdDeleteAll_Click() {
    if (!MPlatform::Ask("Are you sure you want to remove all the units from the army?")) return;
    WorkItem->ArmyUnits().Clear();
    RosterChanged(1);
    ShowItem();
}

void FArmyComposer::cmdUpdateCosts_Click() {
    const std::string missing = MGlobal::SyncRosterWithArmyList();
    if (!missing.empty()) {
        MPlatform::ShowWarning("It was not possible to find the following units in the Army List:" +
                               MAnsiText::ToUtf8(missing));
    }
    lblSpecialDescr[Target].SetCaption("");
    ShowItem();
    RosterChanged(2);
    MPlatform::ShowInformation("Recalculation complete.");
}

void FArmyComposer::cmdReload_Click() {
    const std::string& file = MGlobal::ArmyRosterFile();
    if (file.empty()) {
        MPlatform::ShowCritical("No army roster file selected.");
    } else {
        const BoxAnswer answer = MPlatform::Current().ShowBox(
            BoxKind::Question, BoxButtons::OkCancel,
            "Are you sure you want to reload the Army Roster? All changes since the last save will be lost!");
        if (answer == BoxAnswer::Cancel) return;
        if (MGlobal::FileExists(file) < 1) {
            MPlatform::ShowWarning("File \"" + file + "\" does not exits.");
        } else if (!WorkItem->ReadInfo(file)) {
            MPlatform::ShowWarning("Error while reading army roster.");
        }
    }
    ShowItem();
    EditState = 0;
    SetRosterModified(false);
}

void FArmyComposer::cmdViewList_Click() {
    FArmyRoster viewer;
    viewer.Load();
    viewer.ShowArmyRoster(*WorkItem);
    viewer.ShowModal(this);
}

void FArmyComposer::cmdSaveChanges_Click() {
    if (MPlatform::Ask("Save changes to file?") && !WorkItem->WriteInfo(MGlobal::ArmyRosterFile())) {
        MPlatform::ShowWarning("Error while saving army roster.");
    }
    SetRosterModified(false);
    EditState = 0;
}
