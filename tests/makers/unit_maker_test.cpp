#include "makers/unit_maker.h"

#include "makers/maker_test.h"

namespace {

class UnitMakerTest : public MakerTest {
  protected:
    UnitMakerTest() {
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

    /// Does the steps in the dialog of special properties; the cost that it shows before the last one.
    std::string InSpecialProps(const std::string& actions, const std::string& last) {
        std::string cost;
        MFormDriver::WhileModal([&](CForm& dialog) {
            Do(dialog, actions);
            cost = MFormDriver::Get<QXTextEdit>(dialog, "tedPointCost").Text();
            Do(dialog, last);
        });
        Do("cmdSpecialProps");
        return cost;
    }
    /// The stats, what is carried, and the cost.
    std::string Unit() {
        std::string unit;
        for (const char* stat : {"tedStat(0)", "tedStat(1)", "tedStat(2)", "tedStat(3)", "tedStat(4)"})
            unit += Text(stat) + " ";
        return unit + Items("lstUnitEquipment") + "= " + Text("tedPointCost");
    }
};

TEST_F(UnitMakerTest, ATypeThrowsTheUnitAway) {
    const std::tuple<std::string, const char*, const char*> kTypes[] = {
        {"optUnit(1)", "10 0 0 0 0 = 7", "Bombard "},
        {"optUnit(2)", "10 6 0 0 0 = 5", ""},
        {"optUnit(3)", "10 6 0 0 1 = 15", ""},
        {"optUnit(0)", "10 6 6 0 6 = 5", "Arquebus Bombard carbine "}};
    for (const auto& [type, unit, offered] : kTypes) {
        Open<FUnitMaker>();
        Do("tedName=Gamma tedStat(0)=7 lstEquipment##0 " + type);
        EXPECT_EQ(Text("tedName") + Unit(), unit) << type;
        EXPECT_EQ(Items("lstEquipment"), offered) << type;
        ExpectClosing("0");
    }
}

TEST_F(UnitMakerTest, NewStartsOnInfantryAndOffersWhatWasThere) {
    AddUnit("Cart").SingleUnit().SetUnitType(CUnit::Vehicle);
    TakeRow(0);
    Ask("U+", "CART");
    Do("tedDescr=d " + kNew);
    EXPECT_EQ(Unit() + Lit("optUnit") + Items("lstEquipment"), "10 6 6 0 6 = 50Arquebus Bombard carbine ");
    Ask("A+", "GAMMA");  // and not: rename from Cart
    Do("tedName=Gamma");
    ExpectClosing("0");
}

TEST_F(UnitMakerTest, StatFieldsShowWhatTheirLimitsLetThrough) {
    const std::pair<std::string, const char*> kTyped[] = {
        {"tedStat(1)=3", "3!"}, {"tedStat(1)=0", "0"},   {"tedStat(1)=4", "4"}, {"tedStat(2)=3", "3!"},
        {"tedStat(1)=.", "0"},  {"tedStat(0)=21", "20"}, {"tedStat(0)=1", "1"}, {"tedStat(0)=-8", "8"}};
    for (const auto& [action, shown] : kTyped) {  // "!" for red
        Do(action);
        auto& stat = Control<QXTextEdit>(action.substr(0, 10));
        EXPECT_EQ(stat.Text() + (stat.ForeColor() == 255 ? "!" : ""), shown) << action;
        EXPECT_EQ(stat.grab().toImage().pixelColor(1, 1) == Qt::red, stat.ForeColor() == 255) << "frame of a warning";
    }
    ExpectClosing("0");
    Open<FUnitMaker>();
    Do("tedStat(0)= tedName");
    EXPECT_EQ(Text("tedStat(0)"), "10");
    ExpectClosing("");
}

TEST_F(UnitMakerTest, SpecialPropertiesArePricedAtOnceAndCountOnceTheyAreConfirmed) {
    const std::tuple<const char*, const char*, const char*> kChanges[] = {
        {"tedStat(2)=5", "chkFlying", "12"},          // 5 + 3, by half
        {"tedStat(2)=6", "chkFerocious", "5"},        // can't be chosen
        {"tedStat(2)=5", "tedOfficerBonus=7", "32"},  // at most 4: (8 + 8) x 2
        {"tedStat(2)=5", "tedOfficerBonus=-2", "8"},  {"tedStat(2)=5", "tedHeroicSave=5", "28"},  // 4 too
        {"optUnit(1)", "tedCrewNumber(1)=2.5", "15"},  // 5, 2 for the exposed place, and 4 each
        {"optUnit(1)", "tedCrewNumber(3)=-3", "7"},
    };
    for (const auto& [unit, actions, cost] : kChanges) {
        Open<FUnitMaker>();
        Do(unit);
        EXPECT_EQ(InSpecialProps(actions, "cmdCancel"), cost) << actions;
    }
    ExpectClosing("");  // nothing was confirmed
    Open<FUnitMaker>();
    InSpecialProps("chkFlying", "cmdOK");
    EXPECT_EQ(Text("tedPointCost") + Label("lblSpecialDescr(2)"), "7.5Flyer");
    ExpectClosing("0");
}

TEST_F(UnitMakerTest, SpecialPropertiesAreThoseOfTheEditionAndTheSkill) {
    const std::tuple<std::int16_t, std::int16_t, std::string> kModels[] = {{2, 6, "++-"}, {2, 5, "+++"}, {2, 2, "+++"},
                                                                           {2, 0, "++-"}, {3, 5, "+++"}, {1, 5, "---"}};
    CUnit& unit = AddUnit("Bear").SingleUnit();
    unit.SetSpecialProp(CUnit::Ferocious, 1);
    for (const auto& [version, skill, offered] : kModels) {
        unit.SetVersion(version);
        unit.SetStatValue(CUnit::FA, skill);
        TakeRow(0);
        std::string seen;
        MFormDriver::WhileModal([&seen](CForm& dialog) {
            for (const char* name : {"chkMedic", "tedHeroicSave", "chkFerocious"})
                seen += MFormDriver::Find(dialog, name)->isEnabled() ? '+' : '-';
            EXPECT_TRUE(MFormDriver::Get<QXColorButton>(dialog, "chkFerocious").Value());  // stays set
            auto& tip = MFormDriver::Get<QXLabel>(dialog, "lblTip");
            tip.SetCaption(CUnit::CrewDescription(1));  // the longest
            MFormDriver::Find(dialog, "frmInfantry")->hide();
            dialog.resize(dialog.size() / 2);
            EXPECT_GE(dialog.minimumWidth(), tip.sizeHint().width()) << "the smallest window cuts a tip";
            Do(dialog, "cmdCancel");
        });
        Do("cmdSpecialProps");
        EXPECT_EQ(seen, offered) << version << " " << skill;
    }
}

TEST_F(UnitMakerTest, AVehicleWithoutACrewOrAPriceCannotBeConfirmed) {
    Do("optUnit(1)");
    Expect(BoxKind::Warning, "A vehicle must have space for at least one crew member.");
    InSpecialProps("tedCrewNumber(0)= cmdOK", "cmdCancel");
    // A crew that can't be priced, at 4 points a place, is told, and told again at OK.
    for (int times = 0; times < 2; ++times)
        Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    InSpecialProps("tedCrewNumber(1)=9000 cmdOK", "cmdCancel");
    Do("tedStat(0)=11");
    EXPECT_EQ(Text("tedPointCost"), "8");
}

TEST_F(UnitMakerTest, EquipsAndOrdersWhatTheClassMayCarry) {
    Do("lstEquipment#0");
    EXPECT_EQ(Label("lblSpecialDescr(0)"), "Arquebus (Rifle):\r\nPoint Cost: 8, Pen: 2\r\nSticky");
    Do("cmdAddItem cmdAddItem lstEquipment##2");
    EXPECT_EQ(Unit(), "10 6 6 0 6 Arquebus Arquebus carbine = 31");  // 5 + 8 + 8 + 10
    Do("optFilter(1) lstEquipment##0");
    EXPECT_EQ(Unit(), "10 6 6 2 6 Arquebus Arquebus carbine Plate = 36.5");  // and 4 for the PF
    Do("cmdAddItem cmdAddItem lstUnitEquipment#2");
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "carbine:\r\nPoint Cost: 10, Pen: 2\r\n");
    Do("cmdItemMoveUp cmdItemMoveUp cmdItemMoveUp");
    EXPECT_EQ(Items("lstUnitEquipment"), "carbine* Arquebus Arquebus Plate Plate Plate ");
    // Both equal ones up, and down again.
    Do("lstUnitEquipment#1 cmdItemMoveUp lstUnitEquipment#2 cmdItemMoveUp");
    EXPECT_EQ(Items("lstUnitEquipment"), "Arquebus Arquebus* carbine Plate Plate Plate ");
    Do("cmdItemMoveDown lstUnitEquipment#0 cmdItemMoveDown cmdItemMoveUp");
    EXPECT_EQ(Items("lstUnitEquipment"), "Arquebus* carbine Arquebus Plate Plate Plate ");

