#pragma once

#include "makers/maker_test.h"
#include "units/mult_unit.h"
#include "units/unit.h"

/// Forms over an army list of five units and the squad Patrol, of an archer and a cart. Infantry and slave robots cost
/// 5 points, a vehicle 7, an autonomous robot 15.
class ComposerTest : public MakerTest {
  protected:
    ComposerTest() {
        AddOfType("Archer", CUnit::Infantry);
        AddOfType("Cart", CUnit::Vehicle);
        AddOfType("Drone", CUnit::SlaveRobot);
        AddOfType("Golem", CUnit::AutonomousRobot);
        AddOfType("Ren\xE9", CUnit::Infantry);
        CMultUnit& patrol = AddUnit("Patrol", CGenUnit::Squad).SquadUnit();
        for (const char* member : {"Archer", "Cart"})
            patrol.Add(Copy(member), "");
    }
    static void AddOfType(const char* name, CUnit::Type type) {
        auto unit = std::make_shared<CGenUnit>();
        unit->NewUnit(CGenUnit::Single);
        unit->SingleUnit().SetUnitType(type);
        unit->SingleUnit().InitUnit();
        unit->SetName(name);
        Units().Add(unit);  // gives it the key that its copies have too
    }
    static std::shared_ptr<CGenUnit> Copy(const std::string& name) {
        auto unit = std::make_shared<CGenUnit>();
        unit->Clone(Units().Item(name));
        return unit;
    }
};
