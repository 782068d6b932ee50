#include "makers/accessory_maker.h"

#include "makers/maker_test.h"

namespace {

class AccessoryMakerTest : public MakerTest {
  protected:
    AccessoryMakerTest() {
        CAccessory& plate = *Add(Accessories(), CEqItem::Accessory, "Plate").AsAccessory();
        plate.SetAccClass("Any Unit");
        plate.SetPF(3);
        plate.SetPointCost(12.5);
        Open<FAccessoryMaker>();
        TakeRow(0);
    }
    /// The player's cost, the suggested one, and what it pays for.
    std::string Display() { return Text("tedPointCost") + " " + Label("lblBaseCost") + " " + Label("lblSpecialDescr"); }
};

TEST_F(AccessoryMakerTest, SuggestsACostAndKeepsThePlayersOwn) {
    const std::pair<std::string, const char*> kEdits[] = {
        {"tedPointCost=7.5", "7.5 15 PF 3"},  // 3 x 5
        {"tedTargetingBonus=2", "7.5 25 Targeting Bonus +2, PF 3"},
        {"cmbAreaOfEffect=1", "7.5 50 Area of Effect 3cm Radius, Targeting Bonus +2, PF 3"},
        {"cmbAreaOfEffect=0 tedTargetingBonus=", "7.5 15 PF 3"},
        {"optRecharge(3)", "7.5 7.5 One Use, PF 3"},
        {"chkIndividualArmour", "7.5 0 Individual Armour, One Use, PF 3"},
        {"tedPF=0", "7.5 0 Individual Armour, One Use"},
    };
    for (const auto& [action, shown] : kEdits) {
        Do(action);
        EXPECT_EQ(Display(), shown) << action;
    }
    Ask("U+", "PLATE");
    Do(kNew);
    EXPECT_EQ(Display() + Lit("optRecharge"), "0 0 0");
    EXPECT_EQ(Accessories().Item("PLATE").PointCost(), 7.5);
}

TEST_F(AccessoryMakerTest, AnEmptiedFieldBecomesZeroWhenItIsLeft) {
    Do("tedPF=");
    EXPECT_EQ(Display(), "0 15 PF 3");  // the cost drops, the PF stays
    Do("tedPointCost= tedTargetingBonus= tedName");
    EXPECT_EQ(Text("tedPF") + Text("tedPointCost") + Text("tedTargetingBonus"), "000");
    Do("tedPF=x.-47 tedTargetingBonus=x-.9 tedPointCost=-x1.5");
    EXPECT_EQ(Text("tedPF") + Text("tedTargetingBonus") + Text("tedPointCost"), "4.-1.5");
}

TEST_F(AccessoryMakerTest, ATypedCostOrAClassAloneIsNoEditAndGoesLost) {
    Do("tedPointCost=99 cmbAccessoryType=0");
    ExpectClosing("");
    EXPECT_EQ(Accessories().Item("PLATE").PointCost(), 12.5);
}

TEST_F(AccessoryMakerTest, WithoutAClassNothingIsStored) {
    LoadTables(kNoRules, ';');
    Open<FAccessoryMaker>();
    Expect(BoxKind::Warning,
           "No accessory type specified. Specify a type for the accessory before adding it to the database.");
    Do("tedName=Gamma " + kAddToDb);
    WarnWithCancel("The current accessory data is not complete/valid, it CANNOT be saved to the database.",
                   BoxAnswer::Ok);
    ExpectClosing("2");
}

}  // namespace
