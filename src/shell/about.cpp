#include "shell/about.h"

#include "controls/layout.h"
#include "controls/os_utils.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "shell/product.h"

namespace {

constexpr int kOkWidth = 120;
constexpr QSize kPictureSize(560, 200);

}  // namespace

FAbout::FAbout() : CForm("FAbout") {
    cmdOK.SetCaption("OK");
    cmdOK.setMinimumWidth(kOkWidth);
    lblCopyright.SetCaption(MProduct::Copyright);
    tedNotice.SetLabel(lblDescription);
    Image1.setMinimumSize(kPictureSize);
    cmdLink.OnClick([this] { cmdLink_Click(); });
    cmdOK.OnClick([this] { cmdOK_Click(); });

    auto* heading = MLayout::Row();
    heading->addWidget(&lblTitle);
    heading->addStretch(1);
    heading->addWidget(&lblVersion, 0, Qt::AlignBottom);
    auto* buttons = MLayout::Row(nullptr, MLayout::FrameGap);
    buttons->addWidget(&cmdLink, 1);
    buttons->addWidget(&cmdOK);
    auto* column = MLayout::WithFormMargins(MLayout::Column(this));
    column->addWidget(&Image1, 1);
    column->addLayout(heading);
    column->addWidget(&lblDescription);
    column->addWidget(&lblCopyright);
    column->addWidget(&tedNotice);
    column->addSpacing(MLayout::FrameGap - MLayout::Gap);
    column->addLayout(buttons);
}

void FAbout::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    const std::string title = MPlatform::Current().Title();
    SetCaption("About " + title);
    lblVersion.SetCaption(MProduct::VersionText());
    lblTitle.SetCaption(title);
    lblTitle.SetFontSize(20);
    lblDescription.SetCaption(MProduct::Description);
    tedNotice.SetText(MProduct::Notice());
    tedNotice.setFixedHeight(tedNotice.HeightFor(kPictureSize.width()));  // the form is never narrower
    cmdLink.SetCaption(MProduct::WebAddress);
    Image1.SetPicture(CPicture::FromResource(QStringLiteral(":/splash.svg")));
    resize(minimumSizeHint());
}

void FAbout::MouseMove(IControl* control) {
    GuiHandler->FollowPointer(control);
}

void FAbout::cmdLink_Click() {
    MOsUtils::ShellOpen(MProduct::WebAddress, "", "C:\\", "Open", 0, 1);
}