    // What was taken stays when its record has gone.
    Weapons().Remove("CARBINE");
    Accessories().Remove("PLATE");
    Do("lstUnitEquipment#3");
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "Plate:\r\nUNABLE TO RETRIEVE INFORMATION");
    Do("lstUnitEquipment#1");
    EXPECT_EQ(Label("lblSpecialDescr(1)"), "carbine:\r\nUNABLE TO RETRIEVE INFORMATION");
    Do("cmdRemoveItem lstUnitEquipment##4 lstUnitEquipment##3");
    EXPECT_EQ(Unit(), "10 6 6 1 6 Arquebus Arquebus Plate = 24.5");  // PF 5 less 2 and 2; 5 + 2 + 16 + 1.5
}

TEST_F(UnitMakerTest, EachStepOfEquippingIsAnEdit) {
    Do("tedName=Gamma lstEquipment##0 lstEquipment##2");
    Ask("A+", "GAMMA");
    ExpectClosing("0");
    for (const char* step : {"lstUnitEquipment#0 cmdItemMoveDown", "lstEquipment##0", "lstUnitEquipment##0"}) {
        Open<FUnitMaker>();
        TakeRow(0);
        Do(step);
        Ask("U-", "GAMMA");
        ExpectClosing("0");
    }
}

TEST_F(UnitMakerTest, AVehicleNeedsACrewAndAUnitAName) {
    CUnit& cart = AddUnit("Cart").SingleUnit();
    cart.SetUnitType(CUnit::Vehicle);
    cart.SetCrew(0, 0);
    TakeRow(0);
    Do("tedName=");
    Expect(BoxKind::Warning, "No unit name specified. Specify a name for the unit before adding it to the database.");
    Expect(BoxKind::Warning, "Vehicles must have space for at least one crew member.");
    Do(kAddToDb);
}

TEST_F(UnitMakerTest, AUnitOfAnUnknownTypeIsShownWithoutOne) {
    AddUnit("Odd").SingleUnit().SetUnitType(INT32_MAX);
    TakeRow(0);
    EXPECT_EQ(Text("tedName") + Lit("optUnit"), "Odd");
}

TEST_F(UnitMakerTest, LeavesSquadsOut) {
    Do("cmdNext cmdPrev");  // there is nothing yet
    for (const char* name : {"a", "b", "c", "d", "e"})
        AddUnit(name, *name % 2 == 1 ? CGenUnit::Squad : CGenUnit::Single);
    EXPECT_EQ(Walk("NNNPP"), "b d b d b ");
    TakeRow(1);
    EXPECT_EQ(Text("tedName"), "d");
}

}  // namespace
