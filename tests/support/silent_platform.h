#pragma once

#include <string>
#include <utility>

#include "core/files/platform.h"

/// For programs that run the model with nobody there: boxes are answered with OK and dialogs cancelled.
class CSilentPlatform : public IPlatform {
  public:
    explicit CSilentPlatform(std::string folder) : folder_(std::move(folder)) {}

    BoxAnswer ShowBox(BoxKind, BoxButtons, const std::string&) override { return BoxAnswer::Ok; }
    bool ShowOpen(CFileDialog&) override { return false; }
    bool ShowSave(CFileDialog&) override { return false; }
    bool ShowPrint(IPrintJob&) override { return false; }
    int ShellExecute(const std::string&, const std::string&, const std::string&, const std::string&, int) override {
        return 0;
    }
    std::string ApplicationFolder() const override { return folder_; }
    std::string ExecutableName() const override { return "vdtools2"; }
    std::string Title() const override { return "VdTools2"; }
    CAppVersion Version() const override { return {2, 2, 0}; }
    bool PreviousInstance() override { return false; }
    void ProcessEvents() override {}
    void SetBusyPointer(bool) override {}

  private:
    std::string folder_;
};
