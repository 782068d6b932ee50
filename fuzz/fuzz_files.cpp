// Throws broken files at everything that reads one. `fuzz_files <seconds> [seed]` mutates good files for that long;
// `fuzz_files hostile` tries single files made to cost time or memory, and tells what they cost. A crash, a sanitizer's
// report or an exception that gets out is a finding; the same seed finds it again, and the file is left in the folder.

#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/files/hide_utils.h"
#include "core/files/runtime_error.h"
#include "core/state/supp_tables.h"
#include "equipment/army_tables.h"
#include "support/silent_platform.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

const std::string kFolder = (fs::temp_directory_path() / "vdtools2-fuzz").string();
const std::string kFile = kFolder + "/file";
const std::string kOut = kFolder + "/out";

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Write(const std::string& bytes) {
    std::ofstream(kFile, std::ios::binary) << bytes;
}

// What is read can be saved, and once saved it stays as it is.
template <class TDocument>
bool ReadDocument() {
    TDocument document;
    if (!document.ReadInfo(kFile)) return false;
    if (!document.WriteInfo(kOut) || !document.ReadInfo(kOut)) return true;  // a price may overflow in the second round
    document.WriteInfo(kOut);
    const std::string once = Bytes(kOut);
    if (!document.ReadInfo(kOut) || !document.WriteInfo(kOut) || Bytes(kOut) != once) {
        std::cerr << "a saved document changed\n";
        std::abort();
    }
    return true;
}

template <class TDocument>
bool ImportDocument() {
    TDocument document;
    return document.ImportInfoV1(kFile) && document.WriteInfo(kOut);
}

bool ReadTables() {
    CSuppTables tables;
    return tables.ReadInfo(kFile) && tables.WriteInfo(kOut);
}

bool Decode() {
    try {
        return MHideUtils::DecodeFile(kFile, kOut) == 0;
    } catch (const CRuntimeError&) {
        return false;  // a malformed line
    }
}

struct STarget {
    const char* name;
    std::function<bool()> run;
    std::string good;
};

std::vector<STarget> Targets() {
    const std::string samples = SAMPLE_DIR "/sample/Harrow March.v2";
    const std::string plain = Bytes(SAMPLE_DIR "/support_tables.txt");
    std::string scrambled;
    for (std::size_t at = 0; at < plain.size(); at = plain.find("\r\n", at) + 2)
        scrambled += MHideUtils::EncodeLine(plain.substr(at, plain.find("\r\n", at) - at)) + "\r\n";
    const std::string version = "\"#VD_VER\",1,0\r\n";
    const std::string weapon =
        "\"#W\",1,2,\"\",0,\"Laser\",\"\",\"Rifle\",1,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n\"#P\",10,7.5\r\n";
    const std::string unit =
        "\"#U\",1,2,\"\",0,\"Guard\",\"\",0,\"Infantry\",\"\",10,5,6,0,6,0,0,0,0,0,0,0,0,0\r\n\"#P\",1,1\r\n\"#EL\","
        "1\r\n" +
        weapon;
    const std::string squad =
        "\"#MU\",1,2,\"\",0,\"Squad\",\"\",1,1,2\r\n" + unit + "\"#MU\",1,2,\"\",0,\"Inner\",\"\",1,1,1\r\n" + unit;
    const std::string units = "0,0,0,\"n\",\"d\",\"p\"\r\n\"#UL\",2\r\n" + unit + squad;
    return {{"read equipment", ReadDocument<CArmyTables>, Bytes(samples + "q")},
            {"read list", ReadDocument<CArmyList>, Bytes(samples + "l")},
            {"read roster", ReadDocument<CArmyRoster>, Bytes(samples + "r")},
            {"import equipment", ImportDocument<CArmyTables>,
             version + "\"#ARMYTBLS\",0,0,0,\"n\",\"d\"\r\n\"#ARMYWP\"\r\n\"#EL\",1\r\n" + weapon +
                 "\"#ARMYAC\"\r\n\"#EL\",1\r\n" +
                 "\"#I\",1,2,\"\",0,\"Plate\",\"\",\"Armour\",2,0,0,0,1,0,0\r\n\"#P\",10,12.5\r\n"},
            {"import list", ImportDocument<CArmyList>, version + "\"#ARMYLIST\"," + units},
            {"import roster", ImportDocument<CArmyRoster>, version + "\"#ARMYROSTER\"," + units},
            {"read rules", ReadTables, plain},
            {"decode rules", Decode, scrambled}};
}

// One to four changes of the kinds that files suffer: bytes, cuts, lines lost, doubled or swapped, numbers made odd.
std::string Mutated(std::string bytes, std::mt19937_64& random) {
    static const std::vector<std::string> kOdd = {"",
                                                  "-1",
                                                  "2147483647",
                                                  "32768",
                                                  "-32768",
                                                  "1E308",
                                                  "nan",
                                                  "\"",
                                                  ",",
                                                  "=",
                                                  "[",
                                                  "\r",
                                                  "\n",
                                                  std::string(1, '\0'),
                                                  std::string(300, 'x'),
                                                  "#MU",
                                                  "0.5"};
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    const auto line = [&](std::size_t at) {
        const std::size_t begin = bytes.rfind('\n', at) == std::string::npos ? 0 : bytes.rfind('\n', at) + 1;
        return std::pair(begin, std::min(bytes.find('\n', begin), bytes.size() - 1) + 1 - begin);
    };
    for (std::size_t change = 1 + below(4); change > 0 && !bytes.empty(); --change) {
        const std::size_t at = below(bytes.size());
        switch (below(8)) {
            case 0:
                bytes[at] = static_cast<char>(random());
                break;
            case 1:
                bytes.resize(at);
                break;
            case 2:
                bytes.erase(at, below(50));
                break;
            case 3:
                bytes.insert(at, bytes.substr(below(bytes.size()), below(400)));
                break;
            case 4: {
                const auto [begin, length] = line(at);
                bytes.erase(begin, length);
                break;
            }
            case 5: {
                const auto [begin, length] = line(at);
                bytes.insert(line(below(bytes.size())).first, bytes.substr(begin, length));
                break;
            }
            default: {
                std::size_t begin = bytes.find_first_of("=,", at);
                if (begin == std::string::npos) break;
                const std::size_t end = std::min(bytes.find_first_of(",\r", begin + 1), bytes.size());
                bytes.replace(begin + 1, end - begin - 1, kOdd[below(kOdd.size())]);
            }
        }
    }
    return bytes;
}

