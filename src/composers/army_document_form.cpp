#include "composers/army_document_form.h"

#include "controls/layout.h"
#include "core/files/platform.h"
#include "roster/viewers/army_roster.h"
#include "units/army_document.h"

FArmyDocumentForm::FArmyDocumentForm(const SArmyDocumentTerms& terms)
    : FEditForm(terms.formName, terms.caption, terms.index), Picture(this, terms.pictureTip), terms_(terms) {
    Menu.SetCommand(DeleteAll, "Delete All Units", [this] { cmdDeleteAll_Click(); });
    Menu.SetCommand(UpdateCosts, "Update Costs", [this] { cmdUpdateCosts_Click(); });
    Menu.SetCommand(Reload, "Reload", [this] { cmdReload_Click(); });
    Menu.SetCommand(ViewList, terms.viewCaption, [this] { cmdViewList_Click(); });
    Menu.SetCommand(Unused, "Unused");
    Menu.SetCommand(SaveChanges, "Save Changes", [this] { cmdSaveChanges_Click(); });
    Picture.OnEdited([this] { MarkEdited(); });
}

QGridLayout* FArmyDocumentForm::LayOutFields() {
    auto* fields = MLayout::Grid();
    fields->addWidget(&lblName, 0, 0);
    fields->addWidget(&tedName, 0, 1, 1, 3);
    fields->addWidget(&lblDescr, 1, 0);
    fields->addWidget(&tedDescr, 1, 1, 1, 3);
    fields->addWidget(&Picture.lblPictureFile, 2, 0);
    fields->addWidget(&Picture.tedPictureFile, 2, 1);
    fields->addWidget(&Picture.cmdPictureFileSelect, 2, 2);
    fields->addWidget(&Picture.cmdPictureFileClear, 2, 3);
    fields->addWidget(&Picture.lblPictureTip, 3, 1, 1, 3);
    fields->addWidget(&Picture.imgPicture, 0, 4, 3, 1);
    fields->setColumnStretch(1, 1);
    Picture.tedPictureFile.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);  // as high as its buttons
    // The rows below stay where they are when the tip comes and goes.
    QSizePolicy tipPolicy = Picture.lblPictureTip.sizePolicy();
    tipPolicy.setRetainSizeWhenHidden(true);
    Picture.lblPictureTip.setSizePolicy(tipPolicy);
    return fields;
}

void FArmyDocumentForm::Form_Load() {
    FEditForm::Form_Load();
    Picture.Load(Document());
}

void FArmyDocumentForm::ShowFields() {
    tedName.SetText(Document().Name());
    tedDescr.SetText(Document().Descr());
    Picture.ShowItem();
}

void FArmyDocumentForm::SetItemName(const std::string& name) {
    Document().SetName(name);
}

void FArmyDocumentForm::SetItemDescr(const std::string& descr) {
    Document().SetDescr(descr);
}

bool FArmyDocumentForm::WriteDocument() const {
    return Document().WriteInfo(DocumentFile());
}

void FArmyDocumentForm::ContentChanged(std::int16_t editState) {
    NoteListChange();
    EditState = editState;
}

void FArmyDocumentForm::cmdDeleteAll_Click() {
    if (!MPlatform::Ask(terms_.deleteQuestion)) return;
    Document().ArmyUnits().Clear();
    ContentChanged(1);
    ShowItem();
}

void FArmyDocumentForm::cmdUpdateCosts_Click() {
    NoteListChange();
    try {
        MGlobal::WarnOfMissing(terms_.missingHeading, terms_.updateCosts());
    } catch (...) {
        ShowItem();  // what was renewed up to the error is there to be seen and saved
        ContentChanged(2);
        throw;
    }
    ShowItem();
    ContentChanged(2);
    MPlatform::ShowInformation("Recalculation complete.");
}

// Speaks of the roster and its file for both documents.
void FArmyDocumentForm::cmdReload_Click() {
    const std::string& file = terms_.file();
    if (file.empty()) {
        MPlatform::ShowCritical("No army roster file selected.");
    } else {
        if (MPlatform::Current().ShowBox(BoxKind::Question, BoxButtons::OkCancel, terms_.reloadQuestion) ==
            BoxAnswer::Cancel) {
            return;
        }
        if (MGlobal::FileExists(file) < 1) {
            MPlatform::ShowWarning("File \"" + MGlobal::ArmyRosterFile() + "\" does not exits.");
        } else {
            // Also where the reading fails: the changes are gone, and what is left of the list is not worth a file.
            NoteListInStep();
            if (!Document().ReadInfo(file)) MPlatform::ShowWarning(terms_.readFailure);
        }
    }
    ShowItem();
    Reloaded();
}

void FArmyDocumentForm::cmdViewList_Click() {
    FArmyRoster viewer;
    ShowPage(viewer);
    viewer.ShowModal(this);
}
