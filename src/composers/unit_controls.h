#pragma once

#include <cstdint>
#include <string_view>

#include "composers/unit_filter.h"
#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "units/unit_list.h"

/// Fills the box with the names of the entries that the filter selects, in list order; nothing is selected afterwards.
void ListUnits(CListBox& box, const CUnitList& units, std::int32_t filter);

/// Fills a choice list with the unit filters and chooses the first.
void OfferUnitFilters(QXChoiceList& list);

/// Gives each button of the control group "optFilter" the name of a filter, from `first` on.
template <int Count>
void OfferUnitFilters(CControlArray<QXColorButton, Count>& buttons, std::int32_t first) {
    for (int index = 0; index < Count; ++index) {
        buttons[index].SetCaption(MUnitFilter::kNames.at(static_cast<std::size_t>(first + index)));
        buttons[index].SetControlGroup("optFilter");
    }
}

/// Puts the label for the information on a unit into its frame, with room for most texts, so that what stands beside
/// the frame seldom moves.
void LayOutUnitInfo(QXFrame& frame, QXLabel& info);

/// Shows the entry of that name in the viewer, above `owner`. Error 5 where the list has no such entry.
void ViewUnit(CForm& owner, const CUnitList& units, std::string_view name);
