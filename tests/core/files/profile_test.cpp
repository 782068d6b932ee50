#include "core/files/profile.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <random>
#include <sstream>

#include "core/files/file_access.h"
#include "core/files/file_format.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"

namespace fs = std::filesystem;

namespace {

class ProfileTest : public CoreTest {
  protected:
    const std::string settings_ = folder_ / "vdtools2.ini";  // the profile that works key by key
    CProfile profile_;
    CArmyTables tables_;
};

// The fields of a line, parted by tabs, with \r, \n, \t and \xNN replaced.
std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream parts(line + "\t");
    for (std::string field; std::getline(parts, field, '\t'); fields.push_back(field)) {
        for (std::size_t at = field.find('\\'); at != std::string::npos; at = field.find('\\', at + 1)) {
            const char escape = field[at + 1];
            const int code = escape == 'x' ? std::stoi(field.substr(at + 2, 2), nullptr, 16)
                                           : std::map<char, int>{{'r', '\r'}, {'n', '\n'}, {'t', '\t'}}.at(escape);
            field.replace(at, escape == 'x' ? 4 : 2, 1, static_cast<char>(code));
        }
    }
    return fields;
}

TEST_F(ProfileTest, BehavesAsObserved) {
    std::ifstream file(TEST_DATA "/profile_cases.txt");
    std::string path;
    mode_t mode = 0;
    int cases = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        const auto record = Fields(line);
        std::string value = "untouched";
        SCOPED_TRACE(path + ": " + line);
        if (record[0] == "case") {
            ++cases;
            path = folder_ / record[1];
            mode = 0644;
            profile_.SetProfileName(path);
        } else if (line == "setup\tfolder_missing") {
            profile_.SetProfileName(folder_ / "missing/p.ini");
        } else if (line == "setup\tfile_read_only") {
            mode = 0444;
        } else if (record[0] == "before") {
            WriteBytes(path, record[1]);
            ::chmod(path.c_str(), mode);
        } else if (record[0] == "after") {
            EXPECT_EQ(ReadBytes(path), record[1]);
        } else if (record[0] == "write") {
            EXPECT_EQ(profile_.WriteProfile(record[1], record[2], record[3]), record[4] == "ok");
        } else {
            EXPECT_EQ(profile_.ReadProfile(record[1], record[2], value), record[0] == "read");
            EXPECT_EQ(value, record[0] == "read" ? record[3] : "untouched");
        }
    }
    EXPECT_EQ(cases, 27);
    EXPECT_FALSE(fs::exists(folder_ / "missing"));
}

// What was written step by step is what a reader of the whole text finds, odd names and values included.
TEST(ProfileText, StaysInStepWithItsText) {
    const std::string names[] = {"A", "a", "B", "C_1", " D ", "", "x]y", "[", ";c", "k=v", "two words"};
    const std::string values[] = {"", "v", " v ", "a=b", "[A]", "x\r\n[B]\r\nA=inserted", "\n", "\"q\"", ";"};
    std::mt19937 random(3);
    const auto any = [&random](const auto& of) { return of[random() % std::size(of)]; };
    for (int round = 0; round < 200; ++round) {
        CProfileText text(round % 2 == 0 ? "" : "[b]\nA=1\n\n;A=2\n[B]\nA=3\n[c_1]");
        for (int step = 0; step < 12; ++step) {
            text.Set(any(names), any(names), any(values));
            CProfileText fresh(text.Text());
            for (const std::string& section : names) {
                for (const std::string& key : names)
                    ASSERT_EQ(text.Find(section, key), fresh.Find(section, key)) << text.Text();
            }
        }
    }
}

TEST_F(ProfileTest, ForeseesWhatADocumentGivesBack) {
    const std::string x(253, 'x');
    const std::pair<std::string, std::string> kCases[] = {{"\v a b\f\t", "a b"}, {"\"'x'\"", "x"},
                                                          {"' \"x ' ", "\"x"},   {x + "yz", x + "y"},
                                                          {x + " y", x},         {"'*not_found*'", ""}};
    for (const auto& [text, kept] : kCases) {
        EXPECT_EQ(MFileFormat::AsFileGivesBack(text), kept) << text;
        tables_.SetName(text);
        for (int trip = 0; trip < 3; ++trip)
            EXPECT_TRUE(tables_.WriteInfo(folder_ / "d") && tables_.ReadInfo(folder_ / "d")) << text;
        EXPECT_EQ(tables_.Name(), kept) << "in a document";
    }
}

