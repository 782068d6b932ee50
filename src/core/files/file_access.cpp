#include "core/files/file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <random>
#include <utility>

#include "core/files/runtime_error.h"

namespace MFileAccess {

namespace {

class CDescriptor {
  public:
    explicit CDescriptor(int number) : number_(number) {}
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    ~CDescriptor() {
        if (IsOpen()) ::close(number_);
    }

    int Number() const { return number_; }
    bool IsOpen() const { return number_ != kClosed; }
    /// Closing is part of what may fail, so writers do it by hand.
    bool Close() { return ::close(Release()) == 0; }
    /// Leaves the closing to somebody else.
    int Release() { return std::exchange(number_, kClosed); }

  private:
    static constexpr int kClosed = -1;
    int number_;
};

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Opens a file for writing. Where the user may only write files of a certain size, the platform sends a signal that
// ends the program, unless somebody catches it; then the write fails as on a full disk. A handler, unlike a signal that
// is ignored, isn't handed down to the programs that this one starts.
int OpenForWriting(const std::string& path, int flags, mode_t mode) {
    [[maybe_unused]] static const auto former = std::signal(SIGXFSZ, [](int) {});
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | flags, mode);
}

// Follows links by hand, since the file at their end may not exist yet.
std::string ResolveLinks(std::string path) {
    constexpr int kMaxLinks = 40;
    for (int followed = 0; followed < kMaxLinks; ++followed) {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        if (length < 0) return path;
        const std::string to(target, static_cast<std::size_t>(length));
        path = to.starts_with('/') ? to : FolderOf(path) + "/" + to;
    }
    throw CRuntimeError(ErrorNumber::PathFileAccess);
}

void WriteAll(int descriptor, std::string_view content, const std::string& path) {
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            RaiseFor(errno, path);
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

// A file of our own beside the target, removed again unless it became the target.
class CNeighbour {
  public:
    CNeighbour(const std::string& folder, mode_t mode) : path_(FreeName(folder)), file_(OpenNew(path_, mode)) {}
    CNeighbour(const CNeighbour&) = delete;
    CNeighbour& operator=(const CNeighbour&) = delete;
    ~CNeighbour() {
        if (!renamed_) ::unlink(path_.c_str());
    }

    int Number() const { return file_.Number(); }
    void RenameOver(const std::string& target) {
        if (!file_.Close()) RaiseFor(errno, target);
        if (::rename(path_.c_str(), target.c_str()) != 0) RaiseFor(errno, target);
        renamed_ = true;
    }

  private:
    // Short, so that it fits wherever the target's own name does.
    static std::string FreeName(const std::string& folder) {
        std::random_device random;
        std::string path;
        do {
            path = folder + "/.vd" + std::to_string(random());
        } while (KindOf(path) != 0);
        return path;
    }
    static int OpenNew(const std::string& path, mode_t mode) {
        const int number = OpenForWriting(path, O_EXCL, mode);
        if (number < 0) RaiseFor(errno, path);
        return number;
    }

    std::string path_;
    CDescriptor file_;
    bool renamed_ = false;
};

}  // namespace

std::string ReadWholeFile(const std::string& path, Links links) {
    if (path.find('\0') != std::string::npos) throw CRuntimeError(ErrorNumber::FileNotFound);
    const bool follow = links == Links::Followed;
    struct stat info {};
    if ((follow ? ::stat(path.c_str(), &info) : ::lstat(path.c_str(), &info)) != 0) RaiseFor(errno, path);
    if (!S_ISREG(info.st_mode)) throw CRuntimeError(ErrorNumber::PathFileAccess);
    // Not blocking, and looked at again: the name may have gone to another file.
    CDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | (follow ? 0 : O_NOFOLLOW)));
    if (!file.IsOpen() || ::fstat(file.Number(), &info) != 0) RaiseFor(errno, path);
    if (!S_ISREG(info.st_mode)) throw CRuntimeError(ErrorNumber::PathFileAccess);
    if (static_cast<std::uint64_t>(info.st_size) > kMaxFileSize) throw CRuntimeError(ErrorNumber::OutOfMemory);

    std::string content(static_cast<std::size_t>(info.st_size), '\0');
    std::size_t filled = 0;
    while (filled < content.size()) {
        const ssize_t count = ::read(file.Number(), content.data() + filled, content.size() - filled);
        if (count < 0) {
            if (errno == EINTR) continue;
            RaiseFor(errno, path);
        }
        if (count == 0) break;  // shortened while it was read
        filled += static_cast<std::size_t>(count);
    }
    content.resize(filled);
    return content;
}

