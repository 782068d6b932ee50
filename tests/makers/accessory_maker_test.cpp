#include "makers/accessory_maker.h"

#include "makers/maker_test.h"

namespace {

class AccessoryMakerTest : public MakerTest {
  protected:
    /// A plate of PF 3 that costs 12.5, shown.
    void OpenOnPlate() {
        Accessories().Clear();
        CAccessory& plate = *Add(Accessories(), CEqItem::Accessory, "Plate").AsAccessory();
        plate.SetAccClass("Any Unit");
        plate.SetPF(3);
        plate.SetPointCost(12.5);
        Open<FAccessoryMaker>();
        TakeRow(0);
    }
    /// The player's cost, the suggested one, what the remark on armour goes by, and what is lit.
    std::string Display() {
        const bool byPF = Label("lblArmourInfo").find("PF x 5pts") != std::string::npos;
        return Text("tedPointCost") + "/" + Label("lblBaseCost") + " " +
               (!Control<QXLabel>("lblArmourInfo").Visible() ? "-"
                : byPF                                       ? "PF"
                                                             : "model") +
               " " + Lit("optRecharge") + (Button("chkIndividualArmour").Value() ? "A" : "");
    }
};

TEST_F(AccessoryMakerTest, SuggestsACostAndKeepsThePlayersOwn) {
    const std::tuple<std::string, const char*, const char*> kEdits[] = {
        {"tedPointCost=7.5", "7.5/0 - 0", ""},
        {"tedPF=3", "7.5/15 PF 0", "PF 3"},  // 3 x 5
        {"tedTargetingBonus=2", "7.5/25 PF 0", "Targeting Bonus +2, PF 3"},
        {"cmbAreaOfEffect=1", "7.5/50 PF 0", "Area of Effect 3cm Radius, Targeting Bonus +2, PF 3"},
        {"cmbAreaOfEffect=0", "7.5/25 PF 0", "Targeting Bonus +2, PF 3"},
        {"tedTargetingBonus=", "7.5/15 PF 0", "PF 3"},
        {"optRecharge(1)", "7.5/11.25 PF 1", "Recharge 1 Turn, PF 3"},
        {"optRecharge(2)", "7.5/11.25 PF 2", "Needs Reloading, PF 3"},
        {"optRecharge(3)", "7.5/7.5 PF 3", "One Use, PF 3"},
        {"chkIndividualArmour", "7.5/0 model 3A", "Individual Armour, One Use, PF 3"},
        {"cmbAccessoryType=1", "7.5/0 model 3A", "Individual Armour, One Use, PF 3"},  // shows it all anew
        {"tedPF=0", "7.5/0 - 3A", "Individual Armour, One Use"},
        {"cmdMenu(0)", "0/0 - 0", ""},
    };
    Open<FAccessoryMaker>();
    for (const auto& [action, shown, properties] : kEdits) {
        Do(action);
        EXPECT_EQ(Display(), shown) << action;
        EXPECT_EQ(Label("lblSpecialDescr"), properties) << action;
    }
}

TEST_F(AccessoryMakerTest, AnEmptiedFieldBecomesZeroWhenItIsLeft) {
    OpenOnPlate();
    Do("tedPF=");
    EXPECT_EQ(Display() + Label("lblSpecialDescr"), "0/15 - 0PF 3");  // the cost drops, the PF stays
    Do("tedName");
    EXPECT_EQ(Text("tedPointCost") + Text("tedPF"), "00");
    DoAll("tedPointCost= tedTargetingBonus= tedName");
    EXPECT_EQ(Text("tedPointCost") + Text("tedTargetingBonus"), "00");
    DoAll("tedPF=x.-47 tedTargetingBonus=x-.9 tedPointCost=-x1.5");
    EXPECT_EQ(Text("tedPF") + Text("tedTargetingBonus") + Text("tedPointCost"), "4.-1.5");
    Ask("U+", "PLATE");
    ExpectClosing("2");
    EXPECT_EQ(Accessories().Item("PLATE").PointCost(), -1.5);
}

TEST_F(AccessoryMakerTest, ATypedCostOrAClassAloneIsNoEditAndGoesLost) {
    OpenOnPlate();
    DoAll("tedPointCost=99 cmbAccessoryType=0 cmdNext");
    EXPECT_EQ(Text("tedPointCost") + Choice("cmbAccessoryType"), "12.5Any Unit");
    DoAll("tedPointCost=99 cmbAccessoryType=0");
    ExpectClosing("");
    OpenOnPlate();
    Do("chkIndividualArmour");
    Ask("U-", "PLATE");
    ExpectClosing("2");
}

TEST_F(AccessoryMakerTest, NeedsANameAndAType) {
    LoadTables(false);
    Open<FAccessoryMaker>();
    for (const std::string lack : {"name", "type"})
        Expect(BoxKind::Warning, "No accessory " + lack + " specified. Specify a " + lack +
                                     " for the accessory before adding it to the database.");
    Do(kAddToDb);
    // The walk warns in the words of the closing.
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Ok})
        WarnWithCancel("The current accessory data is not complete/valid, it CANNOT be saved to the database.", answer);
    DoAll("tedName=Shield cmdNext");
    ExpectClosing("2");
}

}  // namespace