TEST_F(ProfileTest, KeyByKeySeesWhatOthersWrite) {
    CProfile other;
    std::string value;
    for (const char* text : {"one", "two", "six"}) {  // of one length and within one tick of the clock
        WriteBytes(settings_, "[S]\r\nk=" + std::string(text) + "\r\n");
        EXPECT_TRUE(profile_.ReadProfile("S", "k", value));
        EXPECT_EQ(value, text);
    }
    EXPECT_TRUE(other.WriteProfile("S", "theirs", "1") && profile_.WriteProfile("S", "mine", "2"));
    EXPECT_EQ(ReadBytes(settings_), "[S]\r\nk=six\r\ntheirs=1\r\nmine=2\r\n");
}

TEST_F(ProfileTest, WhatCannotBeReadIsNotReplaced) {
    Save("vdtools2.ini", "");
    fs::resize_file(settings_, MFileAccess::kMaxFileSize + 1);
    EXPECT_FALSE(profile_.KeyExists("S", "k") || profile_.WriteProfile("S", "k", "v"));
    EXPECT_EQ(fs::file_size(settings_), MFileAccess::kMaxFileSize + 1);
}

TEST_F(ProfileTest, SavingKeepsModeOwnerAndLink) {
    const std::string real = Save("real", "old");
    ::chmod(real.c_str(), 0640);
    EXPECT_EQ(::chown(real.c_str(), 12345, 23456) == 0, ::geteuid() == 0);
    struct stat before {};
    struct stat after {};
    ::stat(real.c_str(), &before);
    fs::create_symlink("real", folder_ / "link");
    fs::create_symlink("link", folder_ / "link2");
    fs::create_symlink("loop", folder_ / "loop");
    EXPECT_TRUE(tables_.WriteInfo(folder_ / "link2"));
    EXPECT_FALSE(tables_.WriteInfo(folder_ / "loop"));
    ::stat(real.c_str(), &after);
    EXPECT_EQ(std::tie(after.st_mode, after.st_uid, after.st_gid),
              std::tie(before.st_mode, before.st_uid, before.st_gid));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link") && fs::is_symlink(folder_ / "link2"));
    EXPECT_TRUE(ReadBytes(real).starts_with("[TOP]\r\n"));
}

TEST_F(ProfileTest, RefusedSaveLeavesEverythingAsItWas) {
    ::chmod(Save("readonly", "former").c_str(), 0444);
    fs::create_directory(folder_ / "folder");
    for (const char* name : {"readonly", "folder", "missing/x"})
        EXPECT_FALSE(tables_.WriteInfo(folder_ / name)) << name;

    tables_.SetDescr(std::string(5000, 'x'));
    Save("d", "former");
    EXPECT_FALSE(OnFullDisk([&] { return tables_.WriteInfo(folder_ / "d"); }));
    EXPECT_EQ(MLastError::Number(), 61);
    EXPECT_EQ(ReadBytes(folder_ / "readonly") + ReadBytes(folder_ / "d"), "formerformer");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 3);
}

// So that whoever kills the program at any time finds the former file or the new one.
TEST_F(ProfileTest, FormerFileIsNeitherWrittenNorRemovedBeforeTheNewOneTakesItsPlace) {
    ASSERT_TRUE(tables_.WriteInfo(folder_ / "d"));
    const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(watch, folder_.Path().c_str(), IN_ALL_EVENTS), 0);
    EXPECT_TRUE(tables_.WriteInfo(folder_ / "d"));
    alignas(inotify_event) char events[4096];
    const ssize_t size = ::read(watch, events, sizeof events);
    ::close(watch);
    std::uint32_t happened = 0;
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(events + at);
        if (event->len > 0 && std::string(event->name) == "d") happened |= event->mask;
        at += static_cast<ssize_t>(sizeof *event + event->len);
    }
    EXPECT_EQ(happened, IN_MOVED_TO);
}

}  // namespace
