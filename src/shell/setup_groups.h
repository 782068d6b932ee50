#pragma once

#include <array>
#include <string>

#include "core/files/document.h"
#include "core/state/global.h"
#include "shell/setup.h"

/// A working file as the setup form sees it: controls, document, dialogs and words.
struct FSetup::SGroup {
    /// Caption, and tips and buttons in the order of the operations; no button where a file lacks the operation.
    const char* caption;
    QXTextEdit FSetup::*field;
    std::array<QXColorButton FSetup::*, OperationCount> buttons;
    std::array<const char*, OperationCount> tips;

    MGlobal::Document index;  ///< of the modified flag
    CDocument& (*document)();
    const std::string& (*path)();
    void (*setPath)(const std::string& path);

    /// Save and open dialog of the file, and what their filter says in front of the extension.
    CFileDialog FSetup::*dialog;
    const char* label;
    const char* extension;
    CFileDialog FSetup::*importDialog;
    const char* importLabel;
    const char* importExtension;
    /// The dialog that loses its title after an import, beside the import's own. With the equipment list it is another
    /// group's, so that its own goes on asking for the target of an import.
    CFileDialog FSetup::*untitledDialog;
    /// Save As asks about overwriting only. The army list's takes the flags as the last dialog left them.
    bool saveAsSetsFlags;

    const char* readFailure;
    const char* saveFailure;
    const char* creationQuestion;  ///< behind the name of a file that isn't there
    const char* importReadFailure;
    const char* importSaveFailure;
    std::string (*syncAfterImport)();  ///< nothing where an import stands alone
    std::string (*updateCosts)();
    const char* updateHeading;                   ///< in front of what the update couldn't do
    void (FSetup::*merge)(const SGroup& group);  ///< nothing where there is no button for it
};
