#include "makers/unit_maker.h"

#include <QClipboard>
#include <QTimer>
#include <algorithm>
#include <sstream>

#include "controls/picture_box.h"
#include "makers/maker_test.h"
#include "units/army_list.h"

namespace {

using MFormDriver::ClickRow;
using MFormDriver::WhileModal;
using enum BoxAnswer;

/// Infantry may carry rifles and mortars, a vehicle mortars, both what any unit may; robots may carry nothing.
class UnitMakerTest : public MakerTest {
  protected:
    UnitMakerTest() {
        std::string coded;
        std::istringstream lines(
            "'#VD_VER',2,2;0,0,0;'#CU',0;'#CW',0;'#CA',0;'#CUW',3;'Infantry','Rifle';'Infantry','Mortar';"
            "'Vehicle','Mortar';'#CUA',2;'Infantry','Any Unit';'Vehicle','Any Unit';'#CWBaP',0;'#CWRan',0;'#CWPen',0;");
        for (std::string line; std::getline(lines, line, ';'); coded += MHideUtils::EncodeLine(line) + "\r\n")
            std::replace(line.begin(), line.end(), '\'', '"');
        MGlobal::Reset();
        MGlobal::SetSkinId(1);
        Save("SuppData.vdx", coded);
        MGlobal::LoadWorkingFiles();
        AddWeapon("carbine").SetBaseCost(10);
        AddWeapon("Bombard").SetWeaponClass("Mortar");
        AddWeapon("Arquebus").SetWeaponProperty(CWeapon::Sticky, true);  // twice the cost
        CAccessory& plate = *Add(Accessories(), CEqItem::Accessory, "Plate").AsAccessory();
        plate.SetAccClass("Any Unit");
        plate.SetPF(2);
        plate.SetAccProperty(CAccessory::IndividualArmour, true);
        plate.SetPointCost(1.5);
        Open<FUnitMaker>();
    }

