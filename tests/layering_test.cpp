// Keeps the floors of src/ apart: a file includes only its own floor and floors below it, and no Qt below the controls.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

// From the bottom up. Two targets may share a floor, one over the other.
constexpr std::array<std::string_view, 12> kFloors = {"core/files", "equipment", "units",      "core/state",
                                                      "roster",     "controls",  "shell/look", "roster/viewers",
                                                      "makers",     "composers", "shell",      "app"};

// Behind the last one for a folder that is no floor.
std::size_t FloorOf(const fs::path& folder) {
    return static_cast<std::size_t>(std::find(kFloors.begin(), kFloors.end(), folder.generic_string()) -
                                    kFloors.begin());
}

// What is wrong with an include line of a file in `folder`; empty if nothing is.
std::string Fault(const fs::path& folder, const std::string& line) {
    const std::size_t directive = line.find("include");
    const std::size_t open = line.find_first_of("<\"", directive);
    if (!line.starts_with("#") || directive == std::string::npos || open == std::string::npos) return {};
    const fs::path included = line.substr(open + 1, line.find_first_of(">\"", open + 1) - open - 1);
    const std::size_t own = FloorOf(folder);
    const std::size_t controls = FloorOf("controls");
    if (own == kFloors.size()) return "no floor";
    if (line[open] == '<') {
        const bool qt = included.generic_string()[0] == 'Q' || included.generic_string().starts_with("qt");
        return qt && own < controls ? "toolkit below the controls" : "";
    }
    const std::size_t other = FloorOf(included.parent_path());
    if (other == kFloors.size())
        return included.has_parent_path() || included.extension() != ".moc" ? "no such floor" : "";
    if (other > own) return "a higher floor";
    // The controls know the files floor alone of those without toolkit.
    if (own == controls && other != own && other != FloorOf("core/files")) return "a foreign floor";
    return {};
}

TEST(Layering, FloorsIncludeOnlyWhatIsBelowThem) {
    const fs::path source = SOURCE_DIR "/src";
    int lines = 0;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            const std::string fault = Fault(fs::relative(entry.path().parent_path(), source), line);
            EXPECT_EQ(fault, "") << entry.path() << ": " << line;
            lines += line.starts_with("#include \"");
        }
    }
    EXPECT_GT(lines, 100);
}

TEST(Layering, FaultsAreSeen) {
    const std::tuple<const char*, const char*, bool> kCases[] = {{"units", "#include \"equipment/weapon.h\"", false},
                                                                 {"equipment", "#include \"units/unit.h\"", true},
                                                                 {"core/state", "#  include <QtGlobal>", true},
                                                                 {"controls", "#include <QWidget>", false},
                                                                 {"controls", "#include \"core/state/global.h\"", true},
                                                                 {"shell/look", "#include \"shell/console.h\"", true},
                                                                 {"shell", "#include \"console.h\"", true},
                                                                 {"elsewhere", "#include <string>", true}};
    for (const auto& [folder, line, fault] : kCases)
        EXPECT_EQ(!Fault(folder, line).empty(), fault) << folder << " " << line;
}

}  // namespace
