#include "makers/maker_test.h"

#include <QTimer>
#include <array>
#include <ctime>
#include <vector>

#include "makers/weapon_maker.h"
#include "units/army_list.h"

namespace {

using MFormDriver::CloseWindow;
using MFormDriver::WhileModal;
using enum BoxAnswer;

const std::string kBefore = "Alpha:a Beta:b ";
const std::string kWillNot = "The current weapon data is not complete/valid, it WILL NOT be saved to the database.";
const std::string kCannot = "The current weapon data is not complete/valid, it CANNOT be saved to the database.";
const std::string kInvalidCall = "5: Invalid procedure call or argument";
const std::string kDeleteTexts = "Select the weapon to remove from the database:/Delete Item/Close";

const std::function<void(CForm&)> kWaysToClose[] = {
    &CloseWindow, [](CForm& form) { MFormDriver::Press(form, "tedName", Qt::Key_Escape); },
    [](CForm& form) { MFormDriver::Click(form, "cmdExit"); }};

/// The frame, through the maker of weapons, over two weapons.
class MakerFrameTest : public MakerTest {
  protected:
    MakerFrameTest() { Start(); }

    void Start() {
        Weapons().Clear();
        AddWeapon("Alpha", "a");
        AddWeapon("Beta", "b");
        Open<FWeaponMaker>();
    }
    void MakeInvalid() { Do("optAttackType(0)"); }  // flame without an area
};

TEST_F(MakerFrameTest, LimitsTextsAndHighlightsButtons) {
    Do("tedName=" + std::string(51, 'x'));
    Do("tedDescr=" + std::string(101, 'x'));
    EXPECT_EQ(Text("tedName").size() * 1000 + Text("tedDescr").size(), 50100u);
    EXPECT_TRUE(Control<QXTextEdit>("tedName").AutoSelect() && Control<QXTextEdit>("tedPointCost").Locked());
    MFormDriver::Hover(*form_, "cmdNext");
    EXPECT_EQ(Button("cmdNext").BorderStyle(), 1);
    MFormDriver::Hover(*form_, "frmMenu");
    EXPECT_EQ(Button("cmdNext").BorderStyle(), 0);
}

TEST_F(MakerFrameTest, SaveChangesFollowsTheWorkingFileAtEachActivation) {
    WhileModal([this](CForm& maker) {
        auto& save = MFormDriver::Get<QXColorButton>(maker, QString::fromStdString(kSave));
        EXPECT_FALSE(save.isEnabled());
        MGlobal::SetEquipmentFile(folder_ / "eq.v2q");
        InSelector(-1, "cmdCancel");
        MFormDriver::Click(maker, QString::fromStdString(kDelete));
        EXPECT_TRUE(save.isEnabled());
        CloseWindow(maker);
    });
    FWeaponMaker().ShowModal();
}

TEST_F(MakerFrameTest, AsksBeforeItStores) {
    const struct {
        const char* name;
        bool fromAlpha;  // a change of that record, else a new item
        const char* questions;
        std::string list;
    } kCases[] = {
        {"Gamma", false, "A-", kBefore},          {"Aleph", false, "A+", "Aleph: Alpha:a Beta:b "},
        {"beta", false, "U-", kBefore},           {"beta", false, "U+", "Alpha:a beta: "},
        {"ALPHA", true, "U-", kBefore},           {"ALPHA", true, "U+", "ALPHA:a Beta:b "},
        {"Gamma", true, "R+", "Beta:b Gamma:a "}, {"Gamma", true, "R-A+", "Alpha:a Beta:b Gamma:a "},
        {"Gamma", true, "R-A-", kBefore},         {"Beta", true, "R+O+", "Beta:a "},
        {"Beta", true, "R+O-", kBefore},          {"Beta", true, "R-O+", "Alpha:a Beta:a "},
        {"Beta", true, "R-O-", kBefore},
    };
    for (const auto& store : kCases) {
        SCOPED_TRACE(store.name + std::string(store.questions));
        Start();
        if (store.fromAlpha) TakeRow(0);
        Do(std::string("tedName=") + store.name);
        const std::string name = MAnsiText::UpperCase(store.name);
        Ask(store.questions, name, "ALPHA");
        Do(kAddToDb);
        platform_.Verify();
        EXPECT_EQ(Rows(Weapons()), store.list);
        if (store.list == kBefore) {  // still to be stored
            Ask(store.questions, name, "ALPHA");
        } else {  // it is a stored record's now
            Ask("U-", name);
            Do(kAddToDb);
        }
        ExpectClosing("2");
        EXPECT_EQ(Rows(Weapons()), store.list);
    }
}

TEST_F(MakerFrameTest, StoresACopy) {
    Do("tedName=Gamma");
    Ask("A+", "GAMMA");
    Do(kAddToDb);
    Do("tedDescr=later");
    Do("optWeaponPen(2)");
    EXPECT_EQ(Rows(Weapons()), kBefore + "Gamma: ");
    EXPECT_EQ(Weapons().Item("GAMMA").PointCost(), 4);
    Ask("U+", "GAMMA");
    TakeRow(0);
    ExpectClosing("2");  // the next item doesn't make the list unchanged
}

TEST_F(MakerFrameTest, TellsWhyAStoreFailed) {
    TakeRow(0);
    Do("tedName=Beta");
    Weapons().Remove("ALPHA");  // the record to be renamed has gone meanwhile
    Ask("R+O+", "BETA", "ALPHA");
    Expect(BoxKind::Warning, "Error while trying to add \"BETA\" to the list: " + kInvalidCall);
    Do(kAddToDb);
    EXPECT_EQ(Weapons().Count(), 0);  // the one to be overwritten stays gone
    Ask("R-A-", "BETA", "ALPHA");
    ExpectClosing("2");

    // A refusal of the list is told, and then taken for a success.
    Start();
    Weapons().Clear();
    const auto keep = [](bool order) { Weapons().SetSorted(order), Weapons().SetIndexed(order); };
    keep(false);
    Weapons().Add(std::make_shared<CEqItem>());  // has no name to stand before
    keep(true);
    Do("tedName=Gamma");
    Ask("A+", "GAMMA");
    Expect(BoxKind::Warning,
           "Error while trying to add \"Gamma\" to the list: 91: Object variable or With block variable not set");
    Do(kAddToDb);
    ExpectClosing("2");
}

// Each command that replaces the item first offers it for storing, and then goes on whatever the answer was.
TEST_F(MakerFrameTest, OffersAnEditedItemBeforeAnotherTakesItsPlace) {
    enum Kinds { Valid, NotValidOk, NotValidCancel, Unnamed };
    const struct {
        std::string command;
        std::function<void()> modal;
        bool offers;
        std::string name;  // what the form shows then
        bool staysEdited;
        const char* marked;
    } kCommands[] = {
        {kNew, nullptr, true, "", false, "2"},
        {kModify, [] { InSelector(0, "cmdOK"); }, true, "Alpha", false, ""},
        {kViewList, [] { WhileModal(&CloseWindow); }, true, "Gamma", true, "2"},
        {kDelete, [] { InSelector(-1, "cmdCancel"); }, false, "Gamma", true, "2"},
        {kSave, nullptr, true, "Gamma", false, ""},
        {"cmdPrev", nullptr, true, "Beta", false, ""},
        {"cmdNext", nullptr, true, "Alpha", false, ""},
    };
    MGlobal::SetEquipmentFile(folder_ / "eq.v2q");
    for (const auto& command : kCommands) {
        for (const int kind : {Valid, NotValidOk, NotValidCancel, Unnamed}) {
            SCOPED_TRACE(command.command + " " + std::to_string(kind));
            const auto expectOffer = [&, kind](const std::string& warning, BoxAnswer answer) {
                if (kind == Valid) Ask("A-", "GAMMA");
                if (kind == NotValidOk || kind == NotValidCancel) WarnWithCancel(warning, answer);
            };
            Start();
            if (kind != Unnamed) Do("tedName=Gamma");
            Do("chkAttackType(0)");
            if (kind != Valid) MakeInvalid();
            if (command.offers) expectOffer(kWillNot, kind == NotValidOk ? Ok : Cancel);
            if (command.modal) command.modal();
            Do(command.command);
            platform_.Verify();
            EXPECT_EQ(Text("tedName"), kind == Unnamed && command.name == "Gamma" ? "" : command.name);
            // Cancel shows the item anew: the effect, switched off by the click of the type, is lit again.
            if (command.command == kSave && kind != Valid) {
                EXPECT_EQ(Lit("chkAttackType"), kind == NotValidCancel ? "0" : "");
            }
            if (command.staysEdited) expectOffer(kCannot, Ok);
            ExpectClosing(command.marked);
            EXPECT_EQ(Rows(Weapons()), kBefore);
        }
    }
}

TEST_F(MakerFrameTest, ModifyTakesARecordAndTheSelectionAsItsSource) {
    InSelector(0, "cmdOK", "Select a weapon from the database:/OK/Cancel");
    Do(kModify);
    Do("tedDescr=x");
    EXPECT_EQ(Text("tedName") + Rows(Weapons()), "Alpha" + kBefore);
    // Cancel after a click links the item to another record, without one to none. Neither counts as an edit.
    Ask("U-", "ALPHA");
    InSelector(1, "cmdCancel");
    Do(kModify);
    EXPECT_EQ(Text("tedName") + Text("tedDescr"), "Alphax");
    Ask("R-O-", "ALPHA", "BETA");
    Do(kAddToDb);
    InSelector(-1, "cmdCancel");
    Do(kModify);
    Ask("U-", "ALPHA");
    Do(kAddToDb);
    Do(kNew);
    ExpectClosing("");

    // An error leaves source and state alone.
    Start();
    Add(Weapons(), CEqItem::Accessory, "Helm");
    Do("tedDescr=edited");
    Expect(BoxKind::Plain, "Error while trying to select weapon \"Helm\" from the database: 13: Type mismatch");
    TakeRow(2);
    ExpectClosing("2");
}

TEST_F(MakerFrameTest, DeletesUntilItIsClosed) {
    TakeRow(0);
    InSelector(-1, "cmdCancel", kDeleteTexts);
    Do(kDelete);
    ExpectClosing("2");  // the list counts as changed, even if nothing was chosen
    const struct {
        const char* record;
        bool byWalk;  // the source is then the key, which is a name in capitals
        bool edited;
    } kSources[] = {{"Alpha", false, true}, {"Alpha", true, false}, {"ALPHA", true, true}};
    for (const auto& source : kSources) {
        Start();
        Weapons().Remove("ALPHA");
        AddWeapon(source.record);
        source.byWalk ? Do("cmdNext") : TakeRow(0);
        InSelector(1, "cmdOK");
        InSelector(0, "cmdOK");
        InSelector(-1, "cmdCancel");
        Do(kDelete);
        EXPECT_EQ(Weapons().Count(), 0);
        if (source.edited) Ask("A-", "ALPHA");
        ExpectClosing("2");
    }
    Start();
    Add(Weapons(), CEqItem::Weapon, "Gamma", "ELSEWHERE");
    Expect(BoxKind::Plain, "Error while trying to delete weapon \"Gamma\" from the database: " + kInvalidCall);
    InSelector(2, "cmdOK");
    Do(kDelete);
    ExpectClosing("2");
}

TEST_F(MakerFrameTest, ShowsAndSavesTheList) {
    ExpectPage("Beta");
    ExpectClosing("");
    for (const bool writable : {true, false}) {
        Start();
        MGlobal::SetEquipmentFile(folder_ / (writable ? "eq.v2q" : "none/eq.v2q"));
        MGlobal::SetFileModified(MGlobal::EquipmentDocument, true);
        Button(kSave).SetEnabled(true);
        Do("tedName=Gamma");
        Ask("A+", "GAMMA");
        if (!writable) Expect(BoxKind::Warning, "Error while writing equipment tables.");
        Do(kSave);
        EXPECT_EQ(Modified(), "2");  // an earlier mark stays
        ExpectClosing(writable ? "" : "2");
    }
    CArmyTables saved;
    EXPECT_TRUE(saved.ReadInfo(folder_ / "eq.v2q"));
    EXPECT_EQ(Rows(saved.ArmyWeapons()), kBefore + "Gamma: ");
}

TEST_F(MakerFrameTest, WalksInACircle) {
    AddWeapon("Gamma");
    for (const std::array<std::string, 5>& walk :
         {std::array<std::string, 5>{"cmdNext", "Alpha", "Beta", "Gamma", "Alpha"},
          {"cmdPrev", "Gamma", "Beta", "Alpha", "Gamma"}}) {
        Open<FWeaponMaker>();
        for (std::size_t step = 1; step < walk.size(); ++step) {
            Do(walk[0]);
            EXPECT_EQ(Text("tedName"), walk[step]);
        }
        Do("tedName=Zeta");
        Ask("R-A-", "ZETA", MAnsiText::UpperCase(walk[4]));
        Do(walk[0]);
        EXPECT_EQ(Text("tedName"), walk[2]);  // from its source, not by its name
        ExpectClosing("");
    }
    Open<FWeaponMaker>();
    Do("tedName=beta");
    Ask("U-", "BETA");
    Do("cmdNext");
    EXPECT_EQ(Text("tedName"), "Gamma");  // without a source it goes by its name
    Weapons().Clear();
    for (const char* button : {"cmdNext", "cmdPrev"}) {
        Open<FWeaponMaker>();
        Do("tedName=Gamma");
        Ask("A-A-", "GAMMA");
        Do(button);
        EXPECT_EQ(Text("tedName"), "Gamma");
        ExpectClosing("2");  // still edited
    }
}

TEST_F(MakerFrameTest, ClosingOffersAnEditedItem) {
    for (const auto& close : kWaysToClose) {
        Start();
        Do("tedName=Gamma");
        MakeInvalid();
        WarnWithCancel(kCannot, Cancel);
        close(*form_);
        EXPECT_TRUE(form_->Visible());
        EXPECT_EQ(Modified(), "");
        WarnWithCancel(kCannot, Ok);
        close(*form_);
        EXPECT_FALSE(form_->Visible());
        EXPECT_EQ(Modified(), "2");
        MGlobal::SetFileModified(MGlobal::EquipmentDocument, false);
    }
    Start();
    Do("tedName=Gamma");
    Ask("A+", "GAMMA");
    ExpectClosing("2");
    EXPECT_EQ(Rows(Weapons()), kBefore + "Gamma: ");
    Start();
    ExpectClosing("");
    Start();
    Do("tedDescr=no name");
    ExpectClosing("2");
}

constexpr const char* kNotStored = "Not stored.";
constexpr const char* kNotClosed = "Not stored at closing.";
constexpr SMakerTerms kUnitTerms = {
    "FStubMaker", "Units", "unit", "", "", kNotStored, kNotClosed, MGlobal::ArmyListDocument, ""};

/// The least of a maker: of units that are never valid, with a walk that passes over squads.
class FStubMaker : public FMakerOf<CUnit> {
  public:
    FStubMaker() : FMakerOf(kUnitTerms) { WorkItem = std::make_unique<CUnit>(); }

