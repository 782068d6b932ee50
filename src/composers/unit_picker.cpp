#include "composers/unit_picker.h"

#include "composers/unit_controls.h"
#include "composers/unit_info.h"
#include "core/files/ansi_text.h"
#include "core/files/platform.h"
#include "core/state/global.h"

namespace {

std::shared_ptr<CGenUnit> CopyUnit(const CUnitList& units, std::string_view name) {
    auto copy = std::make_shared<CGenUnit>();
    copy->NewUnit(CGenUnit::Single);
    if (copy->IsEmpty()) {
        MPlatform::ShowPlain("Cannot add unit (" + MAnsiText::ToUtf8(MGlobal::LastErrorText()) + ").");
    }
    copy->Clone(units.Item(name));
    return copy;
}

}  // namespace

CUnitPickerBase::CUnitPickerBase(CForm* form, SUnitPicking picking)
    : frmSource(form, "frmSource"),
      lstUnits(form, "lstUnits"),
      cmdAddUnit(form, "cmdAddUnit"),
      cmdShowSelUnit(form, "cmdShowSelUnit"),
      frmTarget(form, "frmTarget"),
      cmdRemoveUnit(form, "cmdRemoveUnit"),
      cmdUnitMoveUp(form, "cmdUnitMoveUp"),
      cmdUnitMoveDown(form, "cmdUnitMoveDown"),
      frmDescr(form, "frmDescr"),
      lblSpecialDescr(form, "lblSpecialDescr"),
      picking_(std::move(picking)),
      form_(form) {
    frmSource.SetCaption("Units in Army List");
    cmdAddUnit.SetCaption("Add");
    cmdShowSelUnit.SetCaption("View");
    cmdRemoveUnit.SetCaption("Remove");
    lstUnits.OnClick([this] { lstUnits_Click(); });
    lstUnits.OnDblClick([this] { cmdAddUnit_Click(); });
    cmdAddUnit.OnClick([this] { cmdAddUnit_Click(); });
    cmdShowSelUnit.OnClick([this] { cmdShowSelUnit_Click(); });
}

QGridLayout* CUnitPickerBase::LayOut(QAbstractItemView& target) {
    target_ = &target;
    auto* sourceButtons = MLayout::Row();
    sourceButtons->addWidget(&cmdAddUnit, 1);
    sourceButtons->addWidget(&cmdShowSelUnit, 1);

    auto* grid = MLayout::Grid(nullptr, MLayout::FrameGap);
    grid->setVerticalSpacing(MLayout::GapAboveFrame);
    const auto addSide = [&](Side side, QXFrame& frame, QWidget& list, QHBoxLayout* buttons) {
        auto* column = MLayout::Column(&frame);
        column->addWidget(&list, 1);
        column->addLayout(buttons);
        columns_.at(side) = column;
        grid->addWidget(&frame, 0, side);
        LayOutUnitInfo(frmDescr[side], lblSpecialDescr[side]);
        grid->addWidget(&frmDescr[side], 1, side);
        grid->setColumnStretch(side, 1);
    };
    addSide(Source, frmSource, lstUnits, sourceButtons);
    addSide(Target, frmTarget, target, MLayout::ButtonWithArrows(cmdRemoveUnit, cmdUnitMoveUp, cmdUnitMoveDown));
    grid->setRowStretch(0, 1);
    return grid;
}

void CUnitPickerBase::ShowArrows() {
    cmdUnitMoveUp.SetArrow("\xE9");
    cmdUnitMoveDown.SetArrow("\xEA");
}

void CUnitPickerBase::RefreshSourceList(std::int32_t filter) {
    ListUnits(lstUnits, picking_.source(), filter);
    lblSpecialDescr[Source].SetCaption("");
    UpdateUnitButtons();
}

void CUnitPickerBase::Enable(bool targetSelected, bool canMoveUp, bool canMoveDown) {
    const bool sourceSelected = lstUnits.ListIndex() >= 0;
    cmdRemoveUnit.SetEnabled(targetSelected);
    cmdUnitMoveDown.SetEnabled(canMoveDown);
    cmdUnitMoveUp.SetEnabled(canMoveUp);
    cmdAddUnit.SetEnabled(sourceSelected);
    cmdShowSelUnit.SetEnabled(sourceSelected);
}

// Speaks of the unit as it stands in the source, not of the copy.
void CUnitPickerBase::ShowTargetInfo(const std::string& name) {
    lblSpecialDescr[Target].SetCaption(MUnitInfo::TextIfKnown(picking_.source(), name));
}

void CUnitPickerBase::lstUnits_Click() {
    if (lstUnits.ListIndex() >= 0) {
        lblSpecialDescr[Source].SetCaption(MUnitInfo::Text(picking_.source(), lstUnits.Text()));
    }
    UpdateUnitButtons();
}

void CUnitPickerBase::cmdAddUnit_Click() {
    const int shown = target_->model()->rowCount();
    if (lstUnits.ListIndex() >= 0) picking_.add(CopyUnit(picking_.source(), lstUnits.Text()));
    picking_.showItem();
    // New entries go to the end; one that a filter hides changes nothing.
    if (target_->model()->rowCount() > shown) target_->scrollToBottom();
}

void CUnitPickerBase::cmdShowSelUnit_Click() {
    if (lstUnits.ListIndex() >= 0) ViewUnit(*form_, picking_.source(), lstUnits.Text());
}

void CUnitPickerBase::Remove(int row) {
    if (row >= 0) picking_.remove(row + 1);
    picking_.showItem();
}
