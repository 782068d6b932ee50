#include "makers/unit_maker.h"

#include "makers/maker_test.h"

namespace {

class UnitMakerTest : public MakerTest {
  protected:
    UnitMakerTest() {
        MGlobal::SetSkinId(1);
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

    /// A vehicle without a crew.
    static CUnit& AddCart() {
        CUnit& cart = AddUnit("Cart").SingleUnit();
        cart.SetUnitType(CUnit::Vehicle);
        cart.SetCrew(0, 0);
        return cart;
    }
    void InSpecialProps(const std::string& actions) {
        MFormDriver::WhileModal([=](CForm& dialog) { DoAll(dialog, actions); });
        Do("cmdSpecialProps");
    }
    /// The stats, in brackets where they can't be changed, what is carried, and the cost.
    std::string Unit() {
        std::string unit;
        for (const std::string index : {"0", "1", "2", "3", "4"}) {
            const std::string stat = "tedStat(" + index + ")";
            unit += Enabled(stat) ? Text(stat) + " " : "(" + Text(stat) + ") ";
        }
        return unit + Items("lstUnitEquipment") + "= " + Text("tedPointCost");
    }
};

TEST_F(UnitMakerTest, ATypeThrowsTheUnitAway) {
    const std::tuple<std::string, const char*, const char*> kTypes[] = {
        {"optUnit(1)", "10 (0) 0 0 (0) = 7", "Bombard "},
        {"optUnit(2)", "10 6 0 0 (0) = 5", ""},
        {"optUnit(3)", "10 6 0 0 (1) = 15", ""},
        {"optUnit(0)", "10 6 6 0 6 = 5", "Arquebus Bombard carbine "}};
    for (const auto& [type, unit, offered] : kTypes) {
        Open<FUnitMaker>();
        Do(type);
        ExpectClosing("");
        Open<FUnitMaker>();
        DoAll("tedName=Gamma tedStat(0)=7 lstEquipment##0 " + type);
        EXPECT_EQ(Text("tedName") + Unit() + Label("lblSpecialDescr(0)") + CanDo(), unit) << type;
        EXPECT_EQ(Items("lstEquipment"), offered) << type;
        EXPECT_EQ("optUnit(" + Lit("optUnit") + ")", type);
        ExpectClosing("0");
    }
}

TEST_F(UnitMakerTest, NewStartsOnInfantryAndOffersWhatWasThere) {
    EXPECT_TRUE(Shown("imgUnit"));
    MGlobal::SetSkinId(2);  // has no pictures of units
    AddCart().SetCrew(2, 1);
    Open<FUnitMaker>();
    TakeRow(0);
    EXPECT_EQ(Items("lstEquipment"), "Bombard ");
    EXPECT_FALSE(Shown("imgUnit"));
    Ask("U+", "CART");
    DoAll("tedDescr=d " + kNew);
    EXPECT_EQ(Unit() + Lit("optUnit") + Items("lstEquipment"), "10 6 6 0 6 = 50Arquebus Bombard carbine ");
    Do("tedName=Gamma");
    Ask("A+", "GAMMA");  // and not: rename from Cart
    ExpectClosing("0");
}

TEST_F(UnitMakerTest, StatFieldsShowWhatTheirLimitsLetThrough) {
    const std::pair<std::string, const char*> kTyped[] = {
        {"tedStat(1)=3", "3!"}, {"tedStat(1)=0", "0"},   {"tedStat(1)=4", "4"}, {"tedStat(2)=3", "3!"},
        {"tedStat(1)=.", "0"},  {"tedStat(0)=21", "20"}, {"tedStat(0)=1", "1"}, {"tedStat(0)=-8", "8"}};
    for (const auto& [action, shown] : kTyped) {  // "!" for red with a tip
        Open<FUnitMaker>();
        Do(action);
        const auto& stat = Control<QXTextEdit>(action.substr(0, 10));
        EXPECT_EQ(stat.Text() + (stat.ForeColor() == 255 && !stat.ToolTipText().empty() ? "!" : ""), shown) << action;
        ExpectClosing("0");
    }
    Open<FUnitMaker>();
    Do("tedStat(0)=");
    EXPECT_EQ(Text("tedStat(0)"), "");
    Do("tedName");
    EXPECT_EQ(Text("tedStat(0)"), "10");
    ExpectClosing("");
}

TEST_F(UnitMakerTest, SpecialPropertiesCountOnceTheyAreConfirmed) {
    InSpecialProps("chkFlying cmdCancel");
    ExpectClosing("");
    Open<FUnitMaker>();
    InSpecialProps("chkFlying cmdOK");
    EXPECT_EQ(Text("tedPointCost") + Label("lblSpecialDescr(2)"), "7.5Flyer");
    ExpectClosing("0");
    // A crew that can't be priced, at 4 points a place, is told, and told again at OK.
    Open<FUnitMaker>();
    Do("optUnit(1)");
    for (int times = 0; times < 2; ++times)
        Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    InSpecialProps("tedCrewNumber(1)=9000 cmdOK cmdCancel");
    Do("tedStat(0)=11");
    EXPECT_EQ(Text("tedPointCost"), "8");
}

TEST_F(UnitMakerTest, EquipsAndOrdersWhatTheClassMayCarry) {
    Do("lstEquipment#0");
    EXPECT_EQ(Label("lblSpecialDescr(0)") + CanDo(), "Arquebus (Rifle):\r\nPoint Cost: 8, Pen: 2\r\nStickyA");
    DoAll("cmdAddItem cmdAddItem lstEquipment##2");
    EXPECT_EQ(Unit() + CanDo(), "10 6 6 0 6 Arquebus Arquebus carbine = 31A");  // 5 + 8 + 8 + 10
    Do("optFilter(1)");
    EXPECT_EQ(Items("lstEquipment") + Label("lblSpecialDescr(0)") + CanDo(), "Plate ");
    Do("lstEquipment##0");
    EXPECT_EQ(Label("lblSpecialDescr(0)").substr(0, 25), "Plate:\r\nPoint Cost: 1.5\r\n");
    EXPECT_EQ(Unit(), "10 6 6 2 6 Arquebus Arquebus carbine Plate = 36.5");  // and 4 for the PF
    DoAll("cmdAddItem cmdAddItem lstUnitEquipment#2");
    EXPECT_EQ(Label("lblSpecialDescr(1)") + CanDo(), "carbine:\r\nPoint Cost: 10, Pen: 2\r\nAR<>");
    DoAll("cmdItemMoveUp cmdItemMoveUp");
    EXPECT_EQ(Items("lstUnitEquipment") + CanDo(), "carbine* Arquebus Arquebus Plate Plate Plate AR>");
    Do("cmdItemMoveDown");
    EXPECT_EQ(Items("lstUnitEquipment") + CanDo(), "Arquebus carbine* Arquebus Plate Plate Plate AR<>");
    DoAll("lstUnitEquipment#0 cmdItemMoveDown lstUnitEquipment#2 cmdItemMoveUp");  // both equal ones
    EXPECT_EQ(Items("lstUnitEquipment"), "carbine Arquebus* Arquebus Plate Plate Plate ");

    // What was taken stays when its record has gone.
    Accessories().Remove("PLATE");
    Weapons().Remove("CARBINE");
    for (const auto& [row, name] : {std::pair{"#5", "Plate"}, {"#0", "carbine"}}) {
        Do(std::string("lstUnitEquipment") + row);
        EXPECT_EQ(Label("lblSpecialDescr(1)"), name + std::string(":\r\nUNABLE TO RETRIEVE INFORMATION"));
    }
    DoAll("cmdRemoveItem lstUnitEquipment##4 lstUnitEquipment##3");
    EXPECT_EQ(Label("lblSpecialDescr(1)") + CanDo(), "A");
    EXPECT_EQ(Unit(), "10 6 6 1 6 Arquebus Arquebus Plate = 24.5");  // PF 5 less 2 and 2; 5 + 2 + 16 + 1.5
}

TEST_F(UnitMakerTest, EachStepOfEquippingIsAnEdit) {
    DoAll("tedName=Gamma lstEquipment##0 lstEquipment##2");
    Ask("A+", "GAMMA");
    ExpectClosing("0");
    for (const char* step : {"lstUnitEquipment#0 cmdItemMoveDown", "lstEquipment##0", "lstUnitEquipment##0"}) {
        Open<FUnitMaker>();
        TakeRow(0);
        DoAll(step);
        Ask("U-", "GAMMA");
        ExpectClosing("0");
    }
}

TEST_F(UnitMakerTest, AVehicleNeedsACrewAndAUnitAName) {
    CUnit& cart = AddCart();
    TakeRow(0);
    Do("tedName=");
    Expect(BoxKind::Warning, "No unit name specified. Specify a name for the unit before adding it to the database.");
    Expect(BoxKind::Warning, "Vehicles must have space for at least one crew member.");
    Do(kAddToDb);
    ExpectClosing("0");
    cart.SetCrew(2, 1);
    Open<FUnitMaker>();
    TakeRow(0);
    Ask("U-", "CART");
    Do(kAddToDb);
}

TEST_F(UnitMakerTest, AUnitOfAnUnknownTypeIsShownWithoutOne) {
    AddUnit("Odd").SingleUnit().SetUnitType(INT32_MAX);
    TakeRow(0);
    EXPECT_EQ(Text("tedName") + Lit("optUnit") + (Shown("imgUnit") ? "!" : ""), "Odd");
}

TEST_F(UnitMakerTest, LeavesSquadsOut) {
    for (const char* name : {"a", "b", "c", "d", "e"})
        AddUnit(name, *name % 2 == 1 ? CGenUnit::Squad : CGenUnit::Single);
    EXPECT_EQ(Walk("NNNPP"), "b d b d b ");
    TakeRow(1);
    EXPECT_EQ(Text("tedName"), "d");
    ExpectPage(kViewList, "e");
}

}  // namespace
