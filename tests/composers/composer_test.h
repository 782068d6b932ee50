#pragma once

#include <string>
#include <vector>

#include "makers/maker_test.h"
#include "units/mult_unit.h"
#include "units/unit.h"

struct SEntry {
    const char* name;
    int type;
    const char* cost;  // points of one
    int quantity = 1;
};

// Summaries in the file form: their costs are what the file says.
inline std::string Document(const std::string& tag, const std::vector<SEntry>& entries) {
    const std::string keyed = tag == "#ARMYLIST" ? "1" : "0";
    std::string text = Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=" + tag, "VERSION=0", "NAME=Host", "DESCR=Spring",
                              "PICTURE=", "[UNITLIST]", "ENTRY=#UL", "SORTED=" + keyed, "INDEXED=" + keyed,
                              "COUNT=" + std::to_string(entries.size())});
    int position = 0;
    for (const SEntry& entry : entries) {
        const std::string name = entry.name;
        const std::string cost = entry.cost;
        text +=
            Lines({"[UNITLIST_" + std::to_string(++position) + "]", "ENTRY=#U", "VERSION=2", "FULLINFO=0",
                   "NAME=" + name, "DESCR=About " + name, "KEY=", "TYPE=" + std::to_string(entry.type),
                   "CLASS=", "SUBCLASS=", "QUANTITY=" + std::to_string(entry.quantity), "POINTS=" + cost + "," + cost});
    }
    return text;
}

/// Forms over an army list of five units and the squad Patrol, of an archer and a cart.
class ComposerTest : public MakerTest {
  protected:
    ComposerTest() {
        const std::vector<SEntry> units = {
            {"Archer", 0, "10.5"}, {"Cart", 1, "40"}, {"Drone", 2, "7.25"}, {"Golem", 3, "30"}, {"Ren\xE9", 0, "20"}};
        MGlobal::SetArmyListFile(Save("list", Document("#ARMYLIST", units)));
        EXPECT_TRUE(MGlobal::ArmyList().ReadInfo(MGlobal::ArmyListFile()));
        CMultUnit& patrol = AddUnit("Patrol", CGenUnit::Squad).SquadUnit();
        for (const char* member : {"Archer", "Cart"}) {
            auto unit = std::make_shared<CGenUnit>();
            unit->Clone(Units().Item(member));
            patrol.Add(unit, "");
        }
    }

    void ExpectReloadQuestion(const std::string& document, BoxAnswer answer = BoxAnswer::Ok) {
        platform_.ExpectBox(
            BoxKind::Question, BoxButtons::OkCancel,
            "Are you sure you want to reload the " + document + "? All changes since the last save will be lost!",
            answer);
    }
};
