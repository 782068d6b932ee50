#include "makers/maker.h"

#include <QScopedValueRollback>

#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/file_format.h"
#include "core/files/platform.h"
#include "roster/viewers/army_roster.h"
#include "shell/look/point_cost.h"

namespace {

constexpr int kCostWidth = 170;

// Positions count from 1; 0 is a record that isn't in the list. The walk is circular.
std::int32_t Next(std::int32_t position, std::int32_t count) {
    if (position == 0 || position == count) return count >= 1 ? 1 : position;
    return position + 1;
}

std::int32_t Previous(std::int32_t position, std::int32_t count) {
    if (position == 0) return count >= 1 ? count : position;
    return position == 1 ? count : position - 1;
}

// For a box: names are text of the model.
std::string Quoted(std::string_view name) {
    return '"' + MAnsiText::ToUtf8(name) + '"';
}

}  // namespace

void CValidation::Require(bool holds, const char* warning) {
    if (holds) return;
    valid_ = false;
    if (messages_) MPlatform::ShowWarning(warning);
}

FMaker::FMaker(const SMakerTerms& terms) : FEditForm(terms.formName, terms.caption, terms.document), terms_(terms) {
    tedName.SetAutoSelect(true);
    tedDescr.SetAutoSelect(true);

    Menu.SetCommand(New, "New", [this] { cmdNew_Click(); });
    Menu.SetCommand(AddToDb, "Add to/Update List", [this] { cmdAddToDb_Click(); });
    Menu.SetCommand(Modify, "Modify Existing", [this] { cmdModify_Click(); });
    Menu.SetCommand(ViewList, "View List", [this] { cmdViewList_Click(); });
    Menu.SetCommand(Delete, "Delete from List", [this] { cmdDelete_Click(); });
    Menu.SetCommand(SaveChanges, "Save Changes", [this] { cmdSaveChanges_Click(); });

    cmdPrev.OnClick([this] { WalkPrev(); });
    cmdNext.OnClick([this] { WalkNext(); });

    LayOut();
}

void FMaker::LayOut() {
    fields_ = MLayout::Grid();
    fields_->setColumnStretch(1, 1);
    AddField(lblName, tedName);
    AddField(lblDescr, tedDescr);

    SetUpPointCost(frmPointCost, tedPointCost);
    head_ = MLayout::Row(nullptr, MLayout::FrameGap);
    head_->addLayout(fields_, 1);
    head_->addWidget(&frmPointCost);

    auto* walk = MLayout::Row();
    walk->addStretch(1);
    for (QXColorButton* arrow : {&cmdPrev, &cmdNext}) {
        arrow->setFixedWidth(64);
        walk->addWidget(arrow);
    }

    work_ = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    auto* right = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    right->addLayout(head_);
    right->addSpacing(MLayout::Gap);
    right->addLayout(work_, 1);
    right->addSpacing(MLayout::Gap);
    right->addLayout(walk);
    LayOutBesideMenu(right);
}

void FMaker::AddField(QXLabel& label, QWidget& field) {
    const int row = fields_->rowCount();
    fields_->addWidget(&label, row, 0);
    fields_->addWidget(&field, row, 1);
}

void FMaker::AddToHead(QXFrame& frame) {
    frame.setMinimumWidth(kCostWidth);
    frame.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    head_->insertWidget(head_->count() - 1, &frame);
}

void FMaker::Form_Load() {
    FEditForm::Form_Load();
    cmdPrev.SetArrow("\xE7");
    cmdNext.SetArrow("\xE8");
    LoadItem();
    EditState = Unchanged;
}

bool FMaker::QueryUnload() {
    return OfferStoring(terms_.notStoredAtClosing) && FEditForm::QueryUnload();
}

void FMaker::StoreIfEdited() {
    if (!OfferStoring(terms_.notStored)) ShowItem();
}

bool FMaker::OfferStoring(const char* notStored) {
    if (EditState != Edited) return true;
    if (IsStorable(false)) {
        cmdAddToDb_Click();
        return true;
    }
    return Item().Name().empty() ||
           MPlatform::Current().ShowBox(BoxKind::Warning, BoxButtons::OkCancel, notStored) == BoxAnswer::Ok;
}

std::string FMaker::Failure(std::string_view attempt, std::string_view name, std::string_view where) const {
    return "Error while trying to " + std::string(attempt) + " " + Quoted(name) + " " + std::string(where) + ": " +
           MAnsiText::ToUtf8(MGlobal::LastErrorText());
}

