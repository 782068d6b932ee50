#include "composers/squad_composer.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <string>

#include "composers/unit_filter.h"
#include "composers/unit_info.h"
#include "controls/control_utils.h"
#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/number_text.h"

FSquadComposer::FSquadComposer() : FMakerOf(UnitTerms("FSquadComposer", "Squad Composer", 0), CGenUnit::Squad) {
    frmSource.SetCaption("Units in Army List");
    frmTarget.SetCaption("Units in Squad");
    for (int index = 0; index < optFilter.Size(); ++index) {
        optFilter[index].SetCaption(MUnitFilter::kNames.at(static_cast<std::size_t>(MUnitFilter::Infantry + index)));
        optFilter[index].SetControlGroup("optFilter");
    }

    optFilter.OnClick([this](int index) { optFilter_Click(index); });
    lstUnits.OnClick([this] { lstUnits_Click(); });
    lstUnits.OnDblClick([this] { cmdAddUnit_Click(); });
    lstSquadUnits.OnClick([this] { lstSquadUnits_Click(); });
    lstSquadUnits.OnDblClick([this] { cmdRemoveUnit_Click(); });
    lstSquadUnits.OnEdit([this](int row) { lstSquadUnits_Edit(row); });
    Buttons.cmdAddUnit.OnClick([this] { cmdAddUnit_Click(); });
    Buttons.cmdShowSelUnit.OnClick([this] { cmdShowSelUnit_Click(); });
    Buttons.cmdRemoveUnit.OnClick([this] { cmdRemoveUnit_Click(); });
    Buttons.cmdUnitMoveUp.OnClick([this] { cmdUnitMoveUp_Click(); });
    Buttons.cmdUnitMoveDown.OnClick([this] { cmdUnitMoveDown_Click(); });
    LayOut();
}

void FSquadComposer::LayOut() {
    auto* filters = MLayout::Row();
    for (int index = 0; index < optFilter.Size(); ++index)
        filters->addWidget(&optFilter[index], 1);
    auto* source = MLayout::Column(&frmSource);
    source->addLayout(filters);
    source->addWidget(&lstUnits, 1);
    source->addLayout(Buttons.LayOutSource());
    auto* target = MLayout::Column(&frmTarget);
    target->addWidget(&lstSquadUnits, 1);
    target->addLayout(Buttons.LayOutTarget());

    auto* work = MLayout::Grid(nullptr, MLayout::FrameGap);
    work->setVerticalSpacing(MLayout::GapAboveFrame);
    work->addWidget(&frmSource, 0, Source);
    work->addWidget(&frmTarget, 0, Target);
    for (const int side : {Source, Target}) {
        LayOutUnitInfo(frmDescr[side], lblSpecialDescr[side]);
        work->addWidget(&frmDescr[side], 1, side);
        work->setColumnStretch(side, 1);
    }
    work->setRowStretch(0, 1);
    Work().addLayout(work, 1);
    resize(1060, 740);
}

void FSquadComposer::LoadItem() {
    Buttons.ShowArrows();
    optFilter[0].SetValue(true);
    UnitFilter = 0;
    RefreshSourceList();
    ShowItem();
}

bool FSquadComposer::ValidateItem(bool messages) {
    CValidation check(messages);
    check.Require(!WorkItem->Name().empty(), kNoUnitName);
    return check.Valid();
}

void FSquadComposer::ShowItem() {
    const QScopedValueRollback loading(Loading, true);
    tedName.SetText(WorkItem->Name());
    tedDescr.SetText(WorkItem->Descr());
    tedPointCost.SetText(MFileFormat::FormatRealField(WorkItem->EquippedPointCost()));
    lstSquadUnits.Clear();
    for (const CGenUnit& member : WorkItem->Units())
        lstSquadUnits.AddItem(std::to_string(member.Quantity()), member.Name());
    lblSpecialDescr[Target].SetCaption("");
    UpdateUnitButtons();
    frmTarget.SetCaption("Units in Squad: " + std::to_string(WorkItem->Count()));
}

void FSquadComposer::ShowWalked() {
    ShowItem();
    RefreshSourceList();
}

void FSquadComposer::RefreshSourceList() {
    ListUnits(lstUnits, ArmyUnits(), MUnitFilter::Infantry + UnitFilter);
    lblSpecialDescr[Source].SetCaption("");
    UpdateUnitButtons();
}

void FSquadComposer::cmdNew_Click() {
    StoreIfEdited();
    NewWorkItem();
    SourceName.clear();
    ShowItem();
    RefreshSourceList();
}

void FSquadComposer::optFilter_Click(int index) {
    MQXBaseGUIControlsUtils::ClearControlGroup(*this, "optFilter", "optFilter", index);
    UnitFilter = index;
    RefreshSourceList();
}

void FSquadComposer::lstUnits_Click() {
    if (lstUnits.ListIndex() >= 0) {
        lblSpecialDescr[Source].SetCaption(MUnitInfo::Text(ArmyUnits(), lstUnits.Text()));
    }
    UpdateUnitButtons();
}

void FSquadComposer::lstSquadUnits_Click() {
    const int row = lstSquadUnits.ListIndex();
    if (row >= 0) lblSpecialDescr[Target].SetCaption(MUnitInfo::TextIfKnown(ArmyUnits(), lstSquadUnits.List(row)));
    UpdateUnitButtons();
}

void FSquadComposer::lstSquadUnits_Edit(int row) {
    const std::string typed = lstSquadUnits.Tag(row);
    if (!MNumberText::IsNumeric(typed)) return;
    const std::int32_t quantity = std::max(MNumberText::ToInt32(typed), 1);
    WorkItem->Item(row + 1).SetQuantity(MNumberText::RoundToInt16(quantity));
    EditState = Edited;
    ShowItem();
}

void FSquadComposer::cmdAddUnit_Click() {
    if (lstUnits.ListIndex() >= 0) {
        WorkItem->Add(CopyUnit(ArmyUnits(), lstUnits.Text()), "");
        if (!Loading) EditState = Edited;
    }
    ShowItem();
}

void FSquadComposer::cmdShowSelUnit_Click() {
    if (lstUnits.ListIndex() >= 0) ViewUnit(*this, ArmyUnits(), lstUnits.Text());
}

void FSquadComposer::cmdRemoveUnit_Click() {
    if (lstSquadUnits.ListIndex() >= 0) {
        WorkItem->Remove(lstSquadUnits.ListIndex() + 1);
        if (!Loading) EditState = Edited;
    }
    ShowItem();
}

void FSquadComposer::cmdUnitMoveUp_Click() {
    if (lstSquadUnits.CanMoveUp()) MoveRow(WorkItem->Units().ShiftObjUp(lstSquadUnits.ListIndex() + 1));
}

void FSquadComposer::cmdUnitMoveDown_Click() {
    if (lstSquadUnits.CanMoveDown()) MoveRow(WorkItem->Units().ShiftObjDown(lstSquadUnits.ListIndex() + 1));
}

// The list follows a shift of the selected member to `position`; 0 is a shift that moved nothing. The order has no
// effect on the cost.
void FSquadComposer::MoveRow(std::int32_t position) {
    if (position > 0) {
        lstSquadUnits.MoveItem(lstSquadUnits.ListIndex(), position - 1);
        EditState = Edited;
    }
    UpdateUnitButtons();
}
