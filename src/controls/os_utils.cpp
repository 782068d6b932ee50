#include "controls/os_utils.h"

#include "core/files/platform.h"

int MOsUtils::ShellOpen(const std::string& file, const std::string& parameters, const std::string& folder,
                        const std::string& verb, long /*window*/, int showMode) {
    return MPlatform::Current().ShellExecute(verb, file, parameters, folder, showMode);
}
