#pragma once

#include <memory>
#include <string>

#include "controls/color_button.h"
#include "controls/form.h"
#include "core/files/platform.h"
#include "roster/viewers/roster_view.h"
#include "shell/look/gui_handler.h"

class CArmyList;
class CArmyRoster;
class CEqList;

/// A window with a whole page, which the player can print and save. Each of its operations loads the form and makes the
/// page; then the form is shown modally. Errors of making the page are the caller's.
class FArmyRoster : public CForm {
  public:
    FArmyRoster();

    void ShowArmyRoster(const CArmyRoster& roster);
    void ShowArmyList(const CArmyList& list);
    /// `name` tells whose equipment it is, in the file name that is offered.
    void ShowWeaponList(const CEqList& list, const std::string& name);
    void ShowAccessoryList(const CEqList& list, const std::string& name);

  protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override;

  private:
    void cmdExit_Click();
    void cmdSaveAs_Click();
    void cmdPrint_Click();
    void SetPage(const std::string& caption, const std::string& fileName);

    std::unique_ptr<CVDGuiHandler> GuiHandler;
    std::string defaultFileName_;
    CFileDialog dlgSaveAs;
    // Measured at load.
    int bottomGap_ = 0;  // page to the bottom of the window
    int buttonGap_ = 0;  // page to the buttons
    int rightGap_ = 0;   // page to the right of the window

    CRosterView rosArmy{this, "rosArmy"};
    QXColorButton cmdSaveAs{this, "cmdSaveAs"};
    QXColorButton cmdPrint{this, "cmdPrint"};
    QXColorButton cmdExit{this, "cmdExit"};
};
