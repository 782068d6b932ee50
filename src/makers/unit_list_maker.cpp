#include "makers/unit_list_maker.h"

#include "roster/viewers/army_roster.h"
#include "units/army_list.h"

CUnitList& FUnitListMaker::ArmyUnits() {
    return MGlobal::ArmyList().ArmyUnits();
}

void FUnitListMaker::ShowList(FArmyRoster& viewer) {
    viewer.ShowArmyList(MGlobal::ArmyList());
}

bool FUnitListMaker::WriteDocument() const {
    return MGlobal::ArmyList().WriteInfo(DocumentFile());
}

bool FUnitListMaker::WalkSkips(std::int32_t position) const {
    return ArmyUnits().Share(position)->GenUnitClass() != kind_;
}
