#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "core/files/platform.h"

/// A platform without windows: boxes and dialogs are expected in order, each with its exact text, kind and buttons, and
/// get the answer prepared for them. One that is not expected fails the running test, and so does one that never came
/// (`Verify`, which the destructor calls). Installs itself, and puts the former platform back.
class CScriptedPlatform : public IPlatform {
  public:
    CScriptedPlatform();
    ~CScriptedPlatform() override;
    CScriptedPlatform(const CScriptedPlatform&) = delete;
    CScriptedPlatform& operator=(const CScriptedPlatform&) = delete;

    // What is to come, in this order.
    void ExpectBox(BoxKind kind, BoxButtons buttons, const std::string& text, BoxAnswer answer = BoxAnswer::Ok);
    /// The dialog gets `fileName`; an empty name is Cancel. `look` sees its settings first.
    void ExpectOpen(const std::string& fileName, std::function<void(const CFileDialog&)> look = nullptr);
    void ExpectSave(const std::string& fileName, std::function<void(const CFileDialog&)> look = nullptr);
    /// `print` gets the job when the answer is to print.
    void ExpectPrint(bool accept, std::function<void(IPrintJob&)> print = nullptr);
    /// Fails the test if anything expected hasn't come, and forgets it.
    void Verify();

    struct SShellExecute {
        std::string Verb;
        std::string File;
        std::string Parameters;
        std::string Folder;
        int ShowMode = 0;
    };

    std::string Folder = "/nowhere";  ///< application folder
    CAppVersion AppVersion{2, 2, 0};
    bool Previous = false;                     ///< another instance runs
    std::vector<SShellExecute> ShellExecutes;  ///< what was opened
    bool Busy = false;                         ///< it is up now

    BoxAnswer ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) override;
    bool ShowOpen(CFileDialog& dialog) override { return ShowFile("open dialog", dialog); }
    bool ShowSave(CFileDialog& dialog) override { return ShowFile("save dialog", dialog); }
    bool ShowPrint(IPrintJob& job) override;
    int ShellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                     const std::string& folder, int showMode) override;
    std::string ApplicationFolder() const override { return Folder; }
    std::string ExecutableName() const override { return "vdtools2"; }
    std::string Title() const override { return "VdTools2"; }
    CAppVersion Version() const override { return AppVersion; }
    bool PreviousInstance() override { return Previous; }
    void ProcessEvents() override {}
    void SetBusyPointer(bool busy) override { Busy = busy; }

  private:
    struct SExpected {
        std::string what;  // one line that tells it, texts of boxes included
        BoxAnswer answer = BoxAnswer::Ok;
        bool accept = false;
        std::string fileName;
        std::function<void(const CFileDialog&)> look;
        std::function<void(IPrintJob&)> print;
    };

    bool Next(const std::string& what, SExpected& expected);
    bool ShowFile(const std::string& what, CFileDialog& dialog);

    IPlatform* former_ = nullptr;
    std::deque<SExpected> expected_;
};
