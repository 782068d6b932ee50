#pragma once

#include <cstdint>
#include <memory>

#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/label.h"
#include "controls/layout.h"
#include "controls/list_box.h"
#include "units/unit_list.h"

/// Fills the box with the names of the entries that the filter selects, in list order; nothing is selected afterwards.
void ListUnits(CListBox& box, const CUnitList& units, std::int32_t filter);

/// Fills a choice list with the unit filters and chooses the first.
void OfferUnitFilters(QXChoiceList& list);

/// A copy of the entry of that name, for a roster or squad. Error 5 where the list has no such entry.
std::shared_ptr<CGenUnit> CopyUnit(const CUnitList& units, std::string_view name);

/// Puts the label for the information on a unit into its frame, with room for most texts, so that what stands beside
/// the frame seldom moves.
void LayOutUnitInfo(QXFrame& frame, QXLabel& info);

/// Shows the entry of that name in the viewer, above `owner`. Error 5 where the list has no such entry.
void ViewUnit(CForm& owner, const CUnitList& units, std::string_view name);

/// The five buttons between a source of units and the target that they are picked for.
class CUnitButtons {
  public:
    explicit CUnitButtons(CForm* form);

    /// The rows below the source and below the target.
    QHBoxLayout* LayOutSource();
    QHBoxLayout* LayOutTarget();

    /// Gives the arrow buttons their characters; after the skin, which sets all fonts.
    void ShowArrows();

    /// Enables each button as the selections allow. `TTarget` is a list box or an edit list.
    template <class TTarget>
    void Update(const CListBox& source, const TTarget& target) {
        Enable(source.ListIndex() >= 0, target.ListIndex() >= 0, target.CanMoveUp(), target.CanMoveDown());
    }

    QXColorButton cmdAddUnit;
    QXColorButton cmdShowSelUnit;
    QXColorButton cmdRemoveUnit;
    QXColorButton cmdUnitMoveUp;
    QXColorButton cmdUnitMoveDown;

  private:
    void Enable(bool sourceSelected, bool targetSelected, bool canMoveUp, bool canMoveDown);
};
