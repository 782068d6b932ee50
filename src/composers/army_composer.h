#pragma once

#include <cstdint>

#include "composers/army_document_form.h"
#include "composers/unit_controls.h"
#include "controls/choice_list.h"
#include "controls/control_array.h"
#include "controls/frame.h"
#include "controls/list_box.h"

class CArmyRoster;

/// Picks an army for a game: adds entries of the army list to the working roster, orders and names them, and keeps the
/// total in sight. It edits the shared document directly.
///
/// Remove and the moves take the row of the roster list for the position in the roster, under a filter too: a filtered
/// view is meant to be read.
class FArmyComposer : public FArmyDocumentForm {
  public:
    FArmyComposer();

  protected:
    void Form_Load() override;
    CArmyDocument& Document() const override;
    void ShowItem() override;
    void ShowPage(FArmyRoster& viewer) override;
    void cmdSaveChanges_Click() override;
    void ContentChanged(std::int16_t editState) override;
    void Reloaded() override;

  private:
    enum Side { Source, Target };

    void LayOut();
    void UpdateCaption();
    void ListSourceUnits();
    void ListRosterUnits();
    void UpdateUnitButtons() { Buttons.Update(lstUnits, lstRosterUnits); }
    void MoveRow(std::int32_t position);

    void cmbUnitType_Change();
    void cmbArmyUnitType_Change();
    void lstUnits_Click();
    void lstRosterUnits_Click();
    void cmdAddUnit_Click();
    void cmdShowSelUnit_Click();
    void cmdRemoveUnit_Click();
    void cmdUnitMoveUp_Click();
    void cmdUnitMoveDown_Click();

    CArmyRoster* WorkItem = nullptr;
    std::int32_t UnitFilter = 0;
    std::int32_t RosterFilter = 0;

    QXFrame frmPointCost{this, "frmPointCost"};
    QXTextEdit tedPointCost{this, "tedPointCost"};
    QXFrame frmSource{this, "frmSource"};
    QXChoiceList cmbUnitType{this, "cmbUnitType"};
    CListBox lstUnits{this, "lstUnits"};
    QXFrame frmTarget{this, "frmTarget"};
    QXChoiceList cmbArmyUnitType{this, "cmbArmyUnitType"};
    CListBox lstRosterUnits{this, "lstRosterUnits"};
    CUnitButtons Buttons{this};
    CControlArray<QXFrame, 2> frmDescr{this, "frmDescr"};
    CControlArray<QXLabel, 2> lblSpecialDescr{this, "lblSpecialDescr"};
};
