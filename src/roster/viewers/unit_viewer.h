#pragma once

#include <cstdint>
#include <memory>

#include "controls/color_button.h"
#include "controls/form.h"
#include "roster/viewers/roster_view.h"
#include "shell/look/gui_handler.h"

class CGenUnit;
class CMultUnit;
class CUnit;

/// A window of fixed size with one unit or squad. Each operation loads the form and makes the page; then the form is
/// shown modally. The page is dark in every skin.
class FUnitViewer : public CForm {
  public:
    FUnitViewer();

    void ShowUnit(const CGenUnit& unit, std::int16_t fileNumber = 0);
    void ShowSingleUnit(const CUnit& unit, std::int16_t fileNumber = 0);
    /// The flag stands in the place of the file number.
    void ShowMultiUnit(const CMultUnit& squad, bool flag = false);

  protected:
    void Form_Load() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override;

  private:
    void cmdExit_Click();

    std::unique_ptr<CVDGuiHandler> GuiHandler;
    CRosterView rosArmy{this, "rosArmy"};
    QXColorButton cmdExit{this, "cmdExit"};
};
