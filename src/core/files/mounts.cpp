#include "core/files/mounts.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <deque>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace MMounts {

namespace {

constexpr std::array<std::string_view, 3> kRefused = {"autofs", "proc", "sysfs"};

// Blanks, line ends and backslashes stand in a list of mounts as three octal digits behind a backslash.
std::string Unescaped(const std::string& field) {
    const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const bool escaped = field[i] == '\\' && field.size() - i > 3 &&
                             std::all_of(field.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                         field.begin() + static_cast<std::ptrdiff_t>(i) + 4, isOctal);
        text += escaped ? static_cast<char>(std::stoi(field.substr(i + 1, 3), nullptr, 8)) : field[i];
        if (escaped) i += 3;
    }
    return text;
}

bool IsIn(const std::string& path, const std::string& folder) {
    if (folder == "/") return true;
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

void PutFirst(std::deque<std::string>& names, const std::string& path) {
    std::istringstream text(path);
    std::deque<std::string> first;
    for (std::string name; std::getline(text, name, '/');)
        first.push_back(name);
    names.insert(names.begin(), first.begin(), first.end());
}

}  // namespace

bool IsRefused(const std::string& path, std::string_view mountInfo) {
    std::istringstream lines{std::string(mountInfo)};
    std::size_t longest = 0;
    bool refused = false;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        const std::vector<std::string> words(std::istream_iterator<std::string>{fields}, {});
        const auto dash = std::find(words.begin(), words.end(), "-");
        constexpr std::size_t kMountPoint = 4;
        if (words.size() <= kMountPoint || words.end() - dash < 2) continue;
        const std::string point = Unescaped(words[kMountPoint]);
        // Of two on the same folder the later one covers the other: so it is with what has been mounted by itself.
        if (point.size() < longest || !IsIn(path, point)) continue;
        longest = point.size();
        refused = std::find(kRefused.begin(), kRefused.end(), dash[1]) != kRefused.end();
    }
    return refused;
}

std::string Resolve(const std::string& path) {
    std::ifstream file("/proc/self/mountinfo");
    const std::string mountInfo(std::istreambuf_iterator<char>(file), {});
    constexpr int kMaxLinks = 40;
    int followed = 0;
    std::deque<std::string> names;
    PutFirst(names, path);
    std::string resolved;
    while (!names.empty()) {
        const std::string name = names.front();
        names.pop_front();
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            resolved.erase(std::min(resolved.rfind('/'), resolved.size()));
            continue;
        }
        const std::string next = resolved + "/" + name;
        if (IsRefused(next, mountInfo)) return {};
        char target[PATH_MAX];
        const ssize_t length = ::readlink(next.c_str(), target, sizeof target);
        if (length < 0) {
            resolved = next;
            continue;
        }
        if (++followed > kMaxLinks) return {};
        const std::string to(target, static_cast<std::size_t>(length));
        if (to.starts_with('/')) resolved.clear();
        PutFirst(names, to);
    }
    return resolved;
}

}  // namespace MMounts
