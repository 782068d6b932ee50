// Keeps the floors of src/ apart: a file includes only its own floor and floors below it, and no Qt below the controls.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

struct SFloor {
    std::set<std::string> folders;  // its own and those below it
    bool knowsQt = false;
};

// By folder, as src/floors.txt lists them.
std::map<std::string, SFloor> ReadFloors() {
    std::map<std::string, SFloor> floors;
    std::map<std::string, std::string> folders;
    std::ifstream list(SOURCE_DIR "/src/floors.txt");
    for (std::string line; std::getline(list, line);) {
        std::istringstream row(line);
        std::string target, folder, base;
        if (!(row >> target >> folder) || target.starts_with('#')) continue;
        SFloor& floor = floors[folders[target] = folder];
        floor.folders.insert(folder);
        while (row >> base) {
            const SFloor& below = floors[folders[base]];
            floor.folders.insert(below.folders.begin(), below.folders.end());
            floor.knowsQt = floor.knowsQt || below.knowsQt || base.starts_with("Qt6::");
        }
    }
    return floors;
}

bool MayInclude(const SFloor& floor, const std::string& line) {
    const std::size_t directive = line.find("include");
    const std::size_t open = line.find_first_of("<\"", directive);
    if (!line.starts_with("#") || directive == std::string::npos || open == std::string::npos) return true;
    const fs::path included = line.substr(open + 1, line.find_first_of(">\"", open + 1) - open - 1);
    if (line[open] == '<') return floor.knowsQt || !(line[open + 1] == 'Q' || line.compare(open + 1, 2, "qt") == 0);
    const bool made = included.extension() == ".moc" && !included.has_parent_path();
    return made || floor.folders.contains(included.parent_path().generic_string());
}

TEST(Layering, FloorsIncludeOnlyWhatTheyStandOn) {
    const fs::path source = SOURCE_DIR "/src";
    const std::map<std::string, SFloor> floors = ReadFloors();
    int lines = 0;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        const std::string folder = fs::relative(entry.path().parent_path(), source).generic_string();
        ASSERT_TRUE(floors.contains(folder)) << entry << " stands on no floor";
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line); lines += line.starts_with("#include \"")) {
            EXPECT_TRUE(MayInclude(floors.at(folder), line)) << entry << " may not have: " << line;
        }
    }
    EXPECT_GT(lines, 100);
    EXPECT_FALSE(MayInclude(floors.at("equipment"), "#include \"units/unit.h\"")) << "equipment knows units";
    EXPECT_FALSE(MayInclude(floors.at("units"), "#include <QtGlobal>")) << "units know Qt";
}

}  // namespace
