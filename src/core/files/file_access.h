#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

/// The one door to the disk. Paths are the platform's own bytes. Failures are run-time errors: 53 no such file, 76 no
/// such folder, 75 no permission or not a regular file, 61 disk full or a file larger than its user may have, 57 device
/// error. What isn't a regular file is never opened: a pipe would hold the program, a device may act.
namespace MFileAccess {

/// Larger files are refused (error 7): no document comes near this, and a hostile one must not fill the memory.
inline constexpr std::size_t kMaxFileSize = std::size_t{256} << 20;

/// Whether a path that ends in a link is followed or is error 75.
enum class Links { Followed, Refused };

/// The whole content of a regular file. Nothing else is opened: that alone can set a device going.
std::string ReadWholeFile(const std::string& path, Links links = Links::Followed);

/// Makes `content` the content of the file, whole or not at all: it is written beside the target, flushed to disk and
/// renamed over it. A link is followed, and an existing file keeps its mode and owner. A target whose mode forbids
/// writing is refused, also to root.
void ReplaceFile(const std::string& path, std::string_view content);

/// A file that is written piece by piece. Close it by hand where a failure must be told.
struct SCloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using CFilePtr = std::unique_ptr<std::FILE, SCloseFile>;

/// Opens a file of the program's own, one that it can do without, for writing; what it held is gone. Only the file of
/// this very name is written to: a link in its place, symbolic or hard, gives way to a new file.
CFilePtr OpenEmpty(const std::string& path);

/// Raises the run-time error for an `errno` that an operation on the file left.
[[noreturn]] void RaiseFor(int error, const std::string& path);

/// Copies a file's bytes by way of ReplaceFile. A file isn't copied onto itself, nor by way of a link that stands in
/// its place: that is error 75.
void CopyFile(const std::string& from, const std::string& to);

/// Deletes a file; one that isn't there is error 53.
void DeleteFile(const std::string& path);

/// 0 nothing there, 1 a folder, -1 a file.
int KindOf(const std::string& path);

void MakeFolder(const std::string& path);

/// What changes when somebody writes to a file: enough to see that a copy in memory is stale.
struct CFileStamp {
    bool exists = false;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;

    bool operator==(const CFileStamp&) const = default;
};
CFileStamp StampOf(const std::string& path);

/// False while the file was changed so recently that the next change could bear the same time.
bool IsSettled(const CFileStamp& stamp);

}  // namespace MFileAccess
