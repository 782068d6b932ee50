#pragma once

#include <string>

namespace MOsUtils {

/// Opens a file or address with the program that the desktop has for it; a value above 32 means success. `window` is
/// the handle of the window that asks; it means nothing here, as the desktop needs none.
int ShellOpen(const std::string& file, const std::string& parameters, const std::string& folder,
              const std::string& verb, long window, int showMode);

}  // namespace MOsUtils