    static CUnitList& Units() { return MGlobal::ArmyList().ArmyUnits(); }
    static CUnit* AddUnit(const char* name, CGenUnit::Kind kind = CGenUnit::Single) {
        auto unit = std::make_shared<CGenUnit>();
        unit->NewUnit(kind);
        unit->SetName(name);
        Units().Add(unit);
        return unit->AsUnit();
    }
    /// Does the steps; those behind a semicolon in the dialog of special properties, which the last of them ends.
    void DoAll(const std::string& steps) {
        std::istringstream words(steps);
        for (std::string step; words >> step && step != ";";)
            Do(step);
        if (!words) return;
        WhileModal([&](CForm& dialog) {
            for (std::string step; words >> step;) {
                const QStringList parts = QString::fromStdString(step).split('=');
                parts.size() == 1 ? MFormDriver::Click(dialog, parts[0])
                                  : MFormDriver::Retype(dialog, parts[0], parts[1]);
            }
        });
        Do("cmdSpecialProps");
    }
    void Pick(const char* list, int row, bool twice = false) { ClickRow(*form_, list, row, twice); }
    std::string Items(const char* name) {
        std::string items;
        const auto& list = Control<CListBox>(name);
        for (int row = 0; row < list.ListCount(); ++row)
            items += list.List(row) + (row == list.ListIndex() ? "* " : " ");
        return items;
    }
    std::string Carried() { return Items("lstUnitEquipment") + "/ " + Text("tedPointCost"); }
    std::string Stats() {
        std::string stats;
        for (int stat = 0; stat < 5; ++stat) {
            const auto& field = Control<QXTextEdit>("tedStat(" + std::to_string(stat) + ")");
            stats += field.Text() + (field.isEnabled() ? " " : "- ");
        }
        return stats;
    }
    /// Which of Equip, Remove, Up and Down can be clicked.
    std::string Enabled() {
        std::string enabled;
        for (const auto& [button, letter] :
             {std::pair{"cmdAddItem", 'E'}, {"cmdRemoveItem", 'R'}, {"cmdItemMoveUp", 'U'}, {"cmdItemMoveDown", 'D'}})
            enabled += Button(button).isEnabled() ? std::string(1, letter) : "";
        return enabled;
    }
    bool PictureShown() { return Control<CPictureBox>("imgUnit").isVisible(); }
};

TEST_F(UnitMakerTest, OpensOnNewInfantry) {
    EXPECT_EQ(Stats() + Carried() + Items("lstEquipment") + Enabled(), "10 6 6 0 6 / 5Arquebus Bombard carbine ");
    EXPECT_EQ(Button("cmdItemMoveUp").accessibleName() + Button("cmdItemMoveDown").accessibleName(),
              "Move UpMove Down");
    EXPECT_EQ(Control<QXLabel>("lblStat(3)").ToolTipText() + Lit("optUnit") + Lit("optFilter"), "Protection Factor00");
    EXPECT_TRUE(PictureShown() && Button(kNew).isEnabled());
    ExpectClosing("");
    MGlobal::SetSkinId(2);  // has no pictures of units
    Open<FUnitMaker>();
    EXPECT_FALSE(PictureShown());
}

TEST_F(UnitMakerTest, ShowsTheCostOfEveryChoice) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "5"},
        {"tedStat(1)=4", "15"},
        {"tedStat(2)=4", "11"},
        {"tedStat(1)=0", "2"},
        {"tedStat(1)=0 tedStat(2)=0", "2"},
        {"tedStat(1)=0 tedStat(2)=0 ; chkMedic cmdOK", "7Medic"},
        {"tedStat(3)=3", "12"},
        {"tedStat(0)=12", "7"},
        {"tedStat(4)=4", "9"},
        {"; tedOfficerBonus=2 cmdOK", "18Officer +2"},
        {"; chkFlying cmdOK", "7.5Flyer"},
        {"; chkFlying cmdCancel", "5"},
        {"optUnit(1)", "7"},
        {"optUnit(1) tedStat(3)=5 ; tedCrewNumber(2)=2 cmdOK", "35"},
        {"optUnit(1) tedStat(3)=2 ; tedCrewNumber(2)=1 cmdOK", "15"},  // 5 + 4, and 6 for the crew
        {"optUnit(1) tedStat(3)=7", "31"},                             // 5 + 24 + 2
        {"optUnit(2) tedStat(2)=4", "14"},                             // a skill gained: 5 + 3 x 3
        {"optUnit(3)", "15"},
    };
    for (const auto& [steps, cost] : cases) {
        Open<FUnitMaker>();
        DoAll(steps);
        EXPECT_EQ(Text("tedPointCost") + Label("lblSpecialDescr(2)"), cost) << steps;
        const bool edited = std::string(steps).find_first_of("=k") != std::string::npos;
        ExpectClosing(edited && !std::string(steps).ends_with("Cancel") ? "0" : "");
    }
    Open<FUnitMaker>();
    DoAll("; tedOfficerBonus=2 cmdOK");
    Pick("lstEquipment", 2, true);
    EXPECT_EQ(Text("tedPointCost"), "38");  // (9 + 10) x 2
    // A crew that can't be priced, at 4 points a place, is told, and told again at OK.
    Open<FUnitMaker>();
    for (int times = 0; times < 2; ++times)
        Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    DoAll("optUnit(1) ; tedCrewNumber(1)=9000 cmdOK cmdCancel");
    Do("tedStat(0)=11");
    EXPECT_EQ(Text("tedPointCost"), "8");
}

TEST_F(UnitMakerTest, StatFieldsShowWhatTheirLimitsLetThrough) {
    const std::pair<const char*, const char*> cases[] = {
        {"tedStat(1)=3", "3!"},  {"tedStat(1)=0", "0"},  {"tedStat(1)=1", "2!"}, {"tedStat(1)=.", "0"},
        {"tedStat(1)=4", "4"},   {"tedStat(1)=9", "6"},  {"tedStat(2)=3", "3!"}, {"tedStat(2)=4", "4"},
        {"tedStat(0)=21", "20"}, {"tedStat(0)=1", "1"},  {"tedStat(3)=9", "5"},  {"tedStat(3)=3", "3"},
        {"tedStat(4)=1", "2"},   {"tedStat(0)=-8", "8"},
    };
    for (const auto& [step, shown] : cases) {  // "!" for red with a tip
        Open<FUnitMaker>();
        Do(step);
        const auto& stat = Control<QXTextEdit>(std::string(step, 10));
        const bool red = stat.ForeColor() == 255;
        EXPECT_TRUE(red || stat.ForeColor() == Control<QXTextEdit>("tedName").ForeColor());
        EXPECT_EQ(stat.Text() + (red ? "!" : ""), shown) << step;
        EXPECT_EQ(stat.ToolTipText(), red ? "Values below 4 for this stat are potentially unbalancing" : "");
    }
    auto& field = (Open<FUnitMaker>(), Control<QXTextEdit>("tedStat(0)"));
    for (const auto& [pasted, shown] : {std::pair{"2.5", "2"}, {"3.5", "4"}, {"12.9", "12"}}) {
        QGuiApplication::clipboard()->setText(pasted);
        Do("tedStat(0)=");
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field.Text(), shown);
    }
    Open<FUnitMaker>();
    Do("tedStat(0)=");
    EXPECT_EQ(Text("tedStat(0)"), "");
    MFormDriver::Press(*form_, "tedStat(0)", Qt::Key_Tab);
    EXPECT_EQ(Text("tedStat(0)"), "10");
    ExpectClosing("");
}

