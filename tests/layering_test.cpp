// Keeps the floors of src/ apart: a file includes only its own floor and floors below it, and no Qt below the controls.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>

namespace fs = std::filesystem;

namespace {

struct SFloor {
    int floor;
    const char* folder;
};

// Two targets may share a floor, one over the other.
constexpr std::array<SFloor, 12> kFloors = {{{0, "core/files"},
                                             {10, "equipment"},
                                             {11, "units"},
                                             {20, "core/state"},
                                             {60, "roster/viewers"},
                                             {30, "roster"},
                                             {40, "controls"},
                                             {50, "shell/look"},
                                             {70, "makers"},
                                             {80, "composers"},
                                             {90, "shell"},
                                             {100, "app"}}};
constexpr int kFirstWithQt = 40;

std::optional<SFloor> FloorOf(const fs::path& folder) {
    for (const SFloor& floor : kFloors) {
        if (floor.folder == folder.generic_string()) return floor;
    }
    return std::nullopt;
}

// What is wrong with an include line of a file in `folder`; empty if nothing is.
std::string Fault(const fs::path& folder, const std::string& line) {
    const std::size_t directive = line.find("include");
    const std::size_t open = line.find_first_of("<\"", directive);
    if (!line.starts_with("#") || directive == std::string::npos || open == std::string::npos) return {};
    const fs::path included = line.substr(open + 1, line.find_first_of(">\"", open + 1) - open - 1);
    const auto own = FloorOf(folder);
    if (!own) return "no floor";
    if (line[open] == '<') {
        const bool qt = included.generic_string()[0] == 'Q' || included.generic_string().starts_with("qt");
        return qt && own->floor < kFirstWithQt ? "toolkit below the controls" : "";
    }
    const auto other = FloorOf(included.parent_path());
    if (!other) return included.has_parent_path() || included.extension() != ".moc" ? "no such floor" : "";
    if (other->floor > own->floor) return "a higher floor";
    // The controls know the files floor alone of those without toolkit.
    if (own->floor == kFirstWithQt && other->floor != own->floor && other->floor != 0) return "a foreign floor";
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
    const struct {
        const char* folder;
        const char* line;
        bool fault;
    } kCases[] = {{"units", "#include \"equipment/weapon.h\"", false},
                  {"equipment", "#include \"units/unit.h\"", true},
                  {"core/files", "#include \"core/state/app.h\"", true},
                  {"roster", "#include \"roster/viewers/unit_viewer.h\"", true},
                  {"roster", "#include <QString>", true},
                  {"core/state", "#  include <QtGlobal>", true},
                  {"controls", "#include <QWidget>", false},
                  {"controls", "#include \"core/state/global.h\"", true},
                  {"shell/look", "#include \"shell/console.h\"", true},
                  {"shell", "#include \"shell/look/gui_handler.h\"", false},
                  {"makers", "#include \"composers/army_list.h\"", true},
                  {"shell", "#include \"console.h\"", true},
                  {"elsewhere", "#include <string>", true}};
    for (const auto& c : kCases)
        EXPECT_EQ(!Fault(c.folder, c.line).empty(), c.fault) << c.folder << " " << c.line;
}

}  // namespace