void ReplaceFile(const std::string& path, std::string_view content) {
    if (path.empty()) throw CRuntimeError(ErrorNumber::PathFileAccess);
    const std::string target = ResolveLinks(path);
    const std::string folder = FolderOf(target);

    struct stat former {};
    const bool exists = ::stat(target.c_str(), &former) == 0;
    if (exists) {
        const bool writable = (former.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
        if (!S_ISREG(former.st_mode) || !writable || ::access(target.c_str(), W_OK) != 0) {
            throw CRuntimeError(ErrorNumber::PathFileAccess);
        }
    } else if (errno != ENOENT) {
        RaiseFor(errno, target);
    }

    CNeighbour neighbour(folder, exists ? mode_t{S_IRUSR | S_IWUSR} : mode_t{0666});
    if (exists) {
        // Owner first: changing it clears mode bits. Only root can give a file away; for others the group is the most
        // that can be kept, and a save that is refused for it would be worse.
        if (::fchown(neighbour.Number(), former.st_uid, former.st_gid) != 0) {
            (void)!::fchown(neighbour.Number(), static_cast<uid_t>(-1), former.st_gid);
        }
        if (::fchmod(neighbour.Number(), former.st_mode & 07777) != 0) RaiseFor(errno, target);
    }
    WriteAll(neighbour.Number(), content, target);
    if (::fsync(neighbour.Number()) != 0) RaiseFor(errno, target);
    neighbour.RenameOver(target);

    // The new name must survive a power cut too. A folder that can't be flushed is no failure: the file is whole.
    const CDescriptor folderFile(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folderFile.IsOpen()) ::fsync(folderFile.Number());
}

CFilePtr OpenEmpty(const std::string& path) {
    constexpr mode_t kMode = 0666;
    struct stat former {};
    const bool exists = ::lstat(path.c_str(), &former) == 0;
    const bool link = exists && (S_ISLNK(former.st_mode) || (S_ISREG(former.st_mode) && former.st_nlink > 1));
    if (path.empty() || (exists && !link && !S_ISREG(former.st_mode))) throw CRuntimeError(ErrorNumber::PathFileAccess);
    if (link && ::unlink(path.c_str()) != 0) RaiseFor(errno, path);

    CDescriptor file(OpenForWriting(path, 0, kMode));
    struct stat info {};
    if (!file.IsOpen() || ::fstat(file.Number(), &info) != 0) RaiseFor(errno, path);
    if (!S_ISREG(info.st_mode) || info.st_nlink > 1) throw CRuntimeError(ErrorNumber::PathFileAccess);
    if (::ftruncate(file.Number(), 0) != 0) RaiseFor(errno, path);
    CFilePtr stream(::fdopen(file.Number(), "wb"));
    if (!stream) RaiseFor(errno, path);
    file.Release();
    return stream;
}

[[noreturn]] void RaiseFor(int error, const std::string& path) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ENAMETOOLONG:
            throw CRuntimeError(KindOf(FolderOf(path)) == 1 ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            throw CRuntimeError(ErrorNumber::DiskFull);
        case EIO:
            throw CRuntimeError(ErrorNumber::DeviceError);
        case ENOMEM:
            throw CRuntimeError(ErrorNumber::OutOfMemory);
        default:
            throw CRuntimeError(ErrorNumber::PathFileAccess);
    }
}

void CopyFile(const std::string& from, const std::string& to) {
    const CFileStamp source = StampOf(from);
    const CFileStamp target = StampOf(to);
    if (source.exists && target.exists && source.device == target.device && source.inode == target.inode) {
        throw CRuntimeError(ErrorNumber::PathFileAccess);
    }
    ReplaceFile(to, ReadWholeFile(from, Links::Refused));
}

void DeleteFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0) RaiseFor(errno, path);
}

int KindOf(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return 0;
    return S_ISDIR(info.st_mode) ? 1 : -1;
}

void MakeFolder(const std::string& path) {
    if (::mkdir(path.c_str(), 0777) != 0) RaiseFor(errno, path);
}

CFileStamp StampOf(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return {};
    return {true,
            static_cast<std::uint64_t>(info.st_dev),
            static_cast<std::uint64_t>(info.st_ino),
            static_cast<std::int64_t>(info.st_size),
            static_cast<std::int64_t>(info.st_mtim.tv_sec),
            static_cast<std::int64_t>(info.st_mtim.tv_nsec)};
}

bool IsSettled(const CFileStamp& stamp) {
    constexpr std::int64_t kCoarsestClock = 2;  // seconds between two times that a file system can tell apart
    return !stamp.exists || ::time(nullptr) - stamp.modifiedSeconds > kCoarsestClock;
}

}  // namespace MFileAccess