TEST_F(UnitMakerTest, ATypeThrowsTheUnitAway) {
    struct {
        const char* type;
        const char* stats;
        const char* items;
    } const cases[] = {{"optUnit(1)", "10 0- 0 0 0- / 7", "Bombard "},
                       {"optUnit(2)", "10 6 0 0 0- / 5", ""},
                       {"optUnit(3)", "10 6 0 0 1- / 15", ""},
                       {"optUnit(0)", "10 6 6 0 6 / 5", "Arquebus Bombard carbine "}};
    for (const auto& type : cases) {
        SCOPED_TRACE(type.type);
        for (const bool full : {false, true}) {
            Open<FUnitMaker>();
            if (full) DoAll("tedName=Gamma tedDescr=d tedStat(0)=7 ; chkFlying cmdOK");
            Pick("lstEquipment", 0, full);
            Do(type.type);
            EXPECT_EQ(Text("tedName") + Text("tedDescr") + Stats() + Carried(), type.stats);
            EXPECT_EQ(Items("lstEquipment") + Label("lblSpecialDescr(0)") + Enabled(), type.items);
            EXPECT_EQ("optUnit(" + Lit("optUnit") + ")", type.type);
            ExpectClosing(full ? "0" : "");
        }
    }
    Open<FUnitMaker>();
    Do("optUnit(1)");
    Do(kNew);
    EXPECT_EQ(Lit("optUnit") + Items("lstEquipment"), "0Arquebus Bombard carbine ");
}

TEST_F(UnitMakerTest, EquipsAndOrdersWhatTheClassMayCarry) {
    Pick("lstEquipment", 0);
    EXPECT_EQ(Label("lblSpecialDescr(0)"), "Arquebus (Rifle):\r\nPoint Cost: 8, Pen: 2\r\nSticky");
    EXPECT_EQ(Enabled(), "E");
    Do("cmdAddItem");
    MFormDriver::Press(*form_, "lstEquipment", Qt::Key_Return);
    Pick("lstEquipment", 2, true);
    EXPECT_EQ(Carried() + Enabled(), "Arquebus Arquebus carbine / 31E");  // 5 + 8 + 8 + 10
    Do("optFilter(1)");
    EXPECT_EQ(Items("lstEquipment") + Label("lblSpecialDescr(0)") + Enabled(), "Plate ");
    EXPECT_EQ(Lit("optFilter"), "1");
    Pick("lstEquipment", 0, true);
    EXPECT_EQ(Label("lblSpecialDescr(0)").substr(0, 25), "Plate:\r\nPoint Cost: 1.5\r\n");
    EXPECT_EQ(Stats() + Text("tedPointCost"), "10 6 6 2 6 36.5");  // and 4 for the PF
    Do("cmdAddItem");
    Do("cmdAddItem");
    EXPECT_EQ(Stats() + Carried(), "10 6 6 5 6 Arquebus Arquebus carbine Plate Plate Plate / 49.5");

    // The selection follows the entry that is moved.
    Pick("lstUnitEquipment", 2);
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "carbine:\r\nPoint Cost: 10, Pen: 2\r\n");
    EXPECT_EQ(Enabled(), "ERUD");
    Do("cmdItemMoveUp");
    Do("cmdItemMoveUp");
    EXPECT_EQ(Items("lstUnitEquipment") + Enabled(), "carbine* Arquebus Arquebus Plate Plate Plate ERD");
    Do("cmdItemMoveDown");
    EXPECT_EQ(Items("lstUnitEquipment") + Enabled(), "Arquebus carbine* Arquebus Plate Plate Plate ERUD");
    Pick("lstUnitEquipment", 5);
    EXPECT_EQ(Enabled(), "ERU");
    EXPECT_EQ(Label("lblSpecialDescr(1)").substr(0, 25), "Plate:\r\nPoint Cost: 1.5\r\n");

    // What was taken stays when its record has gone.
    Accessories().Remove("PLATE");
    Weapons().Remove("CARBINE");
    for (const auto& [row, name] : {std::pair{5, "Plate"}, {1, "carbine"}}) {
        Pick("lstUnitEquipment", row);
        EXPECT_EQ(Label("lblSpecialDescr(1)"), name + std::string(":\r\nUNABLE TO RETRIEVE INFORMATION"));
    }
    Do("cmdRemoveItem");
    EXPECT_EQ(Label("lblSpecialDescr(1)") + Enabled(), "E");
    Pick("lstUnitEquipment", 4);
    MFormDriver::Press(*form_, "lstUnitEquipment", Qt::Key_Return);
    Pick("lstUnitEquipment", 3, true);
    EXPECT_EQ(Stats() + Carried(), "10 6 6 1 6 Arquebus Arquebus Plate / 24.5");  // 5 less 2 and 2; 5 + 2 + 16 + 1.5
    Do("tedName=Gamma");
    Ask("A+", "GAMMA");
    Do(kAddToDb);
    Pick("lstUnitEquipment", 0);
    Do("cmdItemMoveDown");  // is an edit
    Ask("U+", "GAMMA");
    ExpectClosing("0");
    EXPECT_EQ(Units().Item("GAMMA").EquippedPointCost(), 24.5);
}

