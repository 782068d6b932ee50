#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "composers/picture_controls.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/text_edit.h"
#include "core/state/global.h"
#include "shell/look/gui_handler.h"
#include "shell/look/menu_panel.h"

class CArmyDocument;
class FArmyRoster;
class QGridLayout;

/// In what the forms of the army documents differ.
struct SArmyDocumentTerms {
    const char* formName;
    const char* caption;
    const char* pictureTip;
    const char* viewCaption;  ///< of the command that shows the document as a page
    MGlobal::Document index;  ///< of the modified flag
    const std::string& (*file)();
    std::string (*updateCosts)();  ///< gives what couldn't be found
    const char* missingHeading;    ///< in front of what couldn't be found
    const char* reloadQuestion;
    const char* readFailure;
};

/// What the forms of the army list and of the roster share: they edit a working document directly, its name,
/// description and picture, and have the same commands. There is no undo but Reload.
class FArmyDocumentForm : public CForm {
  public:
    explicit FArmyDocumentForm(const SArmyDocumentTerms& terms);

  protected:
    virtual CArmyDocument& Document() const = 0;
    /// Writes the whole document into the controls; calls ShowFields.
    virtual void ShowItem() = 0;
    virtual void ShowPage(FArmyRoster& viewer) = 0;
    virtual void cmdSaveChanges_Click() = 0;
    /// The content of the document has changed.
    virtual void ContentChanged(std::int16_t editState) { EditState = editState; }
    /// The document has been read again, or would have been.
    virtual void Reloaded() { EditState = 0; }

    /// Name, description and picture, the rows of a form's head.
    QGridLayout* LayOutFields();
    /// The part of ShowItem that concerns these; under `Loading`.
    void ShowFields();

    void Form_Load() override;
    void Form_Activate() override;
    bool QueryUnload() override;
    void ClosingFailed() override { SetModified(true); }
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override { GuiHandler->FollowPointer(control); }

    void SetModified(bool modified) { MGlobal::SetFileModified(terms_.index, modified); }

    bool Loading = false;
    std::int16_t EditState = 0;  ///< any but 0 marks the document as modified at closing
    std::unique_ptr<CVDGuiHandler> GuiHandler;

    CMenuPanel Menu{this};
    QXLabel lblName{this, "lblName"};
    QXTextEdit tedName{this, "tedName"};
    QXLabel lblDescr{this, "lblDescr"};
    QXTextEdit tedDescr{this, "tedDescr"};
    CPictureControls Picture;

  private:
    enum Commands { DeleteAll, UpdateCosts, Reload, ViewList, Unused, SaveChanges };

    void Edited();
    void tedName_Change();
    void tedDescr_Change();
    void cmdDeleteAll_Click();
    void cmdUpdateCosts_Click();
    void cmdReload_Click();
    void cmdViewList_Click();

    SArmyDocumentTerms terms_;
};
