#pragma once

#include <QAbstractButton>
#include <functional>

#include "controls/control.h"
#include "controls/picture.h"

/// What a click does to the button's `Value`: nothing, on, or the other state.
enum class ButtonStyle { Command, Option, Check };

/// A flat button. A name that begins with "opt" makes it an option, which stays on when clicked while on (the click
/// counts); "chk" and "cmdSkin" make it a check, which toggles; all others are commands. Options are exclusive through
/// `ClearControlGroup` alone.
class QXColorButton : public CControl<QAbstractButton> {
    Q_OBJECT
  public:
    QXColorButton(CForm* form, const char* name, std::optional<int> index = std::nullopt);

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    /// Shows an arrow: a character of the font that has them. After the skin, which sets all fonts.
    void SetArrow(std::string_view character);
    ButtonStyle Style() const { return style_; }
    const std::string& ControlGroup() const { return controlGroup_; }
    void SetControlGroup(std::string_view group) { controlGroup_ = group; }
    /// On or off. Set by code it raises no click.
    bool Value() const { return isChecked(); }
    void SetValue(bool on);

    /// 0 without, 1 with a border.
    int BorderStyle() const { return borderStyle_; }
    void SetBorderStyle(int style) { Change(borderStyle_, style); }
    Colour BorderColor() const { return borderColor_; }
    void SetBorderColor(Colour colour) { Change(borderColor_, colour); }
    int BorderWidth() const { return borderWidth_; }
    void SetBorderWidth(int width) { Change(borderWidth_, width); }
    Colour SelectedForeColor() const { return selectedForeColor_; }
    void SetSelectedForeColor(Colour colour) { Change(selectedForeColor_, colour); }
    Colour SelectedColor() const { return selectedColor_; }
    void SetSelectedColor(Colour colour) { Change(selectedColor_, colour); }
    Colour DisabledBackColor() const { return disabledBackColor_; }
    void SetDisabledBackColor(Colour colour) { Change(disabledBackColor_, colour); }
    /// 0 a rectangle, 1 with round corners.
    int Shape() const { return shape_; }
    void SetShape(int shape) { Change(shape_, shape); }
    /// A dotted line shows the keyboard's focus.
    bool ShowFocus() const { return showFocus_; }
    void SetShowFocus(bool on) { Change(showFocus_, on); }

    void OnClick(std::function<void()> handler) { click_ = std::move(handler); }

    SInk Ink() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void LookChanged() override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;
    /// What stands left of the caption.
    virtual PicturePtr Image() const { return nullptr; }

  private:
    void RefreshName();
    /// The colours of the properties that count in the button's state.
    SInk Face() const;

    std::string caption_;
    std::string controlGroup_;
    std::function<void()> click_;
    ButtonStyle style_ = ButtonStyle::Command;
    int borderStyle_ = 0;
    int borderWidth_ = 1;
    int shape_ = 0;
    bool showFocus_ = false;
    Colour borderColor_ = 0;
    Colour selectedForeColor_ = 0xffffff;
    Colour selectedColor_ = 0x800000;
    Colour disabledBackColor_ = 0xc0c0c0;
};
