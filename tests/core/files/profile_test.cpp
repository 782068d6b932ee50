#include "core/files/profile.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <optional>
#include <random>
#include <sstream>
#include <thread>
#include <vector>

#include "equipment/army_tables.h"
#include "support/core_test.h"

namespace fs = std::filesystem;

namespace {

class ProfileTest : public CoreTest {
  protected:
    std::ptrdiff_t FilesInFolder() const { return std::distance(fs::directory_iterator(folder_.Path()), {}); }

    const std::string settings_ = folder_ / "vdtools2.ini";  // the profile that works key by key
    CProfile profile_;
    CArmyTables tables_;
};

std::string Unescaped(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
        } else if (text[++i] == 'x') {
            plain += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            plain += text[i] == 'r' ? '\r' : text[i] == 'n' ? '\n' : text[i] == 't' ? '\t' : text[i];
        }
    }
    return plain;
}

using Record = std::vector<std::string>;

std::vector<std::vector<Record>> ReadCases(const std::string& path) {
    std::vector<std::vector<Record>> cases;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        Record record;
        std::istringstream fields(line + "\t");
        for (std::string field; std::getline(fields, field, '\t');)
            record.push_back(Unescaped(field));
        if (record[0] == "case") cases.emplace_back();
        cases.back().push_back(record);
    }
    return cases;
}

void RunCase(const std::vector<Record>& records, const std::string& path) {
    CProfile profile;
    profile.SetProfileName(path);
    std::optional<std::string> after;
    for (const Record& record : records) {
        SCOPED_TRACE(record[0] + " " + (record.size() > 2 ? record[2] : ""));
        std::string value = "untouched";
        if (record[0] == "before") {
            WriteBytes(path, record[1]);
            if (records[1] == Record{"setup", "file_read_only"}) ::chmod(path.c_str(), 0444);
        } else if (record[0] == "after") {
            after = record[1];
        } else if (record[0] == "write") {
            EXPECT_EQ(profile.WriteProfile(record[1], record[2], record[3]), record[4] == "ok");
        } else if (record[0] == "read") {
            EXPECT_TRUE(profile.ReadProfile(record[1], record[2], value));
            EXPECT_EQ(value, record[3]);
        } else if (record[0] == "lacks") {
            EXPECT_FALSE(profile.ReadProfile(record[1], record[2], value));
            EXPECT_EQ(value, "untouched");
        }
    }
    EXPECT_EQ(fs::exists(path), after.has_value());
    EXPECT_EQ(ReadBytes(path), after.value_or(""));
}

TEST_F(ProfileTest, BehavesAsObserved) {
    const auto cases = ReadCases(TEST_DATA "/profile_cases.txt");
    ASSERT_EQ(cases.size(), 27u);
    for (const auto& records : cases) {
        SCOPED_TRACE(records[0][1] + ": " + records[0][2]);
        const bool noFolder = records[1] == Record{"setup", "folder_missing"};
        RunCase(records, noFolder ? folder_ / "missing/p.ini" : folder_ / records[0][1]);
    }
}

TEST_F(ProfileTest, ReadsOddLinesAsTheyStand) {
    WriteBytes(settings_, "k=outside\n[ S ] x\r;k=comment\r[t]\n[S\nk=2\r\n\r\n\r\n[s]\nk=second\n[T]\nk='it''s'\n");
    // The first section of the name counts, a comment is no key.
    for (const auto& [section, key] : {std::pair("S", "k"), {"S", ";k"}, {"", "k"}, {"t", "k"}})
        EXPECT_FALSE(profile_.KeyExists(section, key)) << section << key;
    EXPECT_TRUE(profile_.WriteProfile("s", "n", "1"));
    EXPECT_TRUE(ReadBytes(settings_).starts_with("k=outside\n[ S ] x\r;k=comment\rn=1\r\n[t]\n"));
}

// What was written step by step is what a reader of the whole text finds, odd names and values included.
TEST(ProfileText, StaysInStepWithItsText) {
    const std::string names[] = {"A", "a", "B", "C_1", " D ", "", "x]y", "[", ";c", "k=v", "two words"};
    const std::string values[] = {"", "v", " v ", "a=b", "[A]", "x\r\n[B]\r\nA=inserted", "\n", "\"q\"", ";"};
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        CProfileText text(round % 2 == 0 ? "" : "[b]\nA=1\n\n;A=2\n[B]\nA=3\n[c_1]");
        for (int step = 0; step < 12; ++step) {
            text.Set(names[random() % std::size(names)], names[random() % std::size(names)],
                     values[random() % std::size(values)]);
            CProfileText fresh(text.Text());
            for (const std::string& section : names) {
                for (const std::string& key : names)
                    ASSERT_EQ(text.Find(section, key), fresh.Find(section, key)) << text.Text();
            }
        }
    }
    CProfileText many;
    for (int i = 0; i < 300; ++i) {
        many.Set("S" + std::to_string(i), "K", "1");
        many.Set("S", "K" + std::to_string(i), std::to_string(i));
    }
    EXPECT_EQ(many.Find("s", "k299"), "299");
    EXPECT_EQ(many.Find("s299", "k"), "1");
    EXPECT_EQ(many.Find("S300", "k"), std::nullopt);
}

