// The operations of the setup form that change a working document from another source.

#include <QScopeGuard>
#include <QScopedValueRollback>

#include "core/state/merge.h"
#include "equipment/army_tables.h"
#include "shell/setup_groups.h"
#include "units/army_list.h"

void FSetup::Import(const SGroup& group) {
    QXColorButton* button = Button(group, OpImport);
    CFileDialog& sourceDialog = this->*group.importDialog;
    CFileDialog& targetDialog = this->*group.dialog;
    setEnabled(false);
    button->SetEnabled(false);
    // The target may be new, also where a merge has left its dialog looking for a file that is there.
    const QScopedValueRollback flags(targetDialog.Flags, targetDialog.Flags & ~CFileDialog::FileMustExist);
    const auto atTheEnd = qScopeGuard([&] {
        setEnabled(true);
        button->SetEnabled(true);
        sourceDialog.DialogTitle.clear();
        (this->*group.untitledDialog).DialogTitle.clear();
    });

    sourceDialog.DialogTitle = "Select the file to import";
    if (!MPlatform::Current().ShowOpen(sourceDialog)) return;
    targetDialog.DialogTitle = "Select V2 target file name:";
    if (!MPlatform::Current().ShowSave(targetDialog)) return;
    const std::string target = targetDialog.FileName;

    if (!group.document().ImportInfoV1(sourceDialog.FileName)) MPlatform::ShowWarning(group.importReadFailure);
    {
        // Whatever the sync meets: what was imported never goes by the name of the former file.
        const auto named = qScopeGuard([&] {
            group.setPath(target);
            (this->*group.field).SetText(target);
        });
        if (group.syncAfterImport != nullptr) MGlobal::WarnOfMissing(MGlobal::kItemsNotFound, group.syncAfterImport());
    }
    if (group.document().WriteInfo(target)) {
        MPlatform::ShowInformation("Import complete");
    } else {
        MPlatform::ShowWarning(group.importSaveFailure);
    }
}

void FSetup::UpdateCosts(const SGroup& group) {
    MGlobal::WarnOfMissing(group.updateHeading, group.updateCosts());
    if (MPlatform::Ask("Recalculation Complete. Save changes to file?")) Save(group);
}

void FSetup::Merge(const SGroup& group) {
    CFileDialog& dialog = this->*group.dialog;
    dialog.Flags = CFileDialog::OverwritePrompt | CFileDialog::FileMustExist;
    if (!MPlatform::Current().ShowOpen(dialog)) return;
    if (dialog.FileName == (this->*group.field).Text()) {
        MPlatform::ShowWarning("You cannot merge data from the current file, choose a different file.");
        return;
    }
    (this->*group.merge)(group);
    MPlatform::ShowInformation("Merge terminated");
}

void FSetup::MergeEquipment(const SGroup& group) {
    TakeIn(MGlobal::ArmyTables(), group);
}

void FSetup::MergeArmyList(const SGroup& group) {
    TakeIn(MGlobal::ArmyList(), group);
}

template <class TDocument>
void FSetup::TakeIn(TDocument& document, const SGroup& group) {
    TDocument source;
    if (!source.ReadInfo((this->*group.dialog).FileName)) MPlatform::ShowWarning(group.readFailure);
    // First, for an error half way: what was taken in up to there is to be offered for saving.
    MGlobal::SetFileModified(group.index, true);
    MMerge::Merge(document, source);
}
