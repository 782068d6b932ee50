#include "core/files/document.h"

#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"

bool CDocument::WriteInfo(const std::string& path) {
    return Trap([&] {
        CProfile profile = CProfile::ForSaving(path);
        return MFileFormat::WriteFileVersion(&profile) && profile.WriteProfile("TOP", "ENTRY", Tag()) &&
               profile.WriteProfile("TOP", "VERSION", std::to_string(version_)) &&
               profile.WriteProfile("TOP", "NAME", name_) && profile.WriteProfile("TOP", "DESCR", descr_) &&
               WriteHead(profile) && WriteLists(profile) && profile.Commit();
    });
}

bool CDocument::ReadInfo(const std::string& path) {
    return Trap([&] {
        ResetLists();
        CProfile profile = CProfile::ForReading(path);
        std::int16_t major = 0;
        std::int16_t minor = 0;
        std::string text;
        if (!MFileFormat::ReadFileVersion(&profile, major, minor)) return false;
        if (!profile.ReadProfile("TOP", "ENTRY", text) || text != Tag()) return false;
        if (profile.ReadProfile("TOP", "VERSION", text)) MNumberText::ToInt16(text);
        name_.clear();
        profile.ReadProfile("TOP", "NAME", name_);
        descr_.clear();
        profile.ReadProfile("TOP", "DESCR", descr_);
        ReadHead(profile);
        return ReadLists(profile);
    });
}

bool CDocument::ImportInfoV1(const std::string& path) {
    return Trap([&] {
        ResetLists();
        CSequentialInput file(path);
        std::int16_t major = 0;
        std::int16_t minor = 0;
        if (!MFileFormat::ReadFileVersionV1(file, major, minor) || !file.ReadTag(Tag())) return false;
        for (int discarded = 0; discarded < 3; ++discarded)
            file.ReadInt16();
        name_ = file.ReadText();
        descr_ = file.ReadText();
        ImportHead(file);
        return ImportLists(file);
    });
}

void CDocument::Clear() {
    name_.clear();
    descr_.clear();
    ResetLists();
}
