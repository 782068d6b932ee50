#include "makers/maker_test.h"
#include "makers/unit_maker.h"

namespace {

/// The unit maker over the rules that the program ships and the sample army's equipment.
class RandomUnitsTest : public MakerTest {
  protected:
    RandomUnitsTest() {
        LoadTables(ReadBytes(SOURCE_DIR "/data/support_tables.txt"), '\n');
        EXPECT_TRUE(MGlobal::ArmyTables().ReadInfo(SOURCE_DIR "/data/sample/Harrow March.v2q"));
        Open<FUnitMaker>();
    }

    int RowOf(const char* list, const std::string& name) {
        const auto& box = Control<CListBox>(list);
        for (int row = 0; row < box.ListCount(); ++row)
            if (MAnsiText::ToUtf8(box.List(row)) == name) return row;
        ADD_FAILURE() << name << " is not offered";
        return 0;
    }
    void Take(const std::string& step) {
        std::istringstream words(step);
        std::string what, name;
        words >> what >> std::ws;
        std::getline(words, name);
        if (what == "special") {
            MFormDriver::WhileModal([&name](CForm& dialog) { Do(dialog, name); });
            Do("cmdSpecialProps");
        } else if (what == "remove") {
            MFormDriver::ClickRow(*form_, "lstUnitEquipment", std::stoi(name));
            Do("cmdRemoveItem");
        } else if (!name.empty()) {
            const std::string filter = what == "weapon" ? "0" : "1";
            if (Lit("optFilter") != filter) Do("optFilter(" + filter + ")");
            MFormDriver::ClickRow(*form_, "lstEquipment", RowOf("lstEquipment", name));
            Do("cmdAddItem");
        } else {
            Do(step);
        }
    }
};

TEST_F(RandomUnitsTest, CostWhatAnIndependentModelSays) {
    std::ifstream file(TEST_DATA "/random_units.txt");
    int units = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        SCOPED_TRACE(line);
        std::string step;
        std::size_t from = 0;
        for (std::size_t to; (to = line.find(" | ", from)) != std::string::npos; from = to + 3)
            Take(line.substr(from, to - from));
        EXPECT_EQ(Text("tedPointCost"), line.substr(from));
        ++units;
    }
    EXPECT_EQ(units, 200);
}

}  // namespace
