#pragma once

#include <memory>

#include "controls/form.h"

namespace MApp {

/// The start of the program: gives the console, shown, or nothing when the run ends at once because another instance is
/// running or the support tables are corrupt. The platform must be installed.
std::unique_ptr<CForm> Main();

}  // namespace MApp
