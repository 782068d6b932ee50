#pragma once

#include <cstdint>

#include "composers/army_document_form.h"
#include "composers/unit_picker.h"
#include "controls/choice_list.h"
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
    void LayOut();
    void UpdateCaption();
    void ListSourceUnits();
    void ListRosterUnits();

    void cmbUnitType_Change();
    void cmbArmyUnitType_Change();

    CArmyRoster* WorkItem = nullptr;
    std::int32_t UnitFilter = 0;
    std::int32_t RosterFilter = 0;

    QXFrame frmPointCost{this, "frmPointCost"};
    QXTextEdit tedPointCost{this, "tedPointCost"};
    QXChoiceList cmbUnitType{this, "cmbUnitType"};
    QXChoiceList cmbArmyUnitType{this, "cmbArmyUnitType"};
    CUnitPicker<CListBox> Picker;
};
