#pragma once

#include <string>
#include <string_view>

/// What stands mounted where, for paths that a document names and nobody chose: looking at some paths makes the system
/// mount something, from a network even, and the files of others are doors into the kernel.
namespace MMounts {

/// True where `path`, absolute and without links, stands on a file system of the kernel's own or on one that would
/// first be mounted for it. `mountInfo` lists what is mounted, in the form of /proc/self/mountinfo.
bool IsRefused(const std::string& path, std::string_view mountInfo);

/// The absolute `path` with all of its links followed, found without mounting anything; empty where it is refused. What
/// isn't there is left as it is.
std::string Resolve(const std::string& path);

}  // namespace MMounts
