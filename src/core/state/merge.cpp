#include "core/state/merge.h"

#include <cstdint>
#include <optional>
#include <string>

#include "core/files/ansi_text.h"
#include "core/files/platform.h"
#include "equipment/army_tables.h"
#include "units/army_list.h"

namespace MMerge {

namespace {

/// How the questions call a list.
struct SWords {
    std::string document;
    std::string elements;
};

/// What the player wants done with elements that are there already. His first answer is followed by the offer to let
/// it hold for all; who declines is asked at each clash from then on.
class CDecision {
  public:
    /// Yes replaces the element, No keeps it, Cancel ends the merge.
    BoxAnswer Settle(const std::string& name, const SWords& words) {
        if (always_) return *always_;
        const BoxAnswer answer =
            MPlatform::Current().ShowBox(BoxKind::Question, BoxButtons::YesNoCancel,
                                         MAnsiText::ToUtf8(name) + " already exists in the " + words.document +
                                             ", would you like to replace it?\r\n\"Cancel\" terminates the merge.");
        if (undecided_ && answer != BoxAnswer::Cancel) {
            undecided_ = false;
            const std::string offer =
                answer == BoxAnswer::Yes ? "Substitute all existing " : "Never substitute existing ";
            if (MPlatform::Ask(offer + words.elements + "?")) always_ = answer;
        }
        return answer;
    }

  private:
    bool undecided_ = true;
    std::optional<BoxAnswer> always_;
};

/// False when the player has ended the merge.
template <class TList>
bool TakeIn(TList& list, const TList& source, const SWords& words, CDecision& decision) {
    for (std::int32_t position = 1; position <= source.Count(); ++position) {
        const auto& element = source.Share(position);
        if (list.Exists(element->Key())) {
            const BoxAnswer answer = decision.Settle(element->Name(), words);
            if (answer == BoxAnswer::Cancel) return false;
            if (answer == BoxAnswer::No) continue;
            list.Remove(element->Key());
        }
        list.Add(element);
    }
    return true;
}

}  // namespace

void Merge(CArmyTables& document, const CArmyTables& source) {
    CDecision decision;
    if (TakeIn(document.ArmyAccessories(), source.ArmyAccessories(), {"equipment file", "accessories"}, decision)) {
        TakeIn(document.ArmyWeapons(), source.ArmyWeapons(), {"equipment file", "weapons"}, decision);
    }
}

void Merge(CArmyList& document, const CArmyList& source) {
    CDecision decision;
    TakeIn(document.ArmyUnits(), source.ArmyUnits(), {"army list", "units"}, decision);
}

}  // namespace MMerge
