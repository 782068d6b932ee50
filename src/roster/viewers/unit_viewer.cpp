#include "roster/viewers/unit_viewer.h"

#include "controls/layout.h"
#include "core/state/global.h"

namespace {

constexpr QSize kSize(860, 420);
constexpr QSize kButton(140, 36);

// A flag of this system is all bits or none.
constexpr std::int16_t kTrue = -1;

}  // namespace

FUnitViewer::FUnitViewer() : CForm("FUnitViewer") {
    SetCaption("Unit Viewer");
    cmdExit.SetCaption("Close");
    cmdExit.OnClick([this] { cmdExit_Click(); });

    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    setFixedSize(kSize);
    constexpr int kEdge = MLayout::FormMargin;
    const int buttonTop = kSize.height() - kEdge - kButton.height();
    rosArmy.setGeometry(kEdge, kEdge, kSize.width() - 2 * kEdge, buttonTop - MLayout::FrameGap - kEdge);
    cmdExit.setGeometry(QRect(QPoint(kSize.width() - kEdge - kButton.width(), buttonTop), kButton));
}

// The page keeps its own palette: `Skin` is left alone.
void FUnitViewer::Form_Load() {
    rosArmy.SetArmyList(&MGlobal::ArmyList());
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
}

void FUnitViewer::ShowUnit(const CGenUnit& unit, std::int16_t fileNumber) {
    Load();
    rosArmy.Pages().ShowUnit(unit, fileNumber);
}

void FUnitViewer::ShowSingleUnit(const CUnit& unit, std::int16_t fileNumber) {
    Load();
    rosArmy.Pages().ShowSingleUnit(unit, fileNumber);
}

void FUnitViewer::ShowMultiUnit(const CMultUnit& squad, bool flag) {
    Load();
    rosArmy.Pages().ShowMultiUnit(squad, flag ? kTrue : std::int16_t{0});
}

void FUnitViewer::MouseMove(IControl* control) {
    GuiHandler->FollowPointer(control);
}

void FUnitViewer::cmdExit_Click() {
    Unload();
}
