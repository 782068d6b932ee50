#include "shell/console.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <map>

#include "composers/army_composer.h"
#include "composers/army_list.h"
#include "composers/squad_composer.h"
#include "controls/layout.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "makers/accessory_maker.h"
#include "makers/unit_maker.h"
#include "makers/weapon_maker.h"
#include "shell/about.h"
#include "shell/setup.h"

namespace {

constexpr QSize kOpeningSize(800, 600);
constexpr QSize kPanelSize(230, 80);
constexpr int kTitleHeight = 96;
constexpr int kOuterButtonWidth = 140;

}  // namespace

/// All that the console knows of one of its commands. Tips are numbered in this order.
struct FConsole::SCommand {
    QXColorButton FConsole::*button;
    QXFrame FConsole::*group;  ///< none for a button on the form itself
    const char* caption;
    const char* menu;
    const char* entryName;
    const char* entryCaption;
    const char* tip;
    void (FConsole::*handler)();
};

const std::array<FConsole::SCommand, FConsole::CommandCount> FConsole::Commands = {{
    {&FConsole::cmdFiles, &FConsole::frmSetup, "Files", "Setup", "mnuSetup", "Files", "Set up your working files",
     &FConsole::Open<FSetup>},
    {&FConsole::cmdArmyComposer, &FConsole::frmComposers, "Army Roster", "Composers", "mnuArmyComposer",
     "Army Composer", "Compose your army", &FConsole::Open<FArmyComposer>},
    {&FConsole::cmdArmyList, &FConsole::frmComposers, "Army List", "Composers", "mnuArmyList", "Army List",
     "Check the army list", &FConsole::Open<FArmyList>},
    {&FConsole::cmdSquadComposer, &FConsole::frmComposers, "Squad Composer", "Composers", "mnuUnitComposer",
     "Squad Composer", "Compose the squads", &FConsole::Open<FSquadComposer>},
    {&FConsole::cmdUnitMaker, &FConsole::frmMakers, "Unit Maker", "Makers", "mnuUnitMaker", "Unit Maker",
     "Create or modify the basic units", &FConsole::Open<FUnitMaker>},
    {&FConsole::cmdWeaponMaker, &FConsole::frmMakers, "Weapon Maker", "Makers", "mnuWeaponMaker", "Weapon Maker",
     "Create or modify weapons", &FConsole::Open<FWeaponMaker>},
    {&FConsole::cmdAccessoryMaker, &FConsole::frmMakers, "Accessory Maker", "Makers", "mnuAccessoryMaker",
     "Accessory Maker", "Create or modify basic items of equipment", &FConsole::Open<FAccessoryMaker>},
    {&FConsole::cmdAbout, nullptr, "About", "Help", "mnuAbout", "About", "Show application information",
     &FConsole::Open<FAbout>},
    {&FConsole::cmdQuit, nullptr, "Quit", "Setup", "mnuExit", "Exit", "Quit the application", &FConsole::mnuExit_Click},
}};

FConsole::FConsole() : CForm("FConsole") {
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);
    SetCaption(MPlatform::Current().Title());
    frmSetup.SetCaption("Setup");
    frmComposers.SetCaption("Composers");
    frmMakers.SetCaption("Makers");
    lblBeta.SetCaption("BETA");
    for (const SCommand& command : Commands) {
        QXColorButton& button = this->*command.button;
        button.SetCaption(command.caption);
        button.OnClick([this, &command] { (this->*command.handler)(); });
    }
    FillMenu();
    LayOutControls();
    resize(kOpeningSize);
}

void FConsole::FillMenu() {
    std::map<std::string_view, QMenu*> menus;
    for (const SCommand& command : Commands) {
        QMenu*& menu = menus[command.menu];
        if (menu == nullptr) {
            menu = MenuBar().addMenu(QString::fromLatin1(command.menu));
        } else if (command.group == nullptr) {
            menu->addSeparator();
        }
        AddMenuEntry(*menu, command.entryName, command.entryCaption, [this, &command] { (this->*command.handler)(); });
    }
}