TEST_F(ProfileTest, KeyByKeySeesWhatOthersWrite) {
    CProfile other;
    std::string value;
    for (const char* text : {"one", "two", "six"}) {  // of one length and within one tick of the clock
        WriteBytes(settings_, "[S]\r\nk=" + std::string(text) + "\r\n");
        EXPECT_TRUE(profile_.ReadProfile("S", "k", value));
        EXPECT_EQ(value, text);
    }
    EXPECT_TRUE(other.WriteProfile("S", "theirs", "1"));
    EXPECT_TRUE(profile_.WriteProfile("S", "mine", "2"));
    EXPECT_EQ(ReadBytes(settings_), "[S]\r\nk=six\r\ntheirs=1\r\nmine=2\r\n");
    fs::remove(settings_);
    EXPECT_FALSE(profile_.KeyExists("S", "k"));
}

TEST_F(ProfileTest, WhatCannotBeReadIsNotReplaced) {
    fs::create_directory(settings_);
    EXPECT_FALSE(profile_.KeyExists("S", "k"));
    EXPECT_FALSE(profile_.WriteProfile("S", "k", "v"));
    EXPECT_TRUE(fs::is_directory(settings_));
    if (::geteuid() == 0) return;  // root reads everything
    profile_.SetProfileName(Save("locked.ini", "[S]\r\nother=1\r\n"));
    ::chmod((folder_ / "locked.ini").c_str(), 0200);
    EXPECT_FALSE(profile_.WriteProfile("S", "k", "v"));
    ::chmod((folder_ / "locked.ini").c_str(), 0600);
    EXPECT_EQ(ReadBytes(folder_ / "locked.ini"), "[S]\r\nother=1\r\n");
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
    EXPECT_TRUE(tables_.WriteInfo(folder_ / "link2"));
    ::stat(real.c_str(), &after);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_TRUE(fs::is_symlink(folder_ / "link") && fs::is_symlink(folder_ / "link2"));
    EXPECT_TRUE(ReadBytes(real).starts_with("[TOP]\r\n"));

    fs::create_symlink("not-there-yet", folder_ / "dangling");
    EXPECT_TRUE(tables_.WriteInfo(folder_ / "dangling"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "dangling") && fs::is_regular_file(folder_ / "not-there-yet"));
    fs::create_symlink("loop", folder_ / "loop");
    EXPECT_FALSE(tables_.WriteInfo(folder_ / "loop"));
    EXPECT_EQ(FilesInFolder(), 6);
}

TEST_F(ProfileTest, RefusedSaveLeavesEverythingAsItWas) {
    ::chmod(Save("readonly", "former").c_str(), 0444);
    fs::create_directory(folder_ / "folder");
    for (const char* name : {"readonly", "folder", "missing/x", "readonly/x"})
        EXPECT_FALSE(tables_.WriteInfo(folder_ / name)) << name;
    EXPECT_FALSE(tables_.WriteInfo("") || tables_.WriteInfo(folder_ / std::string(300, 'n')));

    tables_.SetDescr(std::string(5000, 'x'));
    Save("d", "former");
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};  // as a full disk does, it lets the beginning through
    auto* former = ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    const bool saved = tables_.WriteInfo(folder_ / "d");
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::signal(SIGXFSZ, former);
    EXPECT_FALSE(saved);
    EXPECT_EQ(MLastError::Number(), 61);

    for (const char* name : {"readonly", "d"})
        EXPECT_EQ(ReadBytes(folder_ / name), "former");
    EXPECT_EQ(FilesInFolder(), 3);
}

TEST_F(ProfileTest, KilledSaveLeavesTheOldFileOrTheNewOne) {
    CArmyTables tables[2];
    std::string bytes[2];
    for (int i = 0; i < 2; ++i) {
        tables[i].SetDescr(std::string(200'000, i == 0 ? 'a' : 'b'));
        ASSERT_TRUE(tables[i].WriteInfo(folder_ / "d"));
        bytes[i] = ReadBytes(folder_ / "d");
    }
    std::mt19937 random(20260101);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1500);
    int kills = 0;
    for (; std::chrono::steady_clock::now() < end; ++kills) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int i = 0;; i ^= 1)
                tables[i].WriteInfo(folder_ / "d");
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 30'000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string found = ReadBytes(folder_ / "d");
        ASSERT_TRUE(found == bytes[0] || found == bytes[1]) << "after kill " << kills << ": " << found.size();
    }
    EXPECT_GT(kills, 10);
}

}  // namespace
