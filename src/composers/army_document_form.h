#pragma once

#include <cstdint>
#include <string>

#include "composers/picture_controls.h"
#include "shell/look/edit_form.h"

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
    const char* deleteQuestion;
    const char* reloadQuestion;
    const char* readFailure;
};

/// What the forms of the army list and of the roster share: they edit a working document directly, its name,
/// description and picture, and have the same commands. There is no undo but Reload.
class FArmyDocumentForm : public FEditForm {
  public:
    explicit FArmyDocumentForm(const SArmyDocumentTerms& terms);

  protected:
    virtual CArmyDocument& Document() const = 0;
    /// Writes the whole document into the controls; calls ShowFields.
    virtual void ShowItem() = 0;
    virtual void ShowPage(FArmyRoster& viewer) = 0;
    virtual void cmdSaveChanges_Click() = 0;
    /// The list of the document has changed.
    virtual void ContentChanged(std::int16_t editState);
    /// The document has been read again, or would have been.
    virtual void Reloaded() { EditState = 0; }

    /// Name, description and picture, the rows of a form's head.
    QGridLayout* LayOutFields();
    /// The part of ShowItem that concerns these; under `Loading`.
    void ShowFields();

    void Form_Load() override;

    CPictureControls Picture;

  private:
    enum Commands { DeleteAll, UpdateCosts, Reload, ViewList, Unused };

    const std::string& DocumentFile() const override { return terms_.file(); }
    bool WriteDocument() const override;
    void SetItemName(const std::string& name) override;
    void SetItemDescr(const std::string& descr) override;
    void cmdDeleteAll_Click();
    void cmdUpdateCosts_Click();
    void cmdReload_Click();
    void cmdViewList_Click();

    SArmyDocumentTerms terms_;
};
