#include "makers/maker_test.h"

#include <QTimer>

#include "makers/weapon_maker.h"

namespace {

using MFormDriver::CloseWindow;
using enum BoxAnswer;

const std::string kBefore = "Alpha:a Beta:b ";
const std::string kWillNot = "The current weapon data is not complete/valid, it WILL NOT be saved to the database.";
const std::string kCannot = "The current weapon data is not complete/valid, it CANNOT be saved to the database.";
const char* kNoName = "No weapon name specified. Specify a name for the weapon before adding it to the database.";
const std::string kInvalidGamma = "tedName=Gamma chkAttackType(0) optAttackType(0)";  // flame without an area

/// The frame, through the maker of weapons, over two weapons.
class MakerFrameTest : public MakerTest {
  protected:
    MakerFrameTest() { Start(); }

    template <class TForm = FWeaponMaker>
    void Start(const std::string& actions = "") {
        Weapons().Clear();
        AddWeapon("Alpha", "a");
        AddWeapon("Beta", "b");
        Open<TForm>();
        Do(actions);
    }
    /// Names and descriptions in the order of the list, each filed under its own name.
    static std::string Rows(const CEqList& list = Weapons()) {
        std::string rows;
        for (const CEqItem& item : list) {
            rows += item.Name() + ":" + item.Descr() + " ";
            EXPECT_TRUE(list.Exists(item.Name()) && item.Key() == MAnsiText::UpperCase(item.Name()));
        }
        return rows;
    }
};

TEST_F(MakerFrameTest, AsksBeforeItStores) {
    // a name, whether it changes Alpha or is a new item's, the questions, and the list then
    const std::tuple<std::string, bool, std::string, std::string> kCases[] = {
        {"Gamma", false, "A-", kBefore},          {"Aleph", false, "A+", "Aleph: Alpha:a Beta:b "},
        {"beta", false, "U-", kBefore},           {"beta", false, "U+", "Alpha:a beta: "},
        {"ALPHA", true, "U-", kBefore},           {"ALPHA", true, "U+", "ALPHA:a Beta:b "},
        {"Gamma", true, "R+", "Beta:b Gamma:a "}, {"Gamma", true, "R-A+", "Alpha:a Beta:b Gamma:a "},
        {"Gamma", true, "R-A-", kBefore},         {"Beta", true, "R+O+", "Beta:a "},
        {"Beta", true, "R+O-", kBefore},          {"Beta", true, "R-O+", "Alpha:a Beta:a "},
        {"Beta", true, "R-O-", kBefore},          {"\"beta\"", false, "U+", "Alpha:a beta: "},
        {"*not_found*", false, "", kBefore},  // as nameless as a file would make it
    };
    for (const auto& [typed, fromAlpha, questions, list] : kCases) {
        SCOPED_TRACE(typed + questions);
        const std::string stored = MFileFormat::AsFileGivesBack(typed);
        const std::string name = MAnsiText::UpperCase(stored);
        Start();
        if (fromAlpha) TakeRow(0);
        Ask(questions, name, "ALPHA");
        if (questions.empty()) Expect(BoxKind::Warning, kNoName);
        Do("tedName=" + typed + " " + kAddToDb);
        EXPECT_EQ(Rows(), list);
        if (list == kBefore) {  // still to be stored
            Ask(questions, name, "ALPHA");
        } else {  // it is a stored record's now
            Ask("U-", name);
            Do(kAddToDb);
            EXPECT_EQ(Text("tedName"), stored);
        }
        ExpectClosing("2");
        EXPECT_EQ(Rows(), list);
    }
}

TEST_F(MakerFrameTest, StoresACopyAndIsChangedForGood) {
    Ask("A+", "GAMMA");
    Do("tedName=Gamma " + kAddToDb + " tedDescr=later");
    EXPECT_EQ(Rows(), kBefore + "Gamma: ");
    Ask("U-", "GAMMA");
    TakeRow(0);
    ExpectClosing("2");  // the next item doesn't make the list unchanged
}

TEST_F(MakerFrameTest, TellsWhyAStoreFailed) {
    TakeRow(0);
    Weapons().Remove("ALPHA");  // the record to be renamed has gone meanwhile
    Ask("R+O+", "BETA", "ALPHA");
    Expect(BoxKind::Warning, "Error while trying to add \"BETA\" to the list: 5: Invalid procedure call or argument");
    Do("tedName=Beta " + kAddToDb);
    EXPECT_EQ(Rows(), "");  // the one to be overwritten stays gone
}

// Each command that replaces the item first offers it for storing, and then goes on whatever the answer was.
TEST_F(MakerFrameTest, OffersAnEditedItemBeforeAnotherTakesItsPlace) {
    const std::tuple<std::string, const char*, const char*> kCommands[] = {
        // the name that is shown then, the mark
        {kNew, "", "2"},      {kModify, "Alpha", ""},  {kViewList, "Gamma", "2"},
        {kSave, "Gamma", ""}, {"cmdPrev", "Beta", ""}, {"cmdNext", "Alpha", ""}};
    MGlobal::SetEquipmentFile(folder_ / "eq.v2q");
    for (const auto& [command, name, marked] : kCommands) {
        for (const bool valid : {true, false}) {  // an item that can't be stored goes lost with a warning
            SCOPED_TRACE(command);
            Start(valid ? "tedName=Gamma" : kInvalidGamma);
            valid ? Ask("A-", "GAMMA") : WarnWithCancel(kWillNot, Cancel);
            if (command == kModify) InSelector(0, "cmdOK");
            if (command == kViewList) MFormDriver::WhileModal(&CloseWindow);
            Do(command);
            EXPECT_EQ(Text("tedName"), name);
            if (command == kViewList) valid ? Ask("A-", "GAMMA") : WarnWithCancel(kCannot, Ok);  // still edited
            ExpectClosing(marked);
            EXPECT_EQ(Rows(), kBefore);
        }
    }
}

TEST_F(MakerFrameTest, ModifyTakesARecordAndTheSelectionAsItsSource) {
    TakeRow(0);
    Do("tedDescr=x");
    EXPECT_EQ(Text("tedName") + Rows(), "Alpha" + kBefore);
    // Cancel after a click links the item to another record, and is no edit.
    Ask("U-", "ALPHA");
    InSelector(1, "cmdCancel");
    Do(kModify);
    Ask("R-O-", "ALPHA", "BETA");
    Do(kAddToDb);
    ExpectClosing("");
    // An error leaves source and state alone.
    Start("tedDescr=edited");
    Add(Weapons(), CEqItem::Accessory, "Helm");
    Expect(BoxKind::Plain, "Error while trying to select weapon \"Helm\" from the database: 13: Type mismatch");
    TakeRow(2);
    ExpectClosing("2");
}

TEST_F(MakerFrameTest, DeletesUntilItIsClosed) {
    TakeRow(0);
    InSelector(1, "cmdOK");
    InSelector(0, "cmdOK");
    MFormDriver::WhileModal(&CloseWindow);
    Do(kDelete);
    EXPECT_EQ(Rows(), "");
    Ask("A-", "ALPHA");  // the record on the form is an edited item now
    InSelector(-1, "cmdCancel");
    Do(kModify);
    ExpectClosing("2");
}

TEST_F(MakerFrameTest, SavesTheList) {
    EXPECT_FALSE(Control(kSave).isEnabled());
    for (const char* file : {"eq.v2q", "none/eq.v2q"}) {
        const bool writable = file == std::string("eq.v2q");
        MGlobal::SetEquipmentFile(folder_ / file);
        Start();
        Ask("A+", "GAMMA");
        if (!writable) Expect(BoxKind::Warning, "Error while writing equipment tables.");
        Do("tedName=Gamma " + kSave);
        ExpectClosing(writable ? "" : "2");
    }
    CArmyTables saved;
    EXPECT_TRUE(saved.ReadInfo(folder_ / "eq.v2q"));
    EXPECT_EQ(Rows(saved.ArmyWeapons()), kBefore + "Gamma: ");
}

TEST_F(MakerFrameTest, WalksInACircle) {
    AddWeapon("Gamma");
    EXPECT_EQ(Walk("PNNNNPPP"), "Gamma Alpha Beta Gamma Alpha Gamma Beta Alpha ");
    Do("tedName=Gamma");
    Ask("R-O-", "GAMMA", "ALPHA");
    EXPECT_EQ(Walk("N"), "Beta ");  // from its source, not by its name
    ExpectClosing("");
}

TEST_F(MakerFrameTest, ClosingStoresAnEditedItemOrMarksTheLoss) {
    ExpectClosing("");
    Start("tedDescr=nameless");
    ExpectClosing("2");
    class FFailingMaker : public FWeaponMaker {
        bool ValidateItem(bool) override { throw CRuntimeError(ErrorNumber::Overflow); }
    };
    Start<FFailingMaker>("tedName=Gamma");
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    ExpectClosing("2");
}

TEST_F(MakerFrameTest, AWalkWithoutAnEndLastsUntilTheFormIsClosed) {
    class FEndlessMaker : public FWeaponMaker {
        bool WalkSkips(std::int32_t) const override { return true; }
    };
    Start<FEndlessMaker>(kInvalidGamma);
    int tries = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        EXPECT_TRUE(platform_.Busy && !Control("tedName").isEnabled() && !Control(kNew).isEnabled())
            << "a walk that finds nothing leaves the form alive, or the pointer idle";
        WarnWithCancel(kCannot, ++tries == 1 ? Cancel : Ok);
        Do("cmdExit");
        EXPECT_EQ(form_->Visible(), tries == 1);  // a refusal lets it go on
    });
    timer.start(20);
    WarnWithCancel(kWillNot, Ok);
    Do("cmdNext");
    EXPECT_EQ(Text("tedName") + TakeMarks(), "Gamma2");
    EXPECT_EQ(tries, 2);
    EXPECT_TRUE(!platform_.Busy && Control("tedName").isEnabled() && !Control(kSave).isEnabled())
        << "the closing doesn't leave the form as it was before the walk";
}

}  // namespace