// An item is stored under the name that the file will give back: of two that are told apart by anything else, one would
// be gone after the next start.
bool FMaker::IsStorable(bool messages) {
    Item().SetName(MFileFormat::AsFileGivesBack(Item().Name()));
    return ValidateItem(messages);
}

void FMaker::cmdAddToDb_Click() {
    std::string newName;
    const bool done = Trap([&] {
        if (!IsStorable(true)) return true;
        newName = MAnsiText::UpperCase(Item().Name());
        Store(newName);
        return true;
    });
    if (!done) MPlatform::ShowWarning(Failure("add", newName, "to the list"));
}

// The questions show names in upper case, as the keys are.
void FMaker::Store(const std::string& newName) {
    const std::string oldName = MAnsiText::UpperCase(SourceName);
    const bool taken = IsStored(newName);
    const auto askAdd = [&] { return MPlatform::Ask("Add " + Quoted(newName) + " to the list?"); };
    const auto askReplace = [&](const char* verb) {
        return MPlatform::Ask(Quoted(newName) + " already exists in the list,\r\ndo you wish to " + verb + " it?");
    };

    bool proceed = false;
    bool renamed = false;
    if (newName == oldName || oldName.empty()) {
        proceed = taken ? askReplace("update") : askAdd();
    } else {
        renamed = MPlatform::Ask("Rename " + Quoted(oldName) + " as " + Quoted(newName) + "?");
        if (taken) {
            proceed = askReplace("overwrite");
        } else {
            proceed = renamed || askAdd();
        }
    }
    if (!proceed) return;

    if (taken) RemoveStored(newName);
    if (renamed) RemoveStored(oldName);
    // A refusal of the list is told, and then taken for a success: the item stays on the form.
    if (!StoreCopy()) MPlatform::ShowWarning(Failure("add", Item().Name(), "to the list"));
    SourceName = Item().Name();
    EditState = ListChanged;
    const QScopedValueRollback loading(Loading, true);
    tedName.SetText(SourceName);
}

// The selection becomes the source whatever the answer was: after Cancel the item may be linked to another record.
void FMaker::cmdModify_Click() {
    FSelector selector;
    const bool done = Trap([&] {
        StoreIfEdited();
        selector.SetPrompt(terms_.modifyPrompt);
        if (ShowSelector(selector)) TakeStored(selector.Selection());
        SourceName = selector.Selection();
        ShowModified();
        return true;
    });
    if (!done) {
        MPlatform::ShowPlain(Failure(std::string("select ") + terms_.word, selector.Selection(), "from the database"));
        ShowItem();
    }
    selector.Unload();
    if (done && EditState == Edited) EditState = Unchanged;
}

void FMaker::cmdViewList_Click() {
    StoreIfEdited();
    FArmyRoster viewer;
    ShowList(viewer);
    viewer.ShowModal(this);
}

void FMaker::cmdDelete_Click() {
    FSelector selector;
    selector.SetPrompt(terms_.deletePrompt);
    selector.SetOKCaption("Delete Item");
    selector.SetCancelCaption("Close");
    const bool done = Trap([&] {
        while (ShowSelector(selector)) {
            RemoveStored(selector.Selection());
            if (SourceName == selector.Selection()) EditState = Edited;
        }
        return true;
    });
    if (!done) {
        MPlatform::ShowPlain(Failure(std::string("delete ") + terms_.word, selector.Selection(), "from the database"));
    }
    selector.Unload();
    if (EditState == Unchanged) EditState = ListChanged;
}

void FMaker::cmdSaveChanges_Click() {
    StoreIfEdited();
    if (SaveDocument(terms_.writeFailure)) EditState = Unchanged;
}

void FMaker::WalkNext() {
    Walk(Next);
}

void FMaker::WalkPrev() {
    Walk(Previous);
}

// Has no end in a list whose records are all passed over: all that is left then is to close the form.
void FMaker::Walk(std::int32_t (*next)(std::int32_t position, std::int32_t count)) {
    StoreIfEdited();
    std::int32_t position = StoredPosition(MAnsiText::UpperCase(SourceName.empty() ? Item().Name() : SourceName));
    std::int32_t passed = 0;
    do {
        if (passed > StoredCount()) {
            WaitForClosing();
            return;
        }
        position = next(position, StoredCount());
        if (position < 1) return;
        ++passed;
    } while (WalkSkips(position));

    TakeStored(position);
    SourceName = Item().Key();
    ShowWalked();
    if (EditState == Edited) EditState = Unchanged;
}
