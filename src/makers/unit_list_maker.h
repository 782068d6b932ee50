#pragma once

#include <cstdint>
#include <string>

#include "makers/maker.h"
#include "units/gen_unit.h"

class CUnitList;

/// Terms of a maker in the army list, which calls a squad a unit too.
constexpr SMakerTerms UnitTerms(const char* formName, const char* caption) {
    return {
        .formName = formName,
        .caption = caption,
        .word = "unit",
        .modifyPrompt = "Select a unit from the database:",
        .deletePrompt = "Select a unit to remove from the database:",
        .notStored = "The current unit data is not complete/valid, it WILL NOT be saved to the database.",
        .notStoredAtClosing = "The current unit data is not complete/valid, it CANNOT be saved to the database.",
        .document = MGlobal::ArmyListDocument,
        .writeFailure = "Error while saving army list.",
    };
}

/// Warning of a validation.
inline constexpr const char* kNoUnitName =
    "No unit name specified. Specify a name for the unit before adding it to the database.";

/// What the makers of units and of squads share on top of the frame: both keep their items in the army list, where each
/// sees only the entries of its own kind.
class FUnitListMaker : public FMaker {
  public:
    FUnitListMaker(const SMakerTerms& terms, CGenUnit::Kind kind) : FMaker(terms), kind_(kind) {}

  protected:
    static CUnitList& ArmyUnits();

    bool ShowSelector(FSelector& selector) override { return selector.ShowUnitList(ArmyUnits(), kind_); }
    void ShowList(FArmyRoster& viewer) override;
    const std::string& DocumentFile() const override { return MGlobal::ArmyListFile(); }
    bool WriteDocument() const override;
    bool WalkSkips(std::int32_t position) const override;

  private:
    CGenUnit::Kind kind_;
};
