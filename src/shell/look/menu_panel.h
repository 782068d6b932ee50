#pragma once

#include <functional>
#include <string_view>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/frame.h"
#include "controls/picture_box.h"
#include "shell/look/gui_handler.h"

/// The panel at the left of a maker or composer: top picture, six commands one under the other, bottom picture, and a
/// button that closes the form as its X does, also while the form is inert.
/// The controls register with the form under their own names. Put `frmMenu` into the form's layout.
class CMenuPanel {
  public:
    static constexpr int kCommands = 6;

    explicit CMenuPanel(CForm* form);

    /// Caption and routine of a command. A command without a routine isn't shown, so that no click goes nowhere.
    void SetCommand(int index, std::string_view caption, std::function<void()> routine = {});
    /// Takes the pictures of the skin that has been applied.
    void ShowPictures(CVDGuiHandler& handler);

    QXFrame frmMenu;
    CPictureBox imgMenuTop;
    CControlArray<QXColorButton, kCommands> cmdMenu;
    CPictureBox imgMenuBottom;
    QXColorButton cmdExit;
};
