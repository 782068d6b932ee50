#include "shell/look/menu_panel.h"

#include <utility>

#include "controls/layout.h"

namespace {

constexpr QSize kPictureSize(190, 86);
constexpr int kTopPicture = 3;
constexpr int kBottomPicture = 4;

}  // namespace

CMenuPanel::CMenuPanel(CForm* form)
    : frmMenu(form, "frmMenu"),
      imgMenuTop(form, "imgMenuTop"),
      cmdMenu(form, "cmdMenu"),
      imgMenuBottom(form, "imgMenuBottom"),
      cmdExit(form, "cmdExit") {
    frmMenu.SetPanel(true);
    frmMenu.setFixedWidth(kPictureSize.width());
    cmdExit.SetCaption("Close");
    form->SetCloseButton(cmdExit);

    auto* column = MLayout::Column(&frmMenu);
    const auto addPicture = [column](CPictureBox& picture) {
        picture.SetPreferredSize(kPictureSize);
        picture.setFixedSize(kPictureSize);
        column->addWidget(&picture);
    };
    addPicture(imgMenuTop);
    for (int index = 0; index < kCommands; ++index) {
        column->addWidget(&cmdMenu[index]);
        cmdMenu[index].SetVisible(false);
    }
    column->addStretch(1);
    addPicture(imgMenuBottom);
    column->addWidget(&cmdExit);
}

void CMenuPanel::SetCommand(int index, std::string_view caption, std::function<void()> routine) {
    QXColorButton& button = cmdMenu[index];
    button.SetCaption(caption);
    button.SetVisible(routine != nullptr);
    button.OnClick(std::move(routine));
}

void CMenuPanel::ShowPictures(CVDGuiHandler& handler) {
    imgMenuTop.SetPicture(handler.GUIImg(kTopPicture));
    imgMenuBottom.SetPicture(handler.GUIImg(kBottomPicture));
}
