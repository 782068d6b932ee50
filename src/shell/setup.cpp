#include "shell/setup.h"

#include "controls/layout.h"
#include "core/files/profile.h"
#include "core/state/app.h"
#include "shell/setup_groups.h"

namespace {

constexpr int kSkinSciFi = 1;
constexpr int kSkinFantasy = 2;
constexpr int kButtonWidth = 136;

CFileDialog NewDialog(const std::string& label, const std::string& extension, std::uint32_t flags,
                      const std::string& fileName) {
    CFileDialog dialog;
    dialog.Filter = label + extension + ")|*" + extension + "|";
    dialog.DefaultExt = extension;
    dialog.InitDir = MGlobal::DataFolder();
    dialog.FileName = fileName;
    dialog.Flags = flags;
    return dialog;
}

}  // namespace

const std::array<FSetup::SOperation, FSetup::OperationCount> FSetup::Operations = {{
    {"Open / New", &FSetup::Select},
    {"Save", &FSetup::Save},
    {"Save As...", &FSetup::SaveAs},
    {"Import", &FSetup::Import},
    {"Update Costs", &FSetup::UpdateCosts},
    {"Merge", &FSetup::Merge},
}};

FSetup::FSetup() : CForm("FSetup") {
    SetCaption("Setup");
    for (const SGroup& group : Groups) {
        QXTextEdit& field = this->*group.field;
        field.SetPathField(true);
        field.SetLocked(true);
        field.SetAutoSelect(true);
        field.OnChange([this, &group] { PathChanged(group); });
        field.OnLeave([this, &group] { PathLeft(group); });
        for (std::size_t i = 0; i < OperationCount; ++i) {
            QXColorButton* button = Button(group, i);
            if (button == nullptr) continue;
            button->SetCaption(Operations[i].caption);
            button->OnClick([this, i, &group] { (this->*Operations[i].routine)(group); });
        }
    }
    lblSkin.SetCaption("Skin:");
    cmdSkin.SetCaption("Sci-Fi");
    cmdLoad.SetCaption("Load All");
    cmdSave.SetCaption("Save All");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");
    // Load All has no handler: a file is read again by way of its own Open.
    cmdSkin.OnClick([this] { cmdSkin_Click(); });
    cmdSave.OnClick([this] { cmdSave_Click(); });
    cmdOK.OnClick([this] { cmdOK_Click(); });
    cmdCancel.OnClick([this] { cmdCancel_Click(); });
    LayOut();
}

void FSetup::LayOut() {
    auto* column = MLayout::WithFormMargins(MLayout::Column(this, MLayout::GapAboveFrame));
    int number = 0;
    for (const SGroup& group : Groups) {
        auto* grid = MLayout::Grid();
        grid->addWidget(&(this->*group.field), 0, 0, 1, OperationCount);
        for (int operation = 0; operation < OperationCount; ++operation) {
            grid->setColumnStretch(operation, 1);
            grid->setColumnMinimumWidth(operation, kButtonWidth);
            QXColorButton* button = Button(group, static_cast<std::size_t>(operation));
            if (button != nullptr) grid->addWidget(button, 1, operation);
        }
        QXFrame& frame = frmSupportFiles[number++];
        frame.SetCaption(group.caption);
        MLayout::Column(&frame)->addLayout(grid);
        column->addWidget(&frame);
    }
    column->addSpacing(MLayout::FrameGap);
    column->addStretch(1);
    lblTip.SetPadding(10);
    lblTip.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // no tip widens the form
    column->addWidget(&lblTip);
    column->addSpacing(MLayout::FrameGap);

    auto* bottom = MLayout::Row();
    lblSkin.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    bottom->addWidget(&lblSkin);
    bottom->addWidget(&cmdSkin);
    bottom->addStretch(1);
    for (QXColorButton* button : {&cmdLoad, &cmdSave, &cmdOK, &cmdCancel})
        bottom->addWidget(button);
    for (QXColorButton* button : {&cmdSkin, &cmdLoad, &cmdSave, &cmdOK, &cmdCancel})
        button->setMinimumWidth(kButtonWidth);
    column->addLayout(bottom);
}

void FSetup::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    ApplySkin();
    SetUpDialogs();
    for (const SGroup& group : Groups)
        (this->*group.field).SetText(group.path());
    UpdateFileButtons();
}

