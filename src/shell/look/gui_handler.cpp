#include "shell/look/gui_handler.h"

#include <array>
#include <optional>

#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/control_utils.h"
#include "controls/edit_list.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/text_box.h"
#include "controls/text_edit.h"
#include "core/files/runtime_error.h"
#include "shell/look/gui_items.h"

/// What a skin means for each kind of control.
struct SSkin {
    std::string_view fontName;
    Colour form;
    struct SLabel {
        Colour fore;
    } label;
    struct SField {  // lists and text fields
        Colour back;
        Colour fore;
    } field;
    struct SFrame {
        Colour fore;
        Colour border;
        int borderWidth;
    } frame;
    struct SButton {
        Colour back;
        Colour border;
        int borderWidth;
        Colour fore;
        Colour selectedFore;
        Colour selected;
        Colour disabledBack;
        Colour closingFore;  // of the buttons that end a form
    } button;
    struct SChoice {
        Colour listBack;
        Colour button;
        Colour prompt;
    } choice;
    struct SNamedLabel {
        std::string_view name;
        std::optional<Colour> fore;
        std::optional<Colour> back;
        std::optional<double> size;
        std::optional<bool> bold;
        bool wraps;
    };
    std::array<SNamedLabel, 3> namedLabels;
};

namespace {

constexpr double kFontSize = 12;

constexpr SSkin kSciFi = {
    "MS Sans Serif",
    0x000000,
    {0xffb0b0},
    {0x606060, 0xffb0b0},
    {0x99ff55, 0xff8080, 1},
    {0x600000, 0xff8080, 1, 0xffb0b0, 0x00ff00, 0xff8080, 0x000050, 0x21bdf7},
    {0x4989a1, 0xffb0b0, 0xffb0b0},
    {{{"lblTip", 0xffb0b0, 0x600000, 11, false, false},
      {"lblSpecialDescr", 0xc0ffff, std::nullopt, 10, false, true},
      {"lblStat", 0x00ff00, std::nullopt, std::nullopt, true, false}}},
};

constexpr SSkin kFantasy = {
    "Calligraphic",
    0xb3d1db,
    {0x000070},
    {0xe5fafa, 0x000070},
    {0xd00000, 0x000000, 1},
    {0xd3ffff, 0x000000, 1, 0x000070, 0x0000dd, 0x99ffff, 0x7575a0, 0x019dd7},
    {0xd3ffff, 0xd3ffff, 0x000070},
    {{{"lblTip", 0x000070, 0xffffff, 11, false, false},
      {"lblSpecialDescr", 0x606080, std::nullopt, 10, false, true},
      {"lblStat", 0x0000d0, std::nullopt, std::nullopt, true, false}}},
};

constexpr std::array<std::string_view, 5> kClosingButtons = {"cmdOK", "cmdCancel", "cmdExit", "cmdQuit", "cmdClose"};

void PaintBase(IControl& control, const SSkin& skin, Colour back, Colour fore) {
    control.SetFontName(skin.fontName);
    control.SetFontSize(kFontSize);
    control.SetFontBold(false);
    control.SetBackColor(back);
    control.SetForeColor(fore);
}

void Paint(QXLabel& label, const SSkin& skin) {
    PaintBase(label, skin, skin.form, skin.label.fore);
    for (const SSkin::SNamedLabel& named : skin.namedLabels) {
        if (label.Name() != named.name) continue;
        if (named.fore) label.SetForeColor(*named.fore);
        if (named.back) label.SetBackColor(*named.back);
        if (named.size) label.SetFontSize(*named.size);
        if (named.bold) label.SetFontBold(*named.bold);
        if (named.wraps) label.SetWordWrap(true);
    }
}

// The colours of a selected row are those of a button that is on.
template <class List>
void PaintList(List& list, const SSkin& skin) {
    PaintBase(list, skin, skin.field.back, skin.field.fore);
    list.SetSelectedColor(skin.button.selected);
    list.SetSelectedForeColor(skin.button.selectedFore);
}

void Paint(QXFrame& frame, const SSkin& skin) {
    PaintBase(frame, skin, skin.form, skin.frame.fore);
    frame.SetBorderColor(skin.frame.border);
    frame.SetBorderWidth(skin.frame.borderWidth);
}

void Paint(QXColorButton& button, const SSkin& skin) {
    PaintBase(button, skin, skin.button.back, skin.button.fore);
    button.SetBorderStyle(0);
    button.SetBorderColor(skin.button.border);
    button.SetBorderWidth(skin.button.borderWidth);
    button.SetSelectedForeColor(skin.button.selectedFore);
    button.SetSelectedColor(skin.button.selected);
    button.SetDisabledBackColor(skin.button.disabledBack);
    button.SetShape(0);
    button.SetShowFocus(false);
    button.SetTabStop(false);
    for (const std::string_view name : kClosingButtons) {
        if (button.Name() == name) button.SetForeColor(skin.button.closingFore);
    }
}

void Paint(QXChoiceList& list, const SSkin& skin) {
    PaintBase(list, skin, skin.field.back, skin.field.fore);
    list.SetListWindowBackColor(skin.choice.listBack);
    list.SetButtonColor(skin.choice.button);
    list.SetPromptFontColor(skin.choice.prompt);
    list.SetPromptFontSize(list.FontSize());
    list.SetTabStop(false);
}

QXColorButton* AsButton(IControl* control) {
    return dynamic_cast<QXColorButton*>(control);
}

}  // namespace

