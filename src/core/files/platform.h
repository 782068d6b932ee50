#pragma once

#include <cstdint>
#include <string>

/// Kind of a message box: the icon that it bears. A plain box has none.
enum class BoxKind { Plain, Critical, Warning, Question, Information };
/// Button row of a message box. The first button is the default.
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// Settings of an open or save dialog. They belong to the form that shows it and persist between shows.
struct CFileDialog {
    /// Flag words as the platform's dialog knows them.
    enum Flag : std::uint32_t {
        OverwritePrompt = 0x2,
        HideReadOnly = 0x4,
        PathMustExist = 0x800,
        FileMustExist = 0x1000
    };

    std::string DialogTitle;  ///< UTF-8; empty reads "Open" or "Save As"
    std::string Filter;       ///< pairs of display text and patterns, joined and closed by "|"; patterns joined by ";"
    std::string DefaultExt;   ///< ".html" or "*.jpg": added to a name that ends in none of the filter's
    std::string InitDir;      ///< path of the first folder; a full path in FileName wins over it
    std::string FileName;     ///< path bytes: the name offered; after the dialog the last choice, kept on Cancel
    std::uint32_t Flags = 0;
};

struct CAppVersion {
    int Major = 0;
    int Minor = 0;
    int Revision = 0;
};

/// Something that can print itself once the user has confirmed the print dialog. The toolkit's floor knows the concrete
/// one.
class IPrintJob {
  public:
    virtual ~IPrintJob() = default;
};

/// What the program needs of the machine and the toolkit. Box and caption texts are UTF-8, paths are the platform's own
/// bytes.
class IPlatform {
  public:
    virtual ~IPlatform() = default;

    /// Shows a modal box under the application title. A box without Cancel can't be dismissed.
    virtual BoxAnswer ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) = 0;

    /// Both give false on Cancel; on true `dialog.FileName` is the full path chosen.
    virtual bool ShowOpen(CFileDialog& dialog) = 0;
    virtual bool ShowSave(CFileDialog& dialog) = 0;
    /// Shows the print dialog and prints on acceptance; false on Cancel.
    virtual bool ShowPrint(IPrintJob& job) = 0;

    /// Opens a file or address with the program that the desktop has for it; a value above 32 means success.
    virtual int ShellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                             const std::string& folder, int showMode) = 0;

    virtual std::string ApplicationFolder() const = 0;  ///< folder of the executable, without a closing separator
    virtual std::string ExecutableName() const = 0;     ///< without path and extension
    virtual std::string Title() const = 0;
    virtual CAppVersion Version() const = 0;

    /// True when another instance with the same application folder is running.
    virtual bool PreviousInstance() = 0;
    virtual void ProcessEvents() = 0;
    virtual void SetBusyPointer(bool busy) = 0;
};

/// The platform in use. Installed once before anything else runs; tests install their own.
namespace MPlatform {
void Install(IPlatform* platform);
IPlatform& Current();

/// `name` in the application folder.
std::string InApplicationFolder(const std::string& name);

/// Boxes with a single OK button, by severity.
void ShowPlain(const std::string& text);
void ShowCritical(const std::string& text);
void ShowWarning(const std::string& text);
void ShowInformation(const std::string& text);
/// Question with Yes and No; true on Yes.
bool Ask(const std::string& text);
}  // namespace MPlatform