void FSetup::SetUpDialogs() {
    for (const SGroup& group : Groups) {
        this->*group.dialog = NewDialog(group.label, group.extension, CFileDialog::OverwritePrompt, group.path());
        this->*group.importDialog = NewDialog(group.importLabel, group.importExtension,
                                              CFileDialog::OverwritePrompt | CFileDialog::FileMustExist, "");
    }
}

QXColorButton* FSetup::Button(const SGroup& group, std::size_t operation) {
    const auto button = group.buttons[operation];
    return button != nullptr ? &(this->*button) : nullptr;
}

void FSetup::UpdateFileButtons() {
    for (const SGroup& group : Groups) {
        for (const Operation operation : {OpSave, OpUpdateCosts})
            Button(group, operation)->SetEnabled(!group.path().empty());
    }
}

void FSetup::SaveSettings() {
    CProfile& profile = MApp::Profile();
    bool saved = true;
    for (const auto& [key, path] :
         {std::pair("ArmyRosterFile", MGlobal::ArmyRosterFile()), std::pair("EquipmentFile", MGlobal::EquipmentFile()),
          std::pair("ArmyListFile", MGlobal::ArmyListFile())}) {
        // A line break would end the entry there, and leave a path that was never chosen.
        const bool storable = path.find_first_of("\r\n") == std::string::npos;
        saved = storable && profile.WriteProfile("Files", key, path) && saved;
    }
    if (!saved) MPlatform::ShowCritical("Error while saving defualt settings.");
}

void FSetup::ApplySkin() {
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    cmdSkin.SetBackColor(cmdOK.BackColor());
    cmdSkin.SetForeColor(cmdOK.ForeColor());
}

const char* FSetup::TipOf(const IControl* control) {
    if (control == &cmdLoad) return "Load all the data in the specified files";
    if (control == &cmdSave) return "Save all the data in the specified files";
    for (const SGroup& group : Groups) {
        for (std::size_t i = 0; i < OperationCount; ++i) {
            if (control != nullptr && control == Button(group, i)) return group.tips[i];
        }
    }
    return nullptr;
}

void FSetup::MouseMove(IControl* control) {
    GuiHandler->FollowPointer(control, TipOf(control));
}

void FSetup::PathChanged(const SGroup& group) {
    group.setPath((this->*group.field).Text());
    UpdateFileButtons();
}

void FSetup::PathLeft(const SGroup& group) {
    QXTextEdit& field = this->*group.field;
    const std::string path = field.Text();
    if (!path.empty()) field.SetText(MGlobal::EnsureExtension(path, group.extension));
}

void FSetup::Select(const SGroup& group) {
    MGlobal::PromptSaveModified(group.index);
    CFileDialog& dialog = this->*group.dialog;
    dialog.Flags = CFileDialog::OverwritePrompt;
    if (!MPlatform::Current().ShowOpen(dialog)) return;
    const std::string name = dialog.FileName;
    QXTextEdit& field = this->*group.field;
    // Every group compares with the army list's path: a name equal to that one passes without a question.
    if (name != tedArmyListFile.Text() && MGlobal::FileExists(name) == 0) {
        if (!MPlatform::Ask("File \"" + name + "\"" + group.creationQuestion)) return;
        group.document().Clear();
        field.SetText(name);
        Save(group);
    }
    field.SetText(name);
    if (!group.path().empty() && !group.document().ReadInfo(group.path())) MPlatform::ShowWarning(group.readFailure);
}

void FSetup::Save(const SGroup& group) {
    if (group.path().empty()) {
        SaveAs(group);
    } else if (group.document().WriteInfo(group.path())) {
        MGlobal::SetFileModified(group.index, false);
    } else {
        MPlatform::ShowWarning(group.saveFailure);
    }
}

void FSetup::SaveAs(const SGroup& group) {
    CFileDialog& dialog = this->*group.dialog;
    if (group.saveAsSetsFlags) dialog.Flags = CFileDialog::OverwritePrompt;
    if (!MPlatform::Current().ShowSave(dialog)) return;
    (this->*group.field).SetText(dialog.FileName);
    Save(group);
}

void FSetup::cmdSave_Click() {
    if (!MPlatform::Ask("Save all files?")) return;
    for (const SGroup& group : Groups)
        Save(group);
}

void FSetup::cmdSkin_Click() {
    cmdSkin.SetCaption(cmdSkin.Value() ? "Fantasy" : "Sci-Fi");
    MGlobal::SetSkinId(cmdSkin.Value() ? kSkinFantasy : kSkinSciFi);
    ApplySkin();
}

void FSetup::cmdOK_Click() {
    SaveSettings();
    Unload();
}
