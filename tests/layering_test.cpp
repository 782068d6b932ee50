// Keeps the floors of src/ apart: a file includes only its own floor and floors below it, and no Qt below the controls.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

// From the bottom up.
constexpr std::array<std::string_view, 12> kFloors = {"core/files", "equipment", "units",      "core/state",
                                                      "roster",     "controls",  "shell/look", "roster/viewers",
                                                      "makers",     "composers", "shell",      "app"};

auto FloorOf(const fs::path& folder) {
    return std::find(kFloors.begin(), kFloors.end(), folder.generic_string());
}

bool MayInclude(const fs::path& folder, const std::string& line) {
    const std::size_t directive = line.find("include");
    const std::size_t open = line.find_first_of("<\"", directive);
    if (!line.starts_with("#") || directive == std::string::npos || open == std::string::npos) return true;
    const fs::path included = line.substr(open + 1, line.find_first_of(">\"", open + 1) - open - 1);
    const auto own = FloorOf(folder);
    const auto controls = FloorOf("controls");
    if (line[open] == '<') return own >= controls || !(line[open + 1] == 'Q' || line.compare(open + 1, 2, "qt") == 0);
    const auto other = FloorOf(included.parent_path());
    if (other == kFloors.end()) return included.extension() == ".moc" && !included.has_parent_path();
    // The controls know the files floor alone of those without toolkit.
    return own == controls ? other == own || other == kFloors.begin() : other <= own;
}

TEST(Layering, FloorsIncludeOnlyWhatIsBelowThem) {
    const fs::path source = SOURCE_DIR "/src";
    int lines = 0;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line); lines += line.starts_with("#include \"")) {
            EXPECT_TRUE(MayInclude(fs::relative(entry.path().parent_path(), source), line)) << entry << ": " << line;
        }
    }
    EXPECT_GT(lines, 100);
    EXPECT_FALSE(MayInclude("equipment", "#include \"units/unit.h\"") || MayInclude("units", "#include <QtGlobal>"));
}

}  // namespace
