#include "composers/unit_controls.h"

#include "controls/layout.h"
#include "roster/viewers/unit_viewer.h"

void ListUnits(CListBox& box, const CUnitList& units, std::int32_t filter) {
    box.Clear();
    for (const CGenUnit& entry : units) {
        if (MUnitFilter::Selects(filter, entry)) box.AddItem(entry.Name());
    }
}

void OfferUnitFilters(QXChoiceList& list) {
    constexpr int kListWidth = 3500;
    for (const std::string_view name : MUnitFilter::kNames)
        list.AddItem(name);
    list.SetPromptText("Select filter for units:");
    list.SetListWidth(kListWidth);
    list.SetListIndex(MUnitFilter::All);
}

void LayOutUnitInfo(QXFrame& frame, QXLabel& info) {
    constexpr int kRoom = 118;  // for most texts, so that the lists above seldom move
    MLayout::TextInFrame(frame, info, kRoom);
}

void ViewUnit(CForm& owner, const CUnitList& units, std::string_view name) {
    FUnitViewer viewer;
    viewer.ShowUnit(units.Item(name), 0);
    viewer.ShowModal(&owner);
}
