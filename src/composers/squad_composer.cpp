#include "composers/squad_composer.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <string>

#include "composers/unit_controls.h"
#include "controls/control_utils.h"
#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/number_text.h"

FSquadComposer::FSquadComposer()
    : FMakerOf(UnitTerms("FSquadComposer", "Squad Composer"), CGenUnit::Squad),
      Picker(this, "lstSquadUnits",
             {.source = []() -> const CUnitList& { return ArmyUnits(); },
              .target = [this]() -> CUnitList& { return WorkItem->Units(); },
              .add =
                  [this](std::shared_ptr<CGenUnit> unit) {
                      WorkItem->Add(std::move(unit), "");
                      MarkEdited();
                  },
              .remove =
                  [this](std::int32_t position) {
                      WorkItem->Remove(position);
                      MarkEdited();
                  },
              .moved = [this] { EditState = Edited; },  // counts while the form loads, too
              .showItem = [this] { ShowItem(); }}) {
    Picker.frmTarget.SetCaption("Units in Squad");
    Picker.lstTarget.SetTagToolTipText("Click a quantity to change it");
    OfferUnitFilters(optFilter, MUnitFilter::Infantry);
    optFilter.OnClick([this](int index) { optFilter_Click(index); });
    Picker.lstTarget.OnEdit([this](int row) { lstSquadUnits_Edit(row); });
    LayOut();
}

void FSquadComposer::LayOut() {
    Work().addLayout(Picker.LayOut(), 1);
    auto* filters = MLayout::Row();
    for (int index = 0; index < optFilter.Size(); ++index)
        filters->addWidget(&optFilter[index], 1);
    Picker.Column(Picker.Source).insertLayout(0, filters);
    resize(1060, 740);
}

void FSquadComposer::LoadItem() {
    tedName.SetMaxLength(0);  // a squad may be called anything
    Picker.ShowArrows();
    optFilter[0].SetValue(true);
    UnitFilter = 0;
    RefreshSourceList();
    ShowItem();
}

// The window's X takes no focus from the editor, so a quantity may still be in it.
bool FSquadComposer::QueryUnload() {
    Picker.lstTarget.EndEditing();
    return FMakerOf::QueryUnload();
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
    Picker.lstTarget.Clear();
    for (const CGenUnit& member : WorkItem->Units())
        Picker.lstTarget.AddItem(std::to_string(member.Quantity()), member.Name());
    Picker.TargetFilled();
    Picker.frmTarget.SetCaption("Units in Squad: " + std::to_string(WorkItem->Count()));
}

void FSquadComposer::ShowModified() {
    ShowItem();
    Picker.lstTarget.scrollToTop();
}

void FSquadComposer::ShowWalked() {
    ShowModified();
    RefreshSourceList();
}

void FSquadComposer::RefreshSourceList() {
    Picker.RefreshSourceList(MUnitFilter::Infantry + UnitFilter);
}

void FSquadComposer::cmdNew_Click() {
    StoreIfEdited();
    NewWorkItem();
    SourceName.clear();
    ShowWalked();
}

void FSquadComposer::optFilter_Click(int index) {
    MQXBaseGUIControlsUtils::ClearControlGroup(*this, "optFilter", "optFilter", index);
    UnitFilter = index;
    RefreshSourceList();
    Picker.lstUnits.scrollToTop();
}

void FSquadComposer::lstSquadUnits_Edit(int row) {
    const std::string typed = Picker.lstTarget.Tag(row);
    if (!MNumberText::IsNumeric(typed)) return;
    CGenUnit& member = WorkItem->Item(row + 1);
    try {
        member.SetQuantity(MNumberText::RoundToInt16(std::max(MNumberText::ToInt32(typed), 1)));
    } catch (const CRuntimeError&) {
        Picker.lstTarget.SetTag(row, std::to_string(member.Quantity()));  // the one that stays in force
        throw;
    }
    EditState = Edited;
    ShowItem();
    Picker.SelectTarget(row);
}
