#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "controls/color_button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "shell/look/gui_handler.h"

class CEqList;
class CUnitList;

/// Lets the user pick a record of a list by its name. Set the texts, show a list as often as wanted, then unload. It
/// keeps no link to the list: the caller looks the record up again.
class FSelector : public CForm {
  public:
    FSelector();

    const std::string& Prompt() const { return lblPrompt.Caption(); }
    void SetPrompt(std::string_view prompt) { lblPrompt.SetCaption(prompt); }
    const std::string& OKCaption() const { return cmdOK.Caption(); }
    void SetOKCaption(std::string_view caption) { cmdOK.SetCaption(caption); }
    const std::string& CancelCaption() const { return cmdCancel.Caption(); }
    void SetCancelCaption(std::string_view caption) { cmdCancel.SetCaption(caption); }

    /// The name chosen last, also after Cancel; empty until one is chosen.
    const std::string& Selection() const { return selection_; }
    bool OK() const { return ok_; }

    /// Shows the names of a list modally; true when the user confirmed one. A list that fails while it is walked is
    /// reported in a box.
    bool ShowEqList(const CEqList& list);
    /// The same with the entries whose `GenUnitClass` is `unitClass`; 0 shows all.
    bool ShowUnitList(const CUnitList& list, std::int32_t unitClass);

  protected:
    void Form_Load() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override { GuiHandler->FollowPointer(control); }
    void CloseRequest() override { cmdCancel_Click(); }

  private:
    bool Show(const std::function<void()>& fill);
    void UpdateOKButton() { cmdOK.SetEnabled(!selection_.empty()); }
    void lstItems_Click();
    void lstItems_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click();

    bool ok_ = false;
    std::string selection_;
    std::unique_ptr<CVDGuiHandler> GuiHandler;

    QXLabel lblPrompt{this, "lblPrompt"};
    CListBox lstItems{this, "lstItems"};
    QXColorButton cmdOK{this, "cmdOK"};
    QXColorButton cmdCancel{this, "cmdCancel"};
};
