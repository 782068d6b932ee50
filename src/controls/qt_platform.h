#pragma once

#include <string>

#include "core/files/platform.h"

/// The platform with real windows. Needs a `CQtApplication`.
class CQtPlatform : public IPlatform {
  public:
    CQtPlatform();
    ~CQtPlatform() override;
    CQtPlatform(const CQtPlatform&) = delete;
    CQtPlatform& operator=(const CQtPlatform&) = delete;

    BoxAnswer ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) override;
    bool ShowOpen(CFileDialog& dialog) override;
    bool ShowSave(CFileDialog& dialog) override;
    bool ShowPrint(IPrintJob& job) override;
    int ShellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                     const std::string& folder, int showMode) override;
    std::string ApplicationFolder() const override;
    std::string ExecutableName() const override;
    std::string Title() const override;
    CAppVersion Version() const override;
    bool PreviousInstance() override;
    void ProcessEvents() override;
    void SetBusyPointer(bool busy) override;

  private:
    bool ShowFileDialog(CFileDialog& dialog, bool save);

    bool busy_ = false;
    int lock_ = -1;
};
