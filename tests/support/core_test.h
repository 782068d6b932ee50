#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/files/runtime_error.h"
#include "support/scripted_platform.h"

/// A folder of the test's own, gone with the test.
class CTestFolder {
  public:
    CTestFolder() {
        std::string name = testing::TempDir() + "vdtools2-XXXXXX";
        path_ = ::mkdtemp(name.data());
    }
    CTestFolder(const CTestFolder&) = delete;
    CTestFolder& operator=(const CTestFolder&) = delete;
    ~CTestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

/// Runs an operation while no file may grow beyond 1000 bytes: as a full disk does, that lets the beginning through.
template <class TOperation>
auto OnFullDisk(TOperation&& operation) {
    rlimit former{};
    ::getrlimit(RLIMIT_FSIZE, &former);
    const rlimit small{1000, former.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const auto result = operation();
    ::setrlimit(RLIMIT_FSIZE, &former);
    return result;
}

inline std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// `text` with the first occurrence of `from` changed; the test fails where there is none.
inline std::string Changed(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

/// Lines joined by CR LF, as files have them.
inline std::string Lines(std::initializer_list<std::string> lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

/// The number of the run-time error that an operation raises, 0 for none.
template <class TOperation>
int ErrorOf(TOperation&& operation) {
    try {
        operation();
        return 0;
    } catch (const CRuntimeError& error) {
        return error.Number();
    }
}

/// A folder, which is the application folder too, and a platform without windows.
class CoreTest : public testing::Test {
  protected:
    CoreTest() { platform_.Folder = folder_.Path(); }

    /// Writes a file into the folder and gives its path.
    std::string Save(const std::string& name, const std::string& bytes) {
        WriteBytes(folder_ / name, bytes);
        return folder_ / name;
    }

    CTestFolder folder_;
    CScriptedPlatform platform_;
};
