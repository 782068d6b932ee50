#include "makers/accessory_maker.h"

#include "makers/maker_test.h"

namespace {

const std::string kByPF = "The cost of the armour should be calculated at PF x 5pts ";
const std::string kInvalid = "The current accessory data is not complete/valid, it CANNOT be saved to the database.";
const std::string kNoName =
    "No accessory name specified. Specify a name for the accessory before adding it to the database.";
const std::string kNoType =
    "No accessory type specified. Specify a type for the accessory before adding it to the database.";

class AccessoryMakerTest : public MakerTest {
  protected:
    AccessoryMakerTest() { Open<FAccessoryMaker>(); }

    static CAccessory& AddAccessory(const std::string& name) {
        CAccessory& accessory = *Add(Accessories(), CEqItem::Accessory, name).AsAccessory();
        accessory.SetAccClass("Any Unit");
        return accessory;
    }
    /// A plate of PF 3 that costs 12.5, shown.
    void OpenOnPlate() {
        Accessories().Clear();
        CAccessory& plate = AddAccessory("Plate");
        plate.SetPF(3);
        plate.SetPointCost(12.5);
        Open<FAccessoryMaker>();
        TakeRow(0);
    }
    std::string Costs() { return Text("tedPointCost") + "/" + Label("lblBaseCost"); }
    /// Which remark on armour stands there: its cost goes by PF, or with the model.
    std::string ArmourInfo() {
        if (!Control<QXLabel>("lblArmourInfo").Visible()) return "";
        const std::string text = Label("lblArmourInfo");
        return text == kByPF                                                             ? "PF"
               : text == "The cost of the armour will be added to the cost of the model" ? "model"
                                                                                         : text;
    }
};

TEST_F(AccessoryMakerTest, OpensOnTheFirstClass) {
    EXPECT_EQ(Choice("cmbAccessoryType") + Choice("cmbAreaOfEffect"), "Infantry0");
    EXPECT_EQ(Control<QXLabel>("lblArmourInfo").FontSize(), 10);
    EXPECT_EQ(Costs() + " " + Text("tedPF") + Text("tedTargetingBonus") + Lit("optRecharge"), "0/0 000");
    Do("cmbAccessoryType=1");  // the class alone is no edit
    ExpectClosing("");
}

TEST_F(AccessoryMakerTest, SuggestsACostAndKeepsThePlayersOwn) {
    const struct {
        const char* action;
        const char* base;
        const char* limit;
        const char* armour;
        const char* properties;
    } kEdits[] = {
        {"tedPointCost=7.5", "0", "0", "", ""},
        {"tedPF=3", "15", "0", "PF", "PF 3"},  // 3 x 5
        {"tedTargetingBonus=2", "25", "0", "PF", "Targeting Bonus +2, PF 3"},
        {"cmbAreaOfEffect=1", "50", "0", "PF", "Area of Effect 3cm Radius, Targeting Bonus +2, PF 3"},
        {"tedTargetingBonus=", "30", "0", "PF", "Area of Effect 3cm Radius, PF 3"},
        {"cmbAreaOfEffect=0", "15", "0", "PF", "PF 3"},
        {"chkIndividualArmour", "0", "0", "model", "Individual Armour, PF 3"},
        {"chkIndividualArmour", "15", "0", "PF", "PF 3"},
        {"optRecharge(1)", "11.25", "1", "PF", "Recharge 1 Turn, PF 3"},
        {"optRecharge(2)", "11.25", "2", "PF", "Needs Reloading, PF 3"},
        {"optRecharge(3)", "7.5", "3", "PF", "One Use, PF 3"},
        {"optRecharge(0)", "15", "0", "PF", "PF 3"},
        {"chkIndividualArmour", "0", "0", "model", "Individual Armour, PF 3"},
        {"tedPF=0", "0", "0", "", "Individual Armour"},
        {"cmbAccessoryType=1", "0", "0", "", "Individual Armour"},
    };
    for (const auto& edit : kEdits) {
        Do(edit.action);
        EXPECT_EQ(Costs(), "7.5/" + std::string(edit.base)) << edit.action;
        EXPECT_EQ(Lit("optRecharge") + ArmourInfo(), edit.limit + std::string(edit.armour)) << edit.action;
        EXPECT_EQ(Label("lblSpecialDescr"), edit.properties) << edit.action;
    }
    Do(kNew);
    EXPECT_EQ(Costs() + Label("lblSpecialDescr"), "0/0");
}

TEST_F(AccessoryMakerTest, ShowsEachPropertyOfARecord) {
    const char* kShown[] = {"3/0", "1/0PF", "2/0PF", "0/1model"};  // use limit, individual armour, remark
    for (std::int16_t bit = 0; bit < 4; ++bit) {
        CAccessory& accessory = AddAccessory(std::string(1, static_cast<char>('A' + bit)));
        accessory.SetAccProperty(bit, true);
        accessory.SetPF(bit);
        accessory.SetTargetingBonus(2);
        accessory.SetAreaOfEffect(6);
        accessory.SetPointCost(1.25);
    }
    for (int bit = 0; bit < 4; ++bit) {
        Do("cmdNext");
        EXPECT_EQ(Lit("optRecharge") + (Button("chkIndividualArmour").Value() ? "/1" : "/0") + ArmourInfo(),
                  kShown[bit]);
        EXPECT_EQ(Text("tedPF") + Text("tedTargetingBonus") + Choice("cmbAreaOfEffect"), std::to_string(bit) + "26");
        EXPECT_EQ(Text("tedPointCost") + Choice("cmbAccessoryType"), "1.25Any Unit");
    }
}

TEST_F(AccessoryMakerTest, AnEmptiedFieldBecomesZeroWhenItIsLeft) {
    OpenOnPlate();
    EXPECT_EQ(Costs() + ArmourInfo(), "12.5/15PF");
    Do("tedPF=");
    EXPECT_EQ(Costs() + ArmourInfo() + Label("lblSpecialDescr"), "0/15PF 3");  // the cost drops, the PF stays
    Do("tedName");
    EXPECT_EQ(Costs() + Text("tedPF") + Label("lblSpecialDescr"), "0/00");
    for (const char* field : {"tedPointCost", "tedTargetingBonus"}) {
        Do(std::string(field) + "=");
        EXPECT_EQ(Text(field), "");
        Do("tedName");
        EXPECT_EQ(Text(field), "0");
    }
    Do("tedPF=x.-47");
    Do("tedTargetingBonus=x-.9");
    Do("tedPointCost=-x1.5");
    EXPECT_EQ(Text("tedPF") + Text("tedTargetingBonus") + Text("tedPointCost"), "4.-1.5");
    Ask("U+", "PLATE");
    ExpectClosing("2");
    const CAccessory& stored = *Accessories().Item("PLATE").AsAccessory();
    EXPECT_EQ(stored.SpecialPropertiesStr(), "PF 4");
    EXPECT_EQ(stored.PointCost(), -1.5);
}

TEST_F(AccessoryMakerTest, ATypedCostAloneIsNoEditAndGoesLost) {
    OpenOnPlate();
    Do("tedPointCost=99");
    Do("cmdNext");
    EXPECT_EQ(Costs(), "12.5/15");
    Do("tedPointCost=99");
    ExpectClosing("");
    for (const char* edit :
         {"chkIndividualArmour", "cmbAreaOfEffect=0", "optRecharge(0)", "tedPF=4", "tedTargetingBonus=1"}) {
        OpenOnPlate();
        Do(edit);
        Ask("U-", "PLATE");
        ExpectClosing("2");
    }
}

TEST_F(AccessoryMakerTest, NeedsANameAndAType) {
    Expect(BoxKind::Warning, kNoName);
    Do(kAddToDb);
    Do("tedName=Shield");
    Ask("A+", "SHIELD");
    ExpectClosing("2");
    EXPECT_EQ(Accessories().Item("SHIELD").AsAccessory()->AccClass(), "Infantry");
    LoadTables(false);
    Open<FAccessoryMaker>();
    EXPECT_FALSE(Button(kNew).isEnabled());
    Expect(BoxKind::Warning, kNoName);
    Expect(BoxKind::Warning, kNoType);
    Do(kAddToDb);
    Do("tedName=Shield");
    WarnWithCancel(kInvalid, BoxAnswer::Cancel);
    InSelector(-1, "cmdCancel", "Select a accessory from the database:/OK/Cancel");
    Do(kModify);
    Do("tedName=Buckler");
    WarnWithCancel(kInvalid, BoxAnswer::Ok);
    ExpectClosing("2");
    EXPECT_EQ(Accessories().Count(), 0);
}

TEST_F(AccessoryMakerTest, TheFrameSpeaksOfAccessories) {
    Add(Accessories(), CEqItem::Weapon, "Laser");
    Expect(BoxKind::Plain, "Error while trying to select accessory \"Laser\" from the database: 13: Type mismatch");
    TakeRow(0);
    InSelector(-1, "cmdCancel", "Select the accessory to remove from the database:/Delete Item/Close");
    Do(kDelete);
    Accessories().Clear();
    Add(Accessories(), CEqItem::Accessory, "Plate", "ELSEWHERE");
    Expect(BoxKind::Plain,
           "Error while trying to delete accessory \"Plate\" from the database: 5: Invalid procedure call or argument");
    InSelector(0, "cmdOK");
    Do(kDelete);
    MGlobal::SetEquipmentFile(folder_ / "none/eq.v2q");
    Button(kSave).SetEnabled(true);
    Expect(BoxKind::Warning, "Error while writing equipment tables.");
    Do(kSave);
    ExpectPage("Plate");
}

}  // namespace
