#include "core/files/profile.h"

#include "core/files/platform.h"
#include "core/files/runtime_error.h"

namespace {

constexpr std::string_view kNotFound = "*not_found*";
constexpr std::size_t kLongestValue = 254;

}  // namespace

CProfile::CProfile() : CProfile(std::string(), Mode::KeyByKey) {
    path_ = MPlatform::InApplicationFolder(MPlatform::Current().ExecutableName() + ".ini");
}

CProfile::CProfile(const std::string& path, Mode mode) : path_(path), mode_(mode) {}

CProfile CProfile::ForReading(const std::string& path) {
    CProfile profile(path, Mode::Gathered);
    profile.Load();
    return profile;
}

CProfile CProfile::ForSaving(const std::string& path) {
    return CProfile(path, Mode::Gathered);
}

void CProfile::SetProfileName(const std::string& path) {
    path_ = path;
    text_ = CProfileText();
    stamp_ = {};
    settled_ = false;
    if (mode_ == Mode::Gathered) Load();
}

void CProfile::Load() {
    stamp_ = MFileAccess::StampOf(path_);
    settled_ = MFileAccess::IsSettled(stamp_);
    std::string content;
    // A file that can't be read is, to a reader of keys, one that holds none.
    Trap([&] {
        if (stamp_.exists) content = MFileAccess::ReadWholeFile(path_);
        return true;
    });
    text_ = CProfileText(std::move(content));
}

bool CProfile::IsStale() const {
    return mode_ == Mode::KeyByKey && (!settled_ || !(MFileAccess::StampOf(path_) == stamp_));
}

bool CProfile::ReadProfile(std::string_view section, std::string_view key, std::string& value) {
    if (IsStale()) Load();
    auto found = text_.Find(section, key);
    if (!found) return false;
    *found = found->substr(0, kLongestValue);
    if (*found == kNotFound) return false;
    value.assign(*found);
    return true;
}

bool CProfile::WriteProfile(std::string_view section, std::string_view key, std::string_view value) {
    return Trap([&] {
        if (mode_ == Mode::Gathered) {
            text_.Set(section, key, value);
            return true;
        }
        // From the file, not from memory: what somebody else wrote since must stay. A file that can't be read is not
        // replaced by one that holds a single key.
        CProfileText text(MFileAccess::KindOf(path_) == 0 ? std::string() : MFileAccess::ReadWholeFile(path_));
        text.Set(section, key, value);
        MFileAccess::ReplaceFile(path_, text.Text());
        text_ = std::move(text);
        settled_ = false;
        return true;
    });
}

bool CProfile::KeyExists(std::string_view section, std::string_view key) {
    std::string ignored;
    return ReadProfile(section, key, ignored);
}

bool CProfile::Commit() {
    return Trap([&] {
        MFileAccess::ReplaceFile(path_, text_.Text());
        return true;
    });
}
