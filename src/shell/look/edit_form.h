#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "controls/form.h"
#include "controls/label.h"
#include "controls/text_edit.h"
#include "core/state/global.h"
#include "shell/look/gui_handler.h"
#include "shell/look/menu_panel.h"

/// What makers and composers have in common: the menu panel, the name and the description of what they edit, and the
/// working document that a change belongs to. A form that closes with a change in hand marks its document as modified,
/// and so does one whose list has changed since it was last saved, whatever became of its edit state and of the mark.
class FEditForm : public CForm {
  public:
    FEditForm(const char* formName, const char* caption, MGlobal::Document document);

  protected:
    /// The last of the commands, which needs a file; those of a form itself come before it.
    static constexpr int SaveChanges = CMenuPanel::kCommands - 1;
    enum EditStates : std::int16_t { Unchanged = 0, Edited = 1 };  ///< forms may have more

    /// File of the document; empty for none yet.
    virtual const std::string& DocumentFile() const = 0;
    virtual bool WriteDocument() const = 0;
    virtual void SetItemName(const std::string& name) = 0;
    virtual void SetItemDescr(const std::string& descr) = 0;

    void Form_Load() override;
    void Form_Activate() override;
    bool QueryUnload() override;
    void ClosingFailed() override { SetModified(true); }
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override { GuiHandler->FollowPointer(control); }

    /// The menu panel at the left, and at its right what the form consists of.
    void LayOutBesideMenu(QLayout* content);
    void SetModified(bool modified) { MGlobal::SetFileModified(document_, modified); }
    /// To be told of each change of the document's list, before or as soon as it is made.
    void NoteListChange() { listUnsaved_ = true; }
    /// List and file are the same again.
    void NoteListInStep() { listUnsaved_ = false; }
    /// False after a warning.
    bool SaveDocument(const char* failure);
    /// The user has changed something; what the form itself writes into its controls doesn't count.
    void MarkEdited() {
        if (!Loading) EditState = Edited;
    }

    bool Loading = false;  ///< the form writes into its own controls, whose events then count for nothing
    std::int16_t EditState = Unchanged;
    std::unique_ptr<CVDGuiHandler> GuiHandler;

    CMenuPanel Menu{this};
    QXLabel lblName{this, "lblName"};
    QXTextEdit tedName{this, "tedName"};
    QXLabel lblDescr{this, "lblDescr"};
    QXTextEdit tedDescr{this, "tedDescr"};

  private:
    void tedName_Change();
    void tedDescr_Change();

    MGlobal::Document document_;
    bool listUnsaved_ = false;  ///< also from before the form opened
};
