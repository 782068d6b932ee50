#include "roster/viewers/army_roster.h"

#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/file_access.h"
#include "core/files/runtime_error.h"
#include "core/state/global.h"
#include "units/army_roster.h"

namespace {

constexpr QSize kOpening(1040, 720);
constexpr QSize kSmallest(480, 320);
constexpr QSize kButton(140, 36);

}  // namespace

FArmyRoster::FArmyRoster() : CForm("FArmyRoster") {
    SetCaption("Army Roster");
    cmdSaveAs.SetCaption("Save As...");
    cmdPrint.SetCaption("Print");
    cmdExit.SetCaption("Close");
    cmdSaveAs.OnClick([this] { cmdSaveAs_Click(); });
    cmdPrint.OnClick([this] { cmdPrint_Click(); });
    cmdExit.OnClick([this] { cmdExit_Click(); });

    resize(kOpening);
    setMinimumSize(kSmallest);
    constexpr int kEdge = MLayout::FormMargin;
    const int buttonTop = kOpening.height() - kEdge - kButton.height();
    rosArmy.setGeometry(kEdge, kEdge, kOpening.width() - 2 * kEdge, buttonTop - MLayout::FrameGap - kEdge);
    cmdSaveAs.setGeometry(QRect(QPoint(kEdge, buttonTop), kButton));
    cmdPrint.setGeometry(QRect(QPoint(kEdge + kButton.width() + MLayout::Gap, buttonTop), kButton));
    cmdExit.setGeometry(QRect(QPoint(kOpening.width() - kEdge - kButton.width(), buttonTop), kButton));
}

void FArmyRoster::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    rosArmy.SetSkin(MGlobal::SkinId());
    rosArmy.SetArmyList(&MGlobal::ArmyList());

    const int pageBottom = rosArmy.y() + rosArmy.height();
    bottomGap_ = height() - pageBottom;
    buttonGap_ = cmdExit.y() - pageBottom;
    rightGap_ = width() - rosArmy.x() - rosArmy.width();

    defaultFileName_ = "myarmy.html";
    dlgSaveAs.InitDir = MPlatform::InApplicationFolder("Data");
    dlgSaveAs.Filter = "VD Army Report (*.html)|*.html|";
    dlgSaveAs.DefaultExt = ".html";
    dlgSaveAs.FileName = defaultFileName_;
}

void FArmyRoster::Form_Resize() {
    rosArmy.resize(width() - rosArmy.x() - rightGap_, height() - rosArmy.y() - bottomGap_);
    const int buttonTop = rosArmy.y() + rosArmy.height() + buttonGap_;
    cmdExit.move(width() - rightGap_ - cmdExit.width(), buttonTop);
    cmdPrint.move(cmdPrint.x(), buttonTop);
    cmdSaveAs.move(cmdSaveAs.x(), buttonTop);
}

void FArmyRoster::SetPage(const std::string& caption, const std::string& fileName) {
    SetCaption(caption);
    // The toolkit puts the program's name in the place of an empty title.
    if (caption.empty()) setWindowTitle(QStringLiteral(" "));
    dlgSaveAs.FileName = MAnsiText::ToUtf8(fileName);
}

void FArmyRoster::ShowArmyRoster(const CArmyRoster& roster) {
    Load();
    SetPage(roster.Name(), roster.Name() + ".html");
    rosArmy.Pages().ShowArmyRoster(roster);
}

void FArmyRoster::ShowArmyList(const CArmyList& list) {
    Load();
    SetPage(list.Name(), list.Name() + ".html");
    rosArmy.Pages().ShowArmyList(list);
}

void FArmyRoster::ShowWeaponList(const CEqList& list, const std::string& name) {
    Load();
    SetPage("Army Weapons", "Weapons of " + name + ".html");
    rosArmy.Pages().ShowWeaponList(list);
}

void FArmyRoster::ShowAccessoryList(const CEqList& list, const std::string& name) {
    Load();
    SetPage("Army Accessories", "Accessories of " + name + ".html");
    rosArmy.Pages().ShowAccessoryList(list);
}

void FArmyRoster::MouseMove(IControl* control) {
    GuiHandler->FollowPointer(control);
}

void FArmyRoster::cmdExit_Click() {
    Unload();
}

void FArmyRoster::cmdPrint_Click() {
    rosArmy.Pages().PrintRoster();
}

// The page exists already as the temporary file. Whatever fails here stays silent.
void FArmyRoster::cmdSaveAs_Click() {
    const std::string page = MPlatform::InApplicationFolder("tmproster.html");
    try {
        while (MPlatform::Current().ShowSave(dlgSaveAs)) {
            const std::string path = dlgSaveAs.FileName;
            if (path == page) {
                MPlatform::ShowWarning("File name not valid. Please choose a different file name.");
                continue;
            }
            const std::string question = "File \"" + path + "\" already exists.\r\n\r\nOverwrite it?";
            if (MGlobal::FileExists(path) != 0 && !MPlatform::Ask(question)) return;
            MFileAccess::CopyFile(page, path);
            return;
        }
    } catch (const std::exception&) {
        MLastError::Remember(CurrentRuntimeError());
    }
}
