#include "controls/control.h"

#include "controls/ansi_qt.h"
#include "controls/fonts.h"
#include "core/files/runtime_error.h"

IControl::IControl(CForm* form, const char* name, std::optional<int> index) : form_(form), name_(name), index_(index) {
    form_->Register(this);
}

IControl::~IControl() {
    form_->Unregister(this);
}

int IControl::Index() const {
    if (!index_) throw CRuntimeError(ErrorNumber::InvalidCall);
    return *index_;
}

void IControl::SetTabStop(bool on) {
    Widget().setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
}

void IControl::SetToolTipText(std::string_view text) {
    toolTip_ = text;
    ShowToolTip();
}

void IControl::SetWholeText(const QString& text) {
    if (text == wholeText_) return;  // a change of the tip is an event, and labels come here from each painting
    wholeText_ = text;
    ShowToolTip();
}

void IControl::ShowToolTip() {
    const QString shown = toolTip_.empty() ? wholeText_ : ForDisplay(FromAnsi(toolTip_));
    // Escaped and marked, so that no text is taken for markup of its own. A screen reader would read the marks.
    Widget().setToolTip(shown.isEmpty() ? QString() : QStringLiteral("<qt>%1</qt>").arg(shown.toHtmlEscaped()));
    Widget().setAccessibleDescription(shown);
}

void IControl::SetLabel(IControl& label) {
    label_ = &label;
}

void IControl::RaiseByUser(const std::function<void()>& handler) {
    if (!handler) return;
    // A copy: the handler may give the control another one.
    const std::function<void()> copy = handler;
    form_->Handle(copy);
}

QFont IControl::LookFont() const {
    return MFonts::Make(fontName_, fontSize_, fontBold_);
}
