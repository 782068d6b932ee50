#include "shell/main_procedure.h"

#include <chrono>

#include "core/files/platform.h"
#include "core/state/app.h"
#include "core/state/global.h"
#include "shell/console.h"
#include "shell/splash.h"

namespace MApp {

namespace {

constexpr std::chrono::milliseconds kSplashBound(250);

// Runs a step of the start as an event is run: an error that it lets out is shown. False then.
template <class Step>
bool Guarded(Step&& step) {
    try {
        step();
        return true;
    } catch (const std::exception&) {
        CForm::ReportError(CurrentRuntimeError());
        return false;
    }
}

}  // namespace

std::unique_ptr<CForm> Main() {
    IPlatform& platform = MPlatform::Current();
    if (platform.PreviousInstance()) {
        MPlatform::ShowWarning(platform.Title() + " is already running.");
        return nullptr;
    }

    FSplash splash;
    Guarded([&] {
        splash.SetPrompt("LOADING DATA");
        splash.ShowNonModal();
        platform.ProcessEvents();
        splash.WaitUntilShown(kSplashBound);
    });
    Guarded(&CreateProfile);
    Guarded(&MGlobal::ReadWorkingFileNames);
    Guarded(&MGlobal::CheckDataFolder);
    // The only error that gets out of the loading is a support file whose lines can't be unscrambled. Nobody could work
    // with what would be left.
    const bool loaded = Guarded(&MGlobal::LoadWorkingFiles);
    splash.Hide();
    splash.Unload();
    if (!loaded) return nullptr;

    auto console = std::make_unique<FConsole>();
    if (!Guarded([&] { console->ShowNonModal(); })) return nullptr;
    return console;
}

}  // namespace MApp
