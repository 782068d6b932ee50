#pragma once

#include <array>
#include <memory>
#include <string>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/text_edit.h"
#include "core/files/platform.h"
#include "shell/look/gui_handler.h"

/// Chooses, creates and saves the three working files, brings other data into them, and picks the skin. It acts on the
/// shared documents directly.
///
/// A file that is chosen here is in force for the rest of the run at once; OK makes it the one of the next start too.
class FSetup : public CForm {
  public:
    FSetup();

  protected:
    void Form_Load() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override;

  private:
    /// What can be done with a working file, in the order of the buttons.
    enum Operation { OpSelect, OpSave, OpSaveAs, OpImport, OpUpdateCosts, OpMerge, OperationCount };
    static constexpr int GroupCount = 3;
    /// All that tells the group of one working file from the others; setup_groups.h.
    struct SGroup;
    static const std::array<SGroup, GroupCount> Groups;
    struct SOperation {
        const char* caption;
        void (FSetup::*routine)(const SGroup& group);
    };
    static const std::array<SOperation, OperationCount> Operations;

    void LayOut();
    void SetUpDialogs();
    void UpdateFileButtons();
    void SaveSettings();
    void ApplySkin();
    /// Nothing for what has no tip.
    const char* TipOf(const IControl* control);
    /// Nothing where the file lacks the operation.
    QXColorButton* Button(const SGroup& group, std::size_t operation);

    void PathChanged(const SGroup& group);
    void PathLeft(const SGroup& group);
    void Select(const SGroup& group);
    void Save(const SGroup& group);
    void SaveAs(const SGroup& group);
    // Those that change a document from another source; setup_transfer.cpp.
    void Import(const SGroup& group);
    void UpdateCosts(const SGroup& group);
    void Merge(const SGroup& group);
    void MergeEquipment(const SGroup& group);
    void MergeArmyList(const SGroup& group);
    template <class TDocument>
    void TakeIn(TDocument& document, const SGroup& group);

    void cmdSave_Click();
    void cmdSkin_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { Unload(); }

    std::unique_ptr<CVDGuiHandler> GuiHandler;

    CControlArray<QXFrame, GroupCount> frmSupportFiles{this, "frmSupportFiles"};
    QXTextEdit tedEqFile{this, "tedEqFile"};
    QXColorButton cmdEqFileSelect{this, "cmdEqFileSelect"};
    QXColorButton cmdEqFileSave{this, "cmdEqFileSave"};
    QXColorButton cmdEqFileSaveAs{this, "cmdEqFileSaveAs"};
    QXColorButton cmdImportEqFile{this, "cmdImportEqFile"};
    QXColorButton cmdRecalculateEquipmentList{this, "cmdRecalculateEquipmentList"};
    QXColorButton cmdEqFileMerge{this, "cmdEqFileMerge"};
    QXTextEdit tedArmyListFile{this, "tedArmyListFile"};
    QXColorButton cmdArmyListFileSelect{this, "cmdArmyListFileSelect"};
    QXColorButton cmdArmyListFileSave{this, "cmdArmyListFileSave"};
    QXColorButton cmdArmyListFileSaveAs{this, "cmdArmyListFileSaveAs"};
    QXColorButton cmdImportArmyList{this, "cmdImportArmyList"};
    QXColorButton cmdRecalculateArmyList{this, "cmdRecalculateArmyList"};
    QXColorButton cmdArmyListMerge{this, "cmdArmyListMerge"};
    QXTextEdit tedArmyRosterFile{this, "tedArmyRosterFile"};
    QXColorButton cmdArmyRosterFileSelect{this, "cmdArmyRosterFileSelect"};
    QXColorButton cmdArmyRosterFileSave{this, "cmdArmyRosterFileSave"};
    QXColorButton cmdArmyRosterFileSaveAs{this, "cmdArmyRosterFileSaveAs"};
    QXColorButton cmdImportArmyRoster{this, "cmdImportArmyRoster"};
    QXColorButton cmdRecalculateArmyRoster{this, "cmdRecalculateArmyRoster"};
    QXLabel lblTip{this, "lblTip"};
    QXLabel lblSkin{this, "lblSkin"};
    QXColorButton cmdSkin{this, "cmdSkin"};
    QXColorButton cmdLoad{this, "cmdLoad"};
    QXColorButton cmdSave{this, "cmdSave"};
    QXColorButton cmdOK{this, "cmdOK"};
    QXColorButton cmdCancel{this, "cmdCancel"};

    CFileDialog dlgEqFile;
    CFileDialog dlgImportEqFile;
    CFileDialog dlgArmyListFile;
    CFileDialog dlgImportArmyListFile;
    CFileDialog dlgArmyRosterFile;
    CFileDialog dlgImportArmyRosterFile;
};
