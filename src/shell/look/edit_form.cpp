#include "shell/look/edit_form.h"

#include "controls/layout.h"
#include "core/files/platform.h"

namespace {

constexpr int kNameLength = 50;
constexpr int kDescrLength = 100;
constexpr int kFieldWidth = 200;  // at least

}  // namespace

FEditForm::FEditForm(const char* formName, const char* caption, MGlobal::Document document)
    : CForm(formName), document_(document) {
    SetCaption(caption);
    lblName.SetCaption("Name:");
    lblDescr.SetCaption("Description:");
    for (QXTextEdit* field : {&tedName, &tedDescr})
        field->setMinimumWidth(kFieldWidth);
    tedName.OnChange([this] { tedName_Change(); });
    tedDescr.OnChange([this] { tedDescr_Change(); });
}

void FEditForm::LayOutBesideMenu(QLayout* content) {
    auto* form = MLayout::WithFormMargins(MLayout::Row(this, MLayout::FrameGap));
    form->addWidget(&Menu.frmMenu);
    form->addLayout(content, 1);
}

void FEditForm::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    Menu.ShowPictures(*GuiHandler);
    tedName.SetMaxLength(kNameLength);
    tedDescr.SetMaxLength(kDescrLength);
    listUnsaved_ = MGlobal::IsFileModified(document_);
}

void FEditForm::Form_Activate() {
    Menu.cmdMenu[SaveChanges].SetEnabled(!DocumentFile().empty());
}

bool FEditForm::QueryUnload() {
    if (EditState != Unchanged || listUnsaved_) SetModified(true);
    EditState = Unchanged;
    return true;
}

bool FEditForm::SaveDocument(const char* failure) {
    const bool saved = WriteDocument();
    if (saved) {
        NoteListInStep();
    } else {
        MPlatform::ShowWarning(failure);
    }
    return saved;
}

void FEditForm::tedName_Change() {
    SetItemName(tedName.Text());
    MarkEdited();
}

void FEditForm::tedDescr_Change() {
    SetItemDescr(tedDescr.Text());
    MarkEdited();
}
