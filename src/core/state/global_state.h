#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/state/supp_tables.h"
#include "equipment/army_tables.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace MGlobal {

/// What the operations of this module work on. Nobody else reaches into it.
struct CState {
    std::string dataFolder;
    std::string equipmentFile;
    std::string armyListFile;
    std::string armyRosterFile;
    std::unique_ptr<CSuppTables> suppTables;
    std::unique_ptr<CArmyTables> armyTables;
    std::unique_ptr<CArmyList> armyList;
    std::unique_ptr<CArmyRoster> armyRoster;
    std::array<bool, 3> modified{};
    std::int32_t skinId = 0;
};

CState& State();

/// Path of the scrambled rule tables.
std::string SuppTablesFile();

}  // namespace MGlobal
