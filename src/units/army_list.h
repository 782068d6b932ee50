#pragma once

#include "units/army_document.h"

/// The player's whole catalogue of units and squads, kept by name.
class CArmyList : public CArmyDocument {
  public:
    CArmyList() : CArmyDocument(true) {}

  protected:
    std::string_view Tag() const override { return "#ARMYLIST"; }
};
