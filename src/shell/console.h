#pragma once

#include <array>
#include <memory>
#include <string>

#include "controls/color_button.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/picture_box.h"
#include "shell/look/gui_handler.h"

/// The main window: a button and a menu entry for each working form, which opens modally above it. It holds no data;
/// when it closes, the run ends, after it has offered to save what was modified.
class FConsole : public CForm {
  public:
    FConsole();

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    bool QueryUnload() override;
    void Form_Unload() override;
    void MouseMove(IControl* control) override;
    /// Escape closes the forms, but it doesn't end the run.
    void reject() override {}

  private:
    static constexpr int CommandCount = 9;
    struct SCommand;
    static const std::array<SCommand, CommandCount> Commands;

    void LayOutControls();
    void FillMenu();
    void ApplySkin();
    void ShowTip(int number);
    /// Number of the button's tip; -1 for anything that isn't a button of the console.
    int TipOf(const IControl* control);
    /// Opens a new instance of a form above the console and drops it when it closes.
    template <class Form>
    void Open();
    void mnuExit_Click();

    std::unique_ptr<CVDGuiHandler> GuiHandler;
    std::array<std::string, CommandCount> Tips;

    QXLabel lblVersion{this, "lblVersion"};
    QXLabel lblBeta{this, "lblBeta"};
    CPictureBox Image7{this, "Image7"};
    CPictureBox Image1{this, "Image1"};
    QXFrame frmSetup{this, "frmSetup"};
    QXColorButton cmdFiles{this, "cmdFiles"};
    CPictureBox Image2{this, "Image2"};
    CPictureBox Image3{this, "Image3"};
    QXFrame frmComposers{this, "frmComposers"};
    QXColorButton cmdArmyComposer{this, "cmdArmyComposer"};
    QXColorButton cmdArmyList{this, "cmdArmyList"};
    QXColorButton cmdSquadComposer{this, "cmdSquadComposer"};
    CPictureBox Image4{this, "Image4"};
    CPictureBox Image5{this, "Image5"};
    QXFrame frmMakers{this, "frmMakers"};
    QXColorButton cmdUnitMaker{this, "cmdUnitMaker"};
    QXColorButton cmdWeaponMaker{this, "cmdWeaponMaker"};
    QXColorButton cmdAccessoryMaker{this, "cmdAccessoryMaker"};
    CPictureBox Image6{this, "Image6"};
    QXColorButton cmdAbout{this, "cmdAbout"};
    QXLabel lblTip{this, "lblTip"};
    QXColorButton cmdQuit{this, "cmdQuit"};
};
