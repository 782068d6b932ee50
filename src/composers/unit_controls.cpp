#include "composers/unit_controls.h"

#include "composers/unit_filter.h"
#include "core/files/ansi_text.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "roster/viewers/unit_viewer.h"

void ListUnits(CListBox& box, const CUnitList& units, std::int32_t filter) {
    box.Clear();
    for (const CGenUnit& entry : units) {
        if (MUnitFilter::Selects(filter, entry)) box.AddItem(entry.Name());
    }
}

void OfferUnitFilters(QXChoiceList& list) {
    constexpr int kListWidth = 3500;
    for (const std::string_view name : MUnitFilter::kNames)
        list.AddItem(name);
    list.SetPromptText("Select filter for units:");
    list.SetListWidth(kListWidth);
    list.SetListIndex(MUnitFilter::All);
}

std::shared_ptr<CGenUnit> CopyUnit(const CUnitList& units, std::string_view name) {
    auto copy = std::make_shared<CGenUnit>();
    copy->NewUnit(CGenUnit::Single);
    if (copy->IsEmpty()) {
        MPlatform::ShowPlain("Cannot add unit (" + MAnsiText::ToUtf8(MGlobal::LastErrorText()) + ").");
    }
    copy->Clone(units.Item(name));
    return copy;
}

void LayOutUnitInfo(QXFrame& frame, QXLabel& info) {
    constexpr int kHeight = 150;
    MLayout::TextInFrame(frame, info);
    frame.setMinimumHeight(kHeight);
}

void ViewUnit(CForm& owner, const CUnitList& units, std::string_view name) {
    FUnitViewer viewer;
    viewer.ShowUnit(units.Item(name), 0);
    viewer.ShowModal(&owner);
}

CUnitButtons::CUnitButtons(CForm* form)
    : cmdAddUnit(form, "cmdAddUnit"),
      cmdShowSelUnit(form, "cmdShowSelUnit"),
      cmdRemoveUnit(form, "cmdRemoveUnit"),
      cmdUnitMoveUp(form, "cmdUnitMoveUp"),
      cmdUnitMoveDown(form, "cmdUnitMoveDown") {
    cmdAddUnit.SetCaption("Add");
    cmdShowSelUnit.SetCaption("View");
    cmdRemoveUnit.SetCaption("Remove");
}

QHBoxLayout* CUnitButtons::LayOutSource() {
    auto* row = MLayout::Row();
    row->addWidget(&cmdAddUnit, 1);
    row->addWidget(&cmdShowSelUnit, 1);
    return row;
}

QHBoxLayout* CUnitButtons::LayOutTarget() {
    return MLayout::ButtonWithArrows(cmdRemoveUnit, cmdUnitMoveUp, cmdUnitMoveDown);
}

void CUnitButtons::ShowArrows() {
    cmdUnitMoveUp.SetArrow("\xE9");
    cmdUnitMoveDown.SetArrow("\xEA");
}

void CUnitButtons::Enable(bool sourceSelected, bool targetSelected, bool canMoveUp, bool canMoveDown) {
    cmdRemoveUnit.SetEnabled(targetSelected);
    cmdUnitMoveDown.SetEnabled(canMoveDown);
    cmdUnitMoveUp.SetEnabled(canMoveUp);
    cmdAddUnit.SetEnabled(sourceSelected);
    cmdShowSelUnit.SetEnabled(sourceSelected);
}
