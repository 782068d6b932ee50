#pragma once

#include <string>
#include <string_view>

#include "core/files/file_access.h"
#include "core/files/profile_text.h"

/// Reads and writes one key of one section of an INI file at a time: the settings file, and each working document.
///
/// A missing file reads as if it held no keys. A value has at most 254 characters when read; a stored "*not_found*"
/// can't be told from a missing key. Names ignore case, values are 8-bit text and are stored raw: no text of the
/// model holds a line break.
class CProfile {
  public:
    enum class Mode {
        KeyByKey,  ///< each write reaches the file, each read sees what others wrote
        Gathered,  ///< the file is read once; writes stay in memory until Commit
    };

    /// The application's settings file, key by key.
    CProfile();
    /// A document, read once.
    static CProfile ForReading(const std::string& path);
    /// A document to be written anew: starts from an empty text, whatever the file holds.
    static CProfile ForSaving(const std::string& path);

    const std::string& ProfileName() const { return path_; }
    void SetProfileName(const std::string& path);

    /// False for a missing key, which leaves `value` as it was.
    bool ReadProfile(std::string_view section, std::string_view key, std::string& value);
    /// False when the file can't be written; the error is remembered.
    bool WriteProfile(std::string_view section, std::string_view key, std::string_view value);
    bool KeyExists(std::string_view section, std::string_view key);

    /// Replaces the file by what was gathered, whole or not at all; false on failure.
    bool Commit();

  private:
    CProfile(const std::string& path, Mode mode);
    void Load();
    bool IsStale() const;

    std::string path_;
    Mode mode_ = Mode::KeyByKey;
    CProfileText text_;
    MFileAccess::CFileStamp stamp_;
    bool settled_ = false;  // whether the stamp was old enough, when it was taken, to show any later change
};
