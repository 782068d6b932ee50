#pragma once

#include <functional>
#include <string_view>

#include "controls/color_button.h"
#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/text_edit.h"
#include "core/files/platform.h"

class CArmyDocument;

/// The controls by which a form edits the picture of an army document. They register with the form under their own
/// names; the form lays them out.
class CPictureControls {
  public:
    /// `tip` stands beside the picture and comes and goes with it.
    CPictureControls(CForm* form, std::string_view tip);

    /// Form load, after the skin: takes the document and prepares the open dialog.
    void Load(CArmyDocument& document);
    /// Writes the document's picture into the field, which loads it if the text differs.
    void ShowItem();
    /// A change of the field has gone into the document, whoever made it.
    void OnEdited(std::function<void()> handler) { edited_ = std::move(handler); }

    QXLabel lblPictureFile;
    QXTextEdit tedPictureFile;
    QXColorButton cmdPictureFileSelect;
    QXColorButton cmdPictureFileClear;
    CPictureBox imgPicture;
    QXLabel lblPictureTip;

  private:
    void cmdPictureFileSelect_Click();
    void cmdPictureFileClear_Click();
    void tedPictureFile_Change();
    void TakePicture(const std::string& file);

    CArmyDocument* document_ = nullptr;
    CFileDialog dialog_;
    std::function<void()> edited_;
};
