#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/colour.h"
#include "controls/form.h"

/// What the skin, the control groups and the tests see of every control. Texts are ANSI.
class IControl {
  public:
    IControl(const IControl&) = delete;
    IControl& operator=(const IControl&) = delete;
    virtual ~IControl();

    const std::string& Name() const { return name_; }
    /// Only elements of a control array have an index; reading that of another control is an error.
    bool HasIndex() const { return index_.has_value(); }
    int Index() const;
    CForm& Form() const { return *form_; }
    virtual QWidget& Widget() = 0;

    Colour BackColor() const { return backColor_; }
    void SetBackColor(Colour colour) { Change(backColor_, colour); }
    Colour ForeColor() const { return foreColor_; }
    void SetForeColor(Colour colour) { Change(foreColor_, colour); }

    /// The colours in which its text shows now: those of its properties, changed where they could not be read.
    virtual SInk Ink() const { return {ReadableOn(Back(), Fore()), Back()}; }

    const std::string& FontName() const { return fontName_; }
    void SetFontName(std::string_view name) { Change(fontName_, std::string(name)); }
    /// In points at 96 dots per inch.
    double FontSize() const { return fontSize_; }
    void SetFontSize(double size) { Change(fontSize_, size); }
    bool FontBold() const { return fontBold_; }
    void SetFontBold(bool bold) { Change(fontBold_, bold); }

    bool Enabled() { return Widget().isEnabled(); }
    void SetEnabled(bool enabled) { Widget().setEnabled(enabled); }
    /// As set by code, whether or not the form itself is on the screen.
    bool Visible() { return !Widget().isHidden(); }
    void SetVisible(bool visible) { Widget().setVisible(visible); }
    /// The control can be reached by the tab key. A click reaches it all the same.
    bool TabStop() { return (Widget().focusPolicy() & Qt::TabFocus) != 0; }
    void SetTabStop(bool on);
    const std::string& ToolTipText() const { return toolTip_; }
    void SetToolTipText(std::string_view text);

    /// The label that names this control. Without one it is the label of the same name ("lblName" of "tedName"), else
    /// the caption of the frame around the control.
    void SetLabel(IControl& label);
    IControl* Label() const { return label_; }
    /// True for what has no caption of its own: fields, lists, pictures.
    virtual bool NamedByLabel() const { return false; }
    /// The caption with which a label or a frame names others.
    virtual std::string NamingCaption() const { return {}; }

  protected:
    IControl(CForm* form, const char* name, std::optional<int> index);

    /// Sets a property of the look and has the control follow it.
    template <class T>
    void Change(T& property, T value) {
        if (property == value) return;
        property = std::move(value);
        LookChanged();
    }
    virtual void LookChanged() = 0;
    /// What a tip shows where no `ToolTipText` is set: the whole of a text that the control has no room for.
    void SetWholeText(const QString& text);
    /// A handler that an event of the user runs.
    void RaiseByUser(const std::function<void()>& handler);

    QFont LookFont() const;
    QColor Back() const { return ToQColor(backColor_); }
    QColor Fore() const { return ToQColor(foreColor_); }

  private:
    void ShowToolTip();

    CForm* form_;
    std::string name_;
    std::optional<int> index_;
    IControl* label_ = nullptr;
    Colour backColor_ = 0xf0f0f0;
    Colour foreColor_ = 0;
    std::string fontName_ = "MS Sans Serif";
    double fontSize_ = 12;
    bool fontBold_ = false;
    std::string toolTip_;
    QString wholeText_;
};

/// A control over the toolkit's class `Base`: that class gives keyboard, role and state.
template <class Base>
class CControl : public Base, public IControl {
  public:
    CControl(CForm* form, const char* name, std::optional<int> index) : Base(form), IControl(form, name, index) {
        Base::setObjectName(index ? QString::fromLatin1(name) + QStringLiteral("(%1)").arg(*index)
                                  : QString::fromLatin1(name));
    }
    QWidget& Widget() override { return *this; }
};
