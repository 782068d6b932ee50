#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/color_button.h"
#include "controls/frame.h"
#include "core/files/record.h"
#include "makers/selector.h"
#include "shell/look/edit_form.h"

class FArmyRoster;
class QBoxLayout;
class QGridLayout;

/// In what the makers' texts, limits and documents differ.
struct SMakerTerms {
    const char* formName;
    const char* caption;
    const char* word;                ///< what messages call a record
    const char* modifyPrompt;        ///< of the selector
    const char* deletePrompt;        ///< of the selector
    const char* notStored;           ///< warning about an item that isn't valid, when another one takes its place
    const char* notStoredAtClosing;  ///< the same when the form closes
    MGlobal::Document document;      ///< that holds the list
    const char* writeFailure;        ///< warning when the document can't be saved
};

/// The checks that an item must pass. All of them run, and each that fails says so where messages are asked for.
class CValidation {
  public:
    explicit CValidation(bool messages) : messages_(messages) {}

    void Require(bool holds, const char* warning);
    bool Valid() const { return valid_; }

  private:
    bool messages_;
    bool valid_ = true;
};

/// The frame of an editing form: it edits one working item and keeps a list of finished ones in a working document. The
/// working item is never a stored record: records are copied into it and out of it.
///
/// A maker supplies its terms, its controls and the hooks below; `FMakerOf` fills in those that only depend on the
/// class of the item. An item that was edited is offered for storing before another takes its place, and at closing.
class FMaker : public FEditForm {
  public:
    explicit FMaker(const SMakerTerms& terms);

  protected:
    static constexpr std::int16_t ListChanged = 2;  ///< edit state: and the file isn't written yet
    enum Commands { New, AddToDb, Modify, ViewList, Delete };

    // What every maker has of its own.

    /// The load steps after those of the frame.
    virtual void LoadItem() = 0;
    /// Whether the working item may be stored; says what is missing where messages are asked for.
    virtual bool ValidateItem(bool messages) = 0;
    /// Writes the whole of the working item into the controls, under `Loading`.
    virtual void ShowItem() = 0;
    virtual void cmdNew_Click() = 0;
    virtual void ShowList(FArmyRoster& viewer) = 0;
    virtual bool ShowSelector(FSelector& selector) = 0;

    // What a maker may vary.

    /// Display after a record was taken by Modify, and after a step of the walk.
    virtual void ShowModified() { ShowItem(); }
    virtual void ShowWalked() { ShowItem(); }
    /// A record that the walk passes over.
    virtual bool WalkSkips(std::int32_t /*position*/) const { return false; }

    // The list and the item, by class: FMakerOf.

    virtual CRecord& Item() const = 0;
    virtual std::int32_t StoredCount() const = 0;
    virtual bool IsStored(const std::string& key) const = 0;
    /// Position of the record of that key, 0 for none.
    virtual std::int32_t StoredPosition(const std::string& key) const = 0;
    virtual void RemoveStored(const std::string& key) = 0;
    /// Adds a copy of the working item to the list, and takes from the copy what storing made of it. False when the
    /// list refused.
    virtual bool StoreCopy() = 0;
    /// Copies a stored record into the working item. Error 5 or 9 where there is none, 13 where it is of another class.
    virtual void TakeStored(const std::string& key) = 0;
    virtual void TakeStored(std::int32_t position) = 0;

    /// Runs before anything that replaces the working item. Its Cancel stops nothing.
    void StoreIfEdited();

    // Places of a maker's own controls.

    /// A row below name and description.
    void AddField(QXLabel& label, QWidget& field);
    /// A frame left of the point cost, as wide as it.
    void AddToHead(QXFrame& frame);
    /// Below the head.
    QBoxLayout& Work() { return *work_; }

    void Form_Load() override;
    bool QueryUnload() override;

    std::string SourceName;  ///< name or key of the stored record that the item stems from; empty for a new item

    QXFrame frmPointCost{this, "frmPointCost"};
    QXTextEdit tedPointCost{this, "tedPointCost"};
    QXColorButton cmdPrev{this, "cmdPrev"};
    QXColorButton cmdNext{this, "cmdNext"};

  private:
    void LayOut();
    void Store(const std::string& newName);
    std::string Failure(std::string_view attempt, std::string_view name, std::string_view where) const;
    /// Offers an edited item for storing. One that can't be stored is thrown away: without a word where it has no name,
    /// else after a warning, whose Cancel gives false.
    bool OfferStoring(const char* notStored);
    bool IsStorable(bool messages);
    void WalkNext();
    void WalkPrev();
    void Walk(std::int32_t (*next)(std::int32_t position, std::int32_t count));
    void SetItemName(const std::string& name) override { Item().SetName(name); }
    void SetItemDescr(const std::string& descr) override { Item().SetDescr(descr); }
    void cmdAddToDb_Click();
    void cmdModify_Click();
    void cmdViewList_Click();
    void cmdDelete_Click();
    void cmdSaveChanges_Click();

    SMakerTerms terms_;
    QGridLayout* fields_ = nullptr;
    QBoxLayout* head_ = nullptr;
    QBoxLayout* work_ = nullptr;
};