void FConsole::LayOutControls() {
    auto* groups = MLayout::Row(nullptr, 2 * MLayout::FrameGap);
    struct SGroup {
        CPictureBox& top;
        QXFrame FConsole::*frame;
        CPictureBox& bottom;
    };
    for (const SGroup& group :
         {SGroup{Image1, &FConsole::frmSetup, Image2}, SGroup{Image3, &FConsole::frmComposers, Image4},
          SGroup{Image5, &FConsole::frmMakers, Image6}}) {
        for (CPictureBox* picture : {&group.top, &group.bottom})
            picture->setMinimumSize(kPanelSize);
        QXFrame& frame = this->*group.frame;
        auto* buttons = MLayout::Column(&frame, MLayout::FrameGap);
        buttons->addStretch(1);
        for (const SCommand& command : Commands) {
            if (command.group == group.frame) buttons->addWidget(&(this->*command.button));
        }
        buttons->addStretch(1);
        auto* column = MLayout::Column(nullptr, 0);
        column->addWidget(&group.top, 5);
        column->addWidget(&frame, 14);
        column->addSpacing(MLayout::Gap);  // as much as the caption takes above the border
        column->addWidget(&group.bottom, 5);
        groups->addLayout(column, 1);
    }

    auto* bottom = MLayout::Row(nullptr, MLayout::FrameGap);
    for (QXColorButton* button : {&cmdAbout, &cmdQuit})
        button->setMinimumWidth(kOuterButtonWidth);
    lblTip.SetPadding(10);
    lblTip.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bottom->addWidget(&cmdAbout);
    bottom->addWidget(&lblTip, 1);
    auto* version = MLayout::Row(nullptr, 0);
    for (QXLabel* label : {&lblVersion, &lblBeta}) {
        label->SetPadding(4);
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        version->addWidget(label);
    }
    bottom->addLayout(version);
    bottom->addWidget(&cmdQuit);

    Image7.setMinimumHeight(kTitleHeight);
    Image7.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* column = MLayout::WithFormMargins(MLayout::Column(this, MLayout::FrameGap));
    column->setMenuBar(&MenuBar());
    column->addWidget(&Image7, 1);
    column->addLayout(groups, 4);
    column->addLayout(bottom);
}

void FConsole::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    Image7.SetPicture(CPicture::FromResource(QStringLiteral(":/title.svg")));
    ApplySkin();
    const CAppVersion version = MPlatform::Current().Version();
    lblVersion.SetCaption(" " + std::to_string(version.Major) + "." + std::to_string(version.Minor));
    for (std::size_t number = 0; number < Tips.size(); ++number)
        Tips[number] = Commands[number].tip;
}

void FConsole::Form_Activate() {
    ApplySkin();
}

void FConsole::ApplySkin() {
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    std::vector<std::string_view> tips;
    for (const SCommand& command : Commands)
        tips.push_back(command.tip);
    lblTip.SetRoomFor(tips);
    lblVersion.SetForeColor(0xCCCCCC);
    lblVersion.SetFontSize(8);
    lblVersion.SetFontBold(false);
    lblBeta.SetForeColor(0x00FFFF);
    for (CPictureBox* top : {&Image1, &Image3, &Image5})
        top->SetPicture(GuiHandler->GUIImg(1));
    for (CPictureBox* bottom : {&Image2, &Image4, &Image6})
        bottom->SetPicture(GuiHandler->GUIImg(2));
}

bool FConsole::QueryUnload() {
    MGlobal::PromptSaveModified(-1);
    return true;
}

void FConsole::Form_Unload() {
    GuiHandler.reset();
}

template <class Form>
void FConsole::Open() {
    Form form;
    form.ShowModal(this);
}

void FConsole::mnuExit_Click() {
    Unload();
}

void FConsole::ShowTip(int number) {
    if (number >= 0 && number < CommandCount) GuiHandler->SetTip(Tips[static_cast<std::size_t>(number)]);
}

int FConsole::TipOf(const IControl* control) {
    for (int number = 0; number < CommandCount; ++number) {
        if (&(this->*Commands[static_cast<std::size_t>(number)].button) == control) return number;
    }
    return -1;
}

void FConsole::MouseMove(IControl* control) {
    const int number = TipOf(control);
    GuiHandler->FollowPointer(number >= 0 ? control : nullptr);
    GuiHandler->ResetTip();
    ShowTip(number);
}
