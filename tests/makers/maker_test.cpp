#include "makers/maker_test.h"

#include <QTimer>
#include <optional>

#include "makers/weapon_maker.h"

namespace {

using MFormDriver::CloseWindow;
using enum BoxAnswer;

const std::string kBefore = "Alpha:a Beta:b ";
const std::string kWillNot = "The current weapon data is not complete/valid, it WILL NOT be saved to the database.";
const std::string kCannot = "The current weapon data is not complete/valid, it CANNOT be saved to the database.";
const std::string kInvalidCall = "5: Invalid procedure call or argument";
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
        DoAll(actions);
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
        {"Beta", true, "R-O-", kBefore},
    };
    for (const auto& [typed, fromAlpha, questions, list] : kCases) {
        SCOPED_TRACE(typed + questions);
        const std::string name = MAnsiText::UpperCase(typed);
        Start();
        if (fromAlpha) TakeRow(0);
        Ask(questions, name, "ALPHA");
        DoAll("tedName=" + typed + " " + kAddToDb);
        EXPECT_EQ(Rows(), list);
        if (list == kBefore) {  // still to be stored
            Ask(questions, name, "ALPHA");
        } else {  // it is a stored record's now
            Ask("U-", name);
            Do(kAddToDb);
        }
        ExpectClosing("2");
        EXPECT_EQ(Rows(), list);
    }
}

TEST_F(MakerFrameTest, StoresACopy) {
    Ask("A+", "GAMMA");
    DoAll("tedName=Gamma " + kAddToDb + " tedDescr=later");
    EXPECT_EQ(Rows(), kBefore + "Gamma: ");
    Ask("U+", "GAMMA");
    TakeRow(0);
    ExpectClosing("2");  // the next item doesn't make the list unchanged
}

TEST_F(MakerFrameTest, TellsWhyAStoreFailed) {
    TakeRow(0);
    Weapons().Remove("ALPHA");  // the record to be renamed has gone meanwhile
    Ask("R+O+", "BETA", "ALPHA");
    Expect(BoxKind::Warning, "Error while trying to add \"BETA\" to the list: " + kInvalidCall);
    DoAll("tedName=Beta " + kAddToDb);
    EXPECT_EQ(Rows(), "");  // the one to be overwritten stays gone
    Ask("R-A-", "BETA", "ALPHA");
    ExpectClosing("2");
}

// Each command that replaces the item first offers it for storing, and then goes on whatever the answer was.
TEST_F(MakerFrameTest, OffersAnEditedItemBeforeAnotherTakesItsPlace) {
    const std::tuple<std::string, const char*, const char*> kCommands[] = {
        // the name that is shown then, the mark
        {kNew, "", "2"},      {kModify, "Alpha", ""},  {kViewList, "Gamma", "2"},
        {kSave, "Gamma", ""}, {"cmdPrev", "Beta", ""}, {"cmdNext", "Alpha", ""}};
    using Warned = std::optional<BoxAnswer>;  // the answer, for an item that isn't valid
    MGlobal::SetEquipmentFile(folder_ / "eq.v2q");
    for (const auto& [command, name, marked] : kCommands) {
        for (const Warned warned : {Warned(), Warned(Ok), Warned(Cancel)}) {
            SCOPED_TRACE(command + (!warned ? "" : *warned == Ok ? " OK" : " Cancel"));
            const auto expectOffer = [&](const std::string& warning) {
                warned ? WarnWithCancel(warning, *warned) : Ask("A-", "GAMMA");
            };
            Start(warned ? kInvalidGamma : "tedName=Gamma");
            expectOffer(kWillNot);
            if (command == kModify) InSelector(0, "cmdOK");
            if (command == kViewList) MFormDriver::WhileModal(&CloseWindow);
            Do(command);
            EXPECT_EQ(Text("tedName"), name);
            // Cancel shows the item anew: the effect, switched off by the click of the type, is lit again.
            EXPECT_EQ(Lit("chkAttackType"), name == std::string("Gamma") && warned == Cancel ? "0" : "");
            if (command == kViewList) warned ? WarnWithCancel(kCannot, Ok) : Ask("A-", "GAMMA");  // still edited
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
    for (const bool byWalk : {false, true}) {
        Start();
        byWalk ? Do("cmdNext") : TakeRow(0);
        InSelector(1, "cmdOK");
        InSelector(0, "cmdOK");
        InSelector(-1, "cmdCancel");
        Do(kDelete);
        EXPECT_EQ(Rows(), "");
        // The record on the form is an edited item then; but the walk left its key as the source, in capitals.
        if (!byWalk) Ask("A-", "ALPHA");
        ExpectClosing("2");
    }
    Start();
    InSelector(-1, "cmdCancel");
    Do(kDelete);
    ExpectClosing("2");  // the list counts as changed, even if nothing was chosen
}

TEST_F(MakerFrameTest, ShowsAndSavesTheList) {
    for (const bool writable : {true, false}) {
        MGlobal::SetEquipmentFile("");
        Start();
        EXPECT_FALSE(Enabled(kSave));
        MGlobal::SetEquipmentFile(folder_ / (writable ? "eq.v2q" : "none/eq.v2q"));
        ExpectPage(kViewList, "Beta");
        form_->Hide();
        MFormDriver::Show(*form_);  // active again: now there is a file
        MGlobal::SetFileModified(MGlobal::EquipmentDocument, true);
        Ask("A+", "GAMMA");
        if (!writable) Expect(BoxKind::Warning, "Error while writing equipment tables.");
        DoAll("tedName=Gamma " + kSave);
        EXPECT_EQ(Modified(), "2");  // an earlier mark stays
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
    Open<FWeaponMaker>();
    Do("tedName=beta");
    Ask("U-", "BETA");
    EXPECT_EQ(Walk("N"), "Gamma ");  // without a source it goes by its name
    Weapons().Clear();
    Open<FWeaponMaker>();
    Do("tedName=Gamma");
    Ask("A-A-A-", "GAMMA");
    EXPECT_EQ(Walk("NP"), "Gamma Gamma ");
    ExpectClosing("2");  // still edited
}

TEST_F(MakerFrameTest, ClosingStoresAnEditedItemOrMarksTheLoss) {
    ExpectClosing("");
    Start("tedName=Gamma");
    Ask("A+", "GAMMA");
    ExpectClosing("2");
    EXPECT_EQ(Rows(), kBefore + "Gamma: ");
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
        WarnWithCancel(kCannot, ++tries == 1 ? Cancel : Ok);
        CloseWindow(*form_);
        EXPECT_EQ(form_->Visible(), tries == 1);  // a refusal lets it go on
    });
    timer.start(20);
    WarnWithCancel(kWillNot, Ok);
    Do("cmdNext");
    EXPECT_EQ(Text("tedName") + Modified(), "Gamma2");
    EXPECT_EQ(tries, 2);
}

}  // namespace