CVDGuiHandler::CVDGuiHandler() = default;

CVDGuiHandler::~CVDGuiHandler() {
    if (items_) items_->Unload();
}

void CVDGuiHandler::SetSkin(CForm& form, std::int32_t skin) {
    if (skin > 0) skin_ = skin;
    if (skin_ == 1) SetSkinSciFi(form);
    if (skin_ == 2) SetSkinFantasy(form);
}

void CVDGuiHandler::SetSkinSciFi(CForm& form) {
    Apply(form, kSciFi);
}

void CVDGuiHandler::SetSkinFantasy(CForm& form) {
    Apply(form, kFantasy);
}

void CVDGuiHandler::Apply(CForm& form, const SSkin& skin) {
    highlightOff_ = 0;
    form.SetBackColor(skin.form);
    form.SetForeColor(skin.label.fore);
    form_ = &form;
    for (IControl* control : form.Controls()) {
        if (auto* label = dynamic_cast<QXLabel*>(control)) {
            Paint(*label, skin);
        } else if (auto* editList = dynamic_cast<QXEditList*>(control)) {
            PaintList(*editList, skin);
            editList->SetTagBackColor(editList->BackColor());
            editList->SetTagForeColor(editList->ForeColor());
        } else if (auto* list = dynamic_cast<CListBox*>(control)) {
            PaintList(*list, skin);
        } else if (dynamic_cast<QXTextEdit*>(control) != nullptr || dynamic_cast<CTextBox*>(control) != nullptr) {
            PaintBase(*control, skin, skin.field.back, skin.field.fore);
            control->SetTabStop(false);
        } else if (auto* frame = dynamic_cast<QXFrame*>(control)) {
            Paint(*frame, skin);
        } else if (QXColorButton* button = AsButton(control)) {
            Paint(*button, skin);
        } else if (auto* choice = dynamic_cast<QXChoiceList*>(control)) {
            Paint(*choice, skin);
        }
    }
}

void CVDGuiHandler::SetTip(std::string_view text) {
    auto* tip = form_ != nullptr ? dynamic_cast<QXLabel*>(form_->FindControl("lblTip")) : nullptr;
    if (tip == nullptr) throw CRuntimeError(ErrorNumber::ObjectNotSet);
    tip->SetCaption(text);
}

void CVDGuiHandler::ResetTip() {
    SetTip("");
}

void CVDGuiHandler::HighlightButton(IControl& control) {
    if (highlightOff_ != 0 || form_ == nullptr) return;
    const int index = MQXBaseGUIControlsUtils::HasIndex(control) ? control.Index() : -1;
    for (IControl* other : form_->Controls()) {
        QXColorButton* button = AsButton(other);
        if (button == nullptr) continue;
        const bool same =
            button->Name() == control.Name() && (index < 0 || (button->HasIndex() && button->Index() == index));
        if (!same && button->BorderStyle() == 1) button->SetBorderStyle(0);
    }
    QXColorButton* button = AsButton(&control);
    if (button != nullptr && button->BorderStyle() == 0) button->SetBorderStyle(1);
}

void CVDGuiHandler::FollowPointer(IControl* control) {
    if (dynamic_cast<QXColorButton*>(control) != nullptr && control->Enabled()) {
        HighlightButton(*control);
    } else {
        UnhighlightButton();
    }
}

void CVDGuiHandler::FollowPointer(IControl* control, const char* tip) {
    FollowPointer(tip != nullptr ? control : nullptr);
    SetTip(tip != nullptr ? tip : "");
}

void CVDGuiHandler::UnhighlightButton(IControl* control) {
    if (highlightOff_ != 0 || form_ == nullptr) return;
    const auto unhighlight = [](IControl* one) {
        QXColorButton* button = AsButton(one);
        if (button != nullptr && button->BorderStyle() == 1) button->SetBorderStyle(0);
    };
    if (control != nullptr) {
        unhighlight(control);
    } else {
        for (IControl* each : form_->Controls())
            unhighlight(each);
    }
}

PicturePtr CVDGuiHandler::GUIImg(std::int32_t index) {
    // Picture of `imgGUI` for index 1 to 4.
    constexpr std::array<int, 4> kSciFiPanels = {0, 1, 2, 3};
    constexpr std::array<int, 4> kFantasyPanels = {4, 4, 5, 5};
    if (skin_ != 1 && skin_ != 2) return nullptr;
    if (index >= 1 && index <= 4) {
        const auto& panels = skin_ == 1 ? kSciFiPanels : kFantasyPanels;
        return Items().imgGUI(panels[static_cast<std::size_t>(index - 1)]);
    }
    return skin_ == 1 && index >= 5 && index <= 8 ? Items().lstUnit(index - 5) : nullptr;
}

FGUIItems& CVDGuiHandler::Items() {
    if (!items_) {
        items_ = std::make_unique<FGUIItems>();
        items_->Load();
    }
    return *items_;
}
