#pragma once

#include "composers/army_document_form.h"
#include "composers/unit_filter.h"
#include "controls/control_array.h"
#include "controls/frame.h"
#include "controls/list_box.h"

class CArmyList;

/// Housekeeping of the army list: its name, description and picture; its entries can be filtered, looked at and
/// deleted. New ones come from the unit maker and the squad composer. It edits the shared document directly.
class FArmyList : public FArmyDocumentForm {
  public:
    FArmyList();

  protected:
    void Form_Load() override;
    CArmyDocument& Document() const override;
    void ShowItem() override;
    void ShowPage(FArmyRoster& viewer) override;
    void cmdSaveChanges_Click() override;

  private:
    void LayOut();
    void UpdateCaption();
    void ListUnits();
    void EnableUnitButtons(bool selected);
    void lstUnits_Click();
    void optFilter_Click(int index);
    void cmdShowSelUnit_Click();
    void cmdDeleteFromDb_Click();

    CArmyList* WorkItem = nullptr;
    std::int32_t ListFilter = MUnitFilter::Infantry;

    QXFrame frmSource{this, "frmSource"};
    CControlArray<QXColorButton, MUnitFilter::FilterCount> optFilter{this, "optFilter"};
    CListBox lstUnits{this, "lstUnits"};
    QXColorButton cmdShowSelUnit{this, "cmdShowSelUnit"};
    QXColorButton cmdDeleteFromDb{this, "cmdDeleteFromDb"};
    QXFrame frmDescr{this, "frmDescr"};
    QXLabel lblSpecialDescr{this, "lblSpecialDescr"};
};
