#pragma once

#include <cstdint>
#include <memory>

#include "composers/picture_controls.h"
#include "composers/unit_controls.h"
#include "controls/choice_list.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/text_edit.h"
#include "shell/look/gui_handler.h"
#include "shell/look/menu_panel.h"

class CArmyRoster;

/// Picks an army for a game: adds entries of the army list to the working roster, orders and names them, and keeps the
/// total in sight. It edits the shared document directly.
///
/// Remove and the moves take the row of the roster list for the position in the roster, under a filter too: a filtered
/// view is meant to be read.
class FArmyComposer : public CForm {
  public:
    FArmyComposer();

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    bool QueryUnload() override;
    void ClosingFailed() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override;

  private:
    enum Side { Source, Target };

    void LayOut();
    void ShowItem();
    void UpdateCaption();
    void ListSourceUnits();
    void ListRosterUnits();
    void UpdateUnitButtons() { Buttons.Update(lstUnits, lstRosterUnits); }
    void Edited();
    void RosterChanged(std::int16_t editState);
    void MoveRow(int row, std::int32_t position);

    void tedName_Change();
    void tedDescr_Change();
    void cmbUnitType_Change();
    void cmbArmyUnitType_Change();
    void lstUnits_Click();
    void lstRosterUnits_Click();
    void cmdAddUnit_Click();
    void cmdShowSelUnit_Click();
    void cmdRemoveUnit_Click();
    void cmdUnitMoveUp_Click();
    void cmdUnitMoveDown_Click();
    void cmdDeleteAll_Click();
    void cmdUpdateCosts_Click();
    void cmdReload_Click();
    void cmdViewList_Click();
    void cmdSaveChanges_Click();

    CArmyRoster* WorkItem = nullptr;
    bool Loading = false;
    std::int32_t UnitFilter = 0;
    std::int32_t RosterFilter = 0;
    std::int16_t EditState = 0;  // any but 0 marks the roster as modified at closing
    std::unique_ptr<CVDGuiHandler> GuiHandler;

    CMenuPanel Menu{this};
    QXLabel lblName{this, "lblName"};
    QXTextEdit tedName{this, "tedName"};
    QXLabel lblDescr{this, "lblDescr"};
    QXTextEdit tedDescr{this, "tedDescr"};
    CPictureControls Picture{this, "The image will be shown full size on the army roster viewer"};
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