TEST_F(UnitMakerTest, ValidatesAndSpeaksOfUnits) {
    const std::string noCrew = "Vehicles must have space for at least one crew member.";
    const std::string noName = "No unit name specified. Specify a name for the unit before adding it to the database.";
    Expect(BoxKind::Warning, noName);
    Do(kAddToDb);
    AddUnit("Cart")->SetUnitType(CUnit::Vehicle);
    AddUnit("Guard");
    AddUnit("Squad", CGenUnit::Squad);
    Units().Item("CART").SingleUnit().SetCrew(0, 0);
    InSelector(0, "cmdOK", "Select a unit from the database:/OK/Cancel");
    Do(kModify);
    Expect(BoxKind::Warning, noCrew);
    Do(kAddToDb);
    Do("tedName=");
    Expect(BoxKind::Warning, noName);
    Expect(BoxKind::Warning, noCrew);
    Do(kAddToDb);
    Do("tedName=Wagon");
    WarnWithCancel("The current unit data is not complete/valid, it WILL NOT be saved to the database.", Ok);
    TakeRow(0);
    EXPECT_EQ(Text("tedName") + Items("lstEquipment"), "CartBombard ");
    Do("tedName=Wagon");
    WarnWithCancel("The current unit data is not complete/valid, it CANNOT be saved to the database.", Ok);
    ExpectClosing("0");

    Open<FUnitMaker>();
    InSelector(1, "cmdOK", "Select a unit to remove from the database:/Delete Item/Close");
    InSelector(-1, "cmdCancel");
    Do(kDelete);
    EXPECT_FALSE(Units().Exists("GUARD"));
    ExpectPage("Squad");
    ExpectClosing("0");

    MGlobal::SetArmyListFile(folder_ / "none/list");
    Open<FUnitMaker>();
    Expect(BoxKind::Warning, "Error while saving army list.");
    Do(kSave);
}

TEST_F(UnitMakerTest, LeavesSquadsOut) {
    for (const char* name : {"a", "b", "c", "d", "e"})
        AddUnit(name, *name % 2 == 1 ? CGenUnit::Squad : CGenUnit::Single);
    std::string names;
    for (const char* button : {"cmdNext", "cmdNext", "cmdNext", "cmdPrev", "cmdPrev"}) {
        Do(button);
        names += Text("tedName");
    }
    EXPECT_EQ(names, "bdbdb");
    TakeRow(1);
    EXPECT_EQ(Text("tedName"), "d");
    for (const char* single : {"B", "D"})
        Units().Remove(single);
    WhileModal([](CForm& selector) {
        EXPECT_EQ(MFormDriver::Get<CListBox>(selector, "lstItems").ListCount(), 0);
        MFormDriver::Click(selector, "cmdCancel");
    });
    Do(kModify);
    // With squads alone the walk lasts until the form is closed.
    QTimer::singleShot(100, form_.get(), [this] { Do("cmdExit"); });
    Do("cmdNext");
    EXPECT_FALSE(form_->Visible());
    EXPECT_EQ(Modified(), "");
}

}  // namespace