int Mutate(int seconds, std::uint64_t seed) {
    const std::vector<STarget> targets = Targets();
    for (const STarget& target : targets) {
        Write(target.good);
        if (!target.run()) return std::cerr << target.name << ": the good file fails\n", 1;
    }
    std::mt19937_64 random(seed);
    std::size_t runs = 0;
    std::size_t good = 0;
    for (const auto end = Clock::now() + std::chrono::seconds(seconds); Clock::now() < end; ++runs) {
        const STarget& target = targets[runs % targets.size()];
        Write(Mutated(target.good, random));
        good += target.run();
    }
    std::cout << runs << " files, " << good << " of them read, seed " << seed << "\n";
    return 0;
}

void Cost(const char* what, const std::string& bytes, const std::function<bool()>& run) {
    Write(bytes);
    const auto begin = Clock::now();
    const bool ok = run();
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count();
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::cout << what << ": " << bytes.size() / 1'000'000 << " MB, " << (ok ? "read" : "refused") << ", " << time
              << " ms, peak so far " << usage.ru_maxrss / 1024 << " MB\n";
}

int Hostile() {
    constexpr std::size_t kMuch = 100'000'000;
    const std::string top = "[TOP]\r\nAPPVERSION=2_2\r\nENTRY=#ARMYLIST\r\n";
    const std::string list = "[UNITLIST]\r\nENTRY=#UL\r\nSORTED=1\r\nINDEXED=1\r\nCOUNT=";
    const std::string old = "\"#VD_VER\",1,0\r\n\"#ARMYLIST\",0,0,0,";
    const auto read = ReadDocument<CArmyList>;
    const auto import = ImportDocument<CArmyList>;
    const auto repeated = [](const std::string& piece, std::size_t size) {
        std::string text;
        while (text.size() < size)
            text += piece;
        return text;
    };
    Cost("line of 100 MB", top + "NAME=" + std::string(kMuch, 'x') + "\r\n" + list + "0\r\n", read);
    Cost("COUNT of 2147483647", top + list + "2147483647\r\n", read);
    Cost("lines of nothing", top + repeated("\n", kMuch) + list + "0\r\n", read);
    Cost("empty keys", top + repeated("=\n", kMuch) + list + "0\r\n", read);
    Cost("empty sections", top + repeated("[\n", kMuch) + list + "0\r\n", read);
    std::string sections = top;
    for (int i = 0; sections.size() < kMuch; ++i)
        sections += "[" + std::to_string(i) + "\n";
    Cost("sections of many names", sections + list + "0\r\n", read);
    std::string nested = top + list + "1\r\n";
    std::string section = "UNITLIST";
    while (nested.size() < kMuch) {
        section += "_1";
        nested += "[" + section + "]\r\nENTRY=#MU\r\nFULLINFO=1\r\nNAME=n\r\nPOINTS=0,0\r\n";
        section += "_UNITLIST";
        nested += "[" + section + "]\r\nENTRY=#UL\r\nSORTED=0\r\nINDEXED=0\r\nCOUNT=1\r\n";
    }
    Cost("squads nested without end", nested, read);
    std::mt19937_64 random(1);
    std::string noise(kMuch, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    Cost("random bytes", noise, read);
    Cost("random bytes, import", noise, import);
    Cost("random bytes, rules", noise, ReadTables);
    Cost("random bytes, scrambled", noise, Decode);
    Cost("line of 100 MB, import", old + "\"" + std::string(kMuch, 'x') + "\",\"\",\"\"\r\n\"#UL\",0\r\n", import);
    Cost("number of 100 MB, import", old + "\"\",\"\",\"\"\r\n\"#UL\"," + std::string(kMuch, '0') + "\r\n", import);
    Cost("squads nested 100,000 deep, import",
         old + "\"\",\"\",\"\"\r\n\"#UL\",1\r\n" + repeated("\"#MU\",1,2,\"\",0,\"n\",\"d\",0,0,1\r\n", 3'300'000),
         import);
    Cost("count of 2147483647, import", old + "\"\",\"\",\"\"\r\n\"#UL\",2147483647\r\n", import);
    Cost("line of 100 MB, scrambled", std::string(kMuch, 'x'), Decode);
    fs::remove(kFile);
    fs::create_directory(kFile);
    std::cout << "folder for a file: " << (read() || import() || ReadTables() || Decode() ? "read" : "refused") << "\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return std::cerr << "usage: fuzz_files <seconds> [seed] | hostile\n", 2;
    fs::create_directories(kFolder);
    CSilentPlatform platform(kFolder);
    MPlatform::Install(&platform);
    const std::string what = argv[1];
    const int result = what == "hostile" ? Hostile() : Mutate(std::stoi(what), argc > 2 ? std::stoull(argv[2]) : 1);
    fs::remove_all(kFolder);
    return result;
}
