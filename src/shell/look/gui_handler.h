#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "controls/control.h"
#include "controls/control_array.h"
#include "controls/picture.h"

class FGUIItems;
struct SSkin;

/// Gives a form one of the two skins, keeps its tip line, and draws a border around the button under the mouse. A form
/// makes its handler as it loads and lets it go as it unloads.
class CVDGuiHandler {
  public:
    CVDGuiHandler();
    ~CVDGuiHandler();
    CVDGuiHandler(const CVDGuiHandler&) = delete;
    CVDGuiHandler& operator=(const CVDGuiHandler&) = delete;

    /// A skin above 0 is kept; then the skin kept is applied: 1 Sci-Fi, 2 Fantasy, any other leaves the form alone.
    void SetSkin(CForm& form, std::int32_t skin);
    void SetSkinSciFi(CForm& form);
    void SetSkinFantasy(CForm& form);

    /// Writes the caption of the form's `lblTip`; error 91 on a form without one.
    void SetTip(std::string_view text);
    void ResetTip();

    /// Draws the border of `control`, if it is a button, and takes it from all others.
    void HighlightButton(IControl& control);
    /// What most forms do when the pointer moves: highlights the button under it, and none where there is no button
    /// that could be pressed.
    void FollowPointer(IControl* control);
    /// The same on a form with tips, where a button without one counts as bare form: shows the tip, or none, also
    /// that of a disabled one.
    void FollowPointer(IControl* control, const char* tip);
    /// Takes the border from one button, or without a control from all.
    void UnhighlightButton(IControl* control = nullptr);
    template <class Control, int Count>
    void UnhighlightButton(CControlArray<Control, Count>& controls, int index) {
        UnhighlightButton(&controls[index]);
    }

    /// Picture of the skin: 1 and 2 console top and bottom, 3 and 4 `imgMenuTop` and `imgMenuBottom` of other forms, 5
    /// to 8 a unit of type `index` - 5 (Sci-Fi only); nothing for any other index.
    PicturePtr GUIImg(std::int32_t index);

  private:
    void Apply(CForm& form, const SSkin& skin);
    FGUIItems& Items();

    CForm* form_ = nullptr;
    std::int16_t highlightOff_ = 0;
    std::int32_t skin_ = 1;
    std::unique_ptr<FGUIItems> items_;
};
