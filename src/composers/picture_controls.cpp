#include "composers/picture_controls.h"

#include <algorithm>

#include "controls/ansi_qt.h"
#include "core/files/ansi_text.h"
#include "core/files/runtime_error.h"
#include "core/state/global.h"
#include "units/army_document.h"

namespace {

// The place of the picture beside three rows of fields, in pixels.
constexpr int kHeight = 113;
constexpr int kNarrowest = 80;
constexpr int kWidest = 200;

int WidthFor(const CPicture& picture) {
    return std::clamp(picture.Size().scaled(QWIDGETSIZE_MAX, kHeight, Qt::KeepAspectRatio).width(), kNarrowest,
                      kWidest);
}

}  // namespace

CPictureControls::CPictureControls(CForm* form, std::string_view tip)
    : lblPictureFile(form, "lblPictureFile"),
      tedPictureFile(form, "tedPictureFile"),
      cmdPictureFileSelect(form, "cmdPictureFileSelect"),
      cmdPictureFileClear(form, "cmdPictureFileClear"),
      imgPicture(form, "imgPicture"),
      lblPictureTip(form, "lblPictureTip") {
    lblPictureFile.SetCaption("Picture:");
    cmdPictureFileSelect.SetCaption("Select");
    cmdPictureFileClear.SetCaption("Clear");
    lblPictureTip.SetCaption(tip);
    imgPicture.SetLabel(lblPictureFile);
    imgPicture.SetPreferredSize(QSize(kNarrowest, kHeight));
    imgPicture.SetVisible(false);
    lblPictureTip.SetVisible(false);

    cmdPictureFileSelect.OnClick([this] { cmdPictureFileSelect_Click(); });
    cmdPictureFileClear.OnClick([this] { cmdPictureFileClear_Click(); });
    tedPictureFile.OnChange([this] { tedPictureFile_Change(); });
}

void CPictureControls::Load(CArmyDocument& document) {
    document_ = &document;
    lblPictureTip.SetFontSize(10);
    dialog_.InitDir = MPlatform::InApplicationFolder("Data");
    dialog_.Flags = CFileDialog::FileMustExist | CFileDialog::OverwritePrompt;
    dialog_.Filter = "Image Files (*.jpg;*.gif;*.bmp))|*.jpg;*.gif;*.bmp|";
    dialog_.DefaultExt = "*.jpg";
    dialog_.FileName = CPicture::DocumentPicturePath(document.PictureFile());
}

void CPictureControls::ShowItem() {
    tedPictureFile.SetText(document_->PictureFile());
}

void CPictureControls::cmdPictureFileSelect_Click() {
    Trap([this] {
        // The dialog would look for a relative path in a folder of its own.
        const std::string file = tedPictureFile.Text();
        const std::string path = CPicture::DocumentPicturePath(file);
        if (path != MAnsiText::ToUtf8(file) && MGlobal::FileExists(path) > 0) dialog_.FileName = path;
        if (!MPlatform::Current().ShowOpen(dialog_)) return false;
        tedPictureFile.SetText(ToAnsi(FromPath(dialog_.FileName)));
        return true;
    });
}

void CPictureControls::cmdPictureFileClear_Click() {
    tedPictureFile.SetText("");
}

void CPictureControls::tedPictureFile_Change() {
    try {
        TakePicture(tedPictureFile.Text());
    } catch (...) {
        const CRuntimeError error = CurrentRuntimeError();
        MLastError::Remember(error);
        MPlatform::ShowCritical("Error while loading image (" + std::to_string(error.Number()) + " : " +
                                error.Description() + ")");
    }
}

void CPictureControls::TakePicture(const std::string& file) {
    const CBusyPointer busy;
    const PicturePtr picture = file.empty() ? nullptr : CPicture::LoadDocumentPicture(file);
    if (picture) imgPicture.setFixedWidth(WidthFor(*picture));
    imgPicture.SetPicture(picture);
    imgPicture.SetVisible(picture != nullptr);
    document_->SetPictureFile(file);
    lblPictureTip.SetVisible(imgPicture.Visible());
    if (edited_) edited_();
}