    bool ValidationFails = false;
    int News = 0;

  protected:
    void LoadItem() override {}
    bool ValidateItem(bool) override {
        if (ValidationFails) throw CRuntimeError(ErrorNumber::Overflow);
        return false;
    }
    void ShowItem() override { tedName.SetText(WorkItem->Name()); }
    void cmdNew_Click() override { ++News; }
    void ShowList(FArmyRoster&) override {}
    bool ShowSelector(FSelector&) override { return false; }
    const std::string& DocumentFile() const override { return MGlobal::ArmyListFile(); }
    bool WriteDocument() const override { return false; }
    bool WalkSkips(std::int32_t position) const override {
        return List().Share(position)->GenUnitClass() == CGenUnit::Squad;
    }
    CUnitList& List() const override { return MGlobal::ArmyList().ArmyUnits(); }
};

class SkippingWalkTest : public MakerTest {
  protected:
    static void AddUnits(std::initializer_list<std::pair<const char*, CGenUnit::Kind>> units) {
        for (const auto& [name, kind] : units) {
            auto unit = std::make_shared<CGenUnit>();
            unit->NewUnit(kind);
            unit->SetName(name);
            MGlobal::ArmyList().ArmyUnits().Add(unit);
        }
    }
};

TEST_F(SkippingWalkTest, PassesOverSquads) {
    using enum CGenUnit::Kind;
    AddUnits({{"a", Squad}, {"b", Single}, {"c", Squad}, {"d", Single}, {"e", Squad}});
    Open<FStubMaker>();
    std::string names;
    for (const char* button : {"cmdNext", "cmdNext", "cmdNext", "cmdPrev", "cmdPrev"}) {
        Do(button);
        names += Text("tedName");
    }
    EXPECT_EQ(names, "bdbdb");
}

TEST_F(SkippingWalkTest, WithoutAnEndItLastsUntilTheFormIsClosed) {
    AddUnits({{"a", CGenUnit::Squad}, {"b", CGenUnit::Squad}});
    for (const auto& close : kWaysToClose) {
        MGlobal::SetFileModified(MGlobal::ArmyListDocument, false);
        auto& maker = Open<FStubMaker>();
        Do("tedName=Gamma");
        bool walking = true;
        int round = 0;
        std::clock_t start = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            ++round;
            if (round == 1) {
                Do(kNew);  // inert
                Do("cmdPrev");
                EXPECT_EQ(maker.News, 0);
                start = std::clock();
            } else {
                EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 10);  // idles most of 0.2 s
                WarnWithCancel(kNotClosed, round == 2 ? Cancel : Ok);
                close(maker);
                EXPECT_EQ(walking && maker.Visible(), round == 2);  // a refusal lets it go on
                start = std::clock();
            }
        });
        timer.start(200);
        WarnWithCancel(kNotStored, Ok);
        Do("cmdNext");
        walking = false;
        EXPECT_EQ(round, 3);
        EXPECT_FALSE(maker.Visible());
        EXPECT_EQ(Modified(), "0");
    }
}

TEST_F(SkippingWalkTest, AnErrorInTheClosingStepsLosesNothing) {
    Open<FStubMaker>().ValidationFails = true;
    Do("tedName=Gamma");
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    ExpectClosing("0");
}

}  // namespace
