#include "composers/army_list.h"

#include <QScopedValueRollback>
#include <string>

#include "composers/unit_controls.h"
#include "composers/unit_info.h"
#include "controls/control_utils.h"
#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/platform.h"
#include "roster/viewers/army_roster.h"
#include "units/army_list.h"

namespace {

constexpr SArmyDocumentTerms kTerms = {
    .formName = "FArmyList",
    .caption = "Army List",
    .pictureTip = "The image will be shown full size on the army list viewer",
    .viewCaption = "View List",
    .index = MGlobal::ArmyListDocument,
    .file = &MGlobal::ArmyListFile,
    .updateCosts = &MGlobal::SyncArmyListWithEquipment,
    .missingHeading = MGlobal::kItemsNotFound,
    .deleteQuestion = "Are you sure you want to remove all the units from the army list?",
    .reloadQuestion = "Are you sure you want to reload the Army List? All changes since the last save will be lost!",
    .readFailure = "Error while reading army list.",
};

}  // namespace

FArmyList::FArmyList() : FArmyDocumentForm(kTerms) {
    OfferUnitFilters(optFilter, MUnitFilter::All);
    cmdShowSelUnit.SetCaption("View");
    cmdDeleteFromDb.SetCaption("Delete");

    optFilter.OnClick([this](int index) { optFilter_Click(index); });
    lstUnits.OnClick([this] { lstUnits_Click(); });
    cmdShowSelUnit.OnClick([this] { cmdShowSelUnit_Click(); });
    cmdDeleteFromDb.OnClick([this] { cmdDeleteFromDb_Click(); });
    LayOut();
}

void FArmyList::LayOut() {
    constexpr int kFilterWidth = 150;
    auto* filters = MLayout::Column();
    for (int index = 0; index < optFilter.Size(); ++index) {
        optFilter[index].setFixedWidth(kFilterWidth);
        filters->addWidget(&optFilter[index]);
    }
    filters->addStretch(1);
    auto* buttons = MLayout::Row();
    buttons->addWidget(&cmdShowSelUnit, 1);
    buttons->addWidget(&cmdDeleteFromDb, 1);
    auto* list = MLayout::Column();
    list->addWidget(&lstUnits, 1);
    list->addLayout(buttons);
    auto* source = MLayout::Row(&frmSource, MLayout::FrameGap);
    source->addLayout(filters);
    source->addLayout(list, 1);

    LayOutUnitInfo(frmDescr, lblSpecialDescr);
    auto* work = MLayout::Row(nullptr, MLayout::FrameGap);
    work->addWidget(&frmSource, 3);
    work->addWidget(&frmDescr, 2);

    auto* right = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    right->addLayout(LayOutFields());
    right->addLayout(work, 1);
    LayOutBesideMenu(right);
    resize(1060, 700);
}

void FArmyList::Form_Load() {
    WorkItem = &MGlobal::ArmyList();
    FArmyDocumentForm::Form_Load();
    lblSpecialDescr.SetFontSize(10);
    optFilter[MUnitFilter::Infantry].SetValue(true);
    ListFilter = MUnitFilter::Infantry;
    ListUnits();
    ShowItem();
    EditState = 0;
}

CArmyDocument& FArmyList::Document() const {
    return *WorkItem;
}

void FArmyList::ShowItem() {
    const QScopedValueRollback loading(Loading, true);
    ShowFields();
    ListUnits();
}

void FArmyList::ListUnits() {
    ::ListUnits(lstUnits, WorkItem->ArmyUnits(), ListFilter);
    lblSpecialDescr.SetCaption("");
    EnableUnitButtons(false);
    UpdateCaption();
}

void FArmyList::UpdateCaption() {
    frmSource.SetCaption("Units in Army List (" + std::to_string(lstUnits.ListCount()) + " listed)");
}

void FArmyList::EnableUnitButtons(bool selected) {
    cmdDeleteFromDb.SetEnabled(selected);
    cmdShowSelUnit.SetEnabled(selected);
}

void FArmyList::optFilter_Click(int index) {
    MQXBaseGUIControlsUtils::ClearControlGroup(*this, "optFilter", "optFilter", index);
    ListFilter = index;
    ListUnits();
    lstUnits.scrollToTop();
}

void FArmyList::lstUnits_Click() {
    if (lstUnits.ListIndex() < 0) return;
    lblSpecialDescr.SetCaption(MUnitInfo::Text(WorkItem->ArmyUnits(), lstUnits.Text()));
    EnableUnitButtons(true);
}

void FArmyList::cmdShowSelUnit_Click() {
    if (lstUnits.ListIndex() >= 0) ViewUnit(*this, WorkItem->ArmyUnits(), lstUnits.Text());
}

void FArmyList::cmdDeleteFromDb_Click() {
    const std::string name = lstUnits.Text();
    const bool done = Trap([&] {
        if (MPlatform::Ask("Delete unit \"" + MAnsiText::ToUtf8(name) + "\" from Army List?")) {
            WorkItem->ArmyUnits().Remove(name);
            NoteListChange();
            ListUnits();
        }
        EditState = 2;
        return true;
    });
    if (!done) {
        MPlatform::ShowPlain("Error while trying to delete unit \"" + MAnsiText::ToUtf8(name) +
                             "\" from the database: " + MAnsiText::ToUtf8(MGlobal::LastErrorText()));
    }
}

void FArmyList::ShowPage(FArmyRoster& viewer) {
    viewer.ShowArmyList(*WorkItem);
}

void FArmyList::cmdSaveChanges_Click() {
    SaveDocument("Error while saving army list.");
    EditState = 0;
}
