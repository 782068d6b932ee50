#pragma once

#include <memory>

#include "controls/color_button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/text_box.h"
#include "shell/look/gui_handler.h"

/// Tells what the program is, its version and where it lives.
class FAbout : public CForm {
  public:
    FAbout();

  protected:
    void Form_Load() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override;

  private:
    void cmdLink_Click();
    void cmdOK_Click() { Unload(); }

    std::unique_ptr<CVDGuiHandler> GuiHandler;

    CPictureBox Image1{this, "Image1"};
    QXLabel lblTitle{this, "lblTitle"};
    QXLabel lblVersion{this, "lblVersion"};
    QXLabel lblDescription{this, "lblDescription"};
    QXLabel lblCopyright{this, "lblCopyright"};
    CTextBox tedNotice{this, "tedNotice"};
    QXColorButton cmdLink{this, "cmdLink"};
    QXColorButton cmdOK{this, "cmdOK"};
};
