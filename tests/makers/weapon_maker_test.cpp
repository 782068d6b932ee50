#include "makers/weapon_maker.h"

#include "makers/maker_test.h"

namespace {

const std::string kNoName = "No weapon name specified. Specify a name for the weapon before adding it to the database.";
const std::string kNoType = "No weapon type specified. Specify a type for the weapon before adding it to the database.";
const std::string kNoArea = "The weapon must have an area of effect.";

class WeaponMakerTest : public MakerTest {
  protected:
    WeaponMakerTest() { Open<FWeaponMaker>(); }

    /// Buttons that are on: penetration, type of attack, other effects, use limit.
    std::string LitButtons() {
        return Lit("optWeaponPen") + "/" + Lit("optAttackType") + "/" + Lit("chkAttackType") + "/" + Lit("optRecharge");
    }
    std::string PenCaptions() {
        return " " + Button("optWeaponPen(0)").Caption() + " " + Button("optWeaponPen(1)").Caption() + " " +
               Button("optWeaponPen(2)").Caption();
    }
};

TEST_F(WeaponMakerTest, OpensOnTheFirstClass) {
    EXPECT_EQ(LitButtons() + Text("tedTargetingBonus") + Text("tedPointCost"), "0/4//004");
    EXPECT_EQ(Choice("cmbWeaponType") + Choice("cmbAreaOfEffect") + PenCaptions(), "Rifle0 2 3 4");
    EXPECT_EQ(Control<QXChoiceList>("cmbAreaOfEffect").ListIndex(), 0);
    EXPECT_TRUE(Button(kNew).isEnabled());
    ExpectClosing("");
}

TEST_F(WeaponMakerTest, ShowsTheCostAfterEachChoice) {
    const struct {
        const char* action;
        const char* cost;
        const char* lit;
        const char* properties;
    } kEdits[] = {
        {"optWeaponPen(1)", "6", "1/4//0", ""},                // 4 x 1.5
        {"optWeaponPen(2)", "8", "2/4//0", ""},                // 4 x 2, a factor of all that follow
        {"optAttackType(0)", "18", "2/0//0", "Flame"},         // 4 + 5
        {"optAttackType(1)", "18", "2/1//0", "Acid"},          // 4 + 5
        {"optAttackType(2)", "12", "2/2//0", "Inhaled Gas"},   // 4 + 2
        {"optAttackType(3)", "16", "2/3//0", "Absorbed Gas"},  // 4 + 4
        {"cmbAreaOfEffect=1", "32", "2/3//0", "Absorbed Gas, Area of Effect 3cm Radius"},  // twice
        {"cmbAreaOfEffect=0", "16", "2/3//0", "Absorbed Gas"},
        {"tedTargetingBonus=2", "36", "2/3//0", "Absorbed Gas, Targeting Bonus +2"},  // 4 + 4 + 10
        {"chkAttackType(0)", "72", "2/3/0/0", "Absorbed Gas, Automatic Fire, Targeting Bonus +2"},
        // A type of attack switches the effects off on the screen alone: 4 + 10, twice.
        {"optAttackType(4)", "56", "2/4//0", "Automatic Fire, Targeting Bonus +2"},
        {"tedTargetingBonus=", "16", "2/4//0", "Automatic Fire"},
        {"chkAttackType(0)", "16", "2/4/0/0", "Automatic Fire"},
        {"chkAttackType(0)", "8", "2/4//0", ""},
        {"chkAttackType(1)", "16", "2/4/1/0", "Sticky"},
        {"chkAttackType(2)", "24", "2/4/12/0", "Parabolic Trajectory, Sticky"},
        {"chkAttackType(1)", "12", "2/4/2/0", "Parabolic Trajectory"},
        {"chkAttackType(3)", "24", "2/4/23/0", "Parabolic Trajectory, Off Table Support"},
        {"chkAttackType(2)", "16", "2/4/3/0", "Off Table Support"},
        {"chkAttackType(4)", "12", "2/4/34/0", "Off Table Support, Reduced Range"},
        {"optRecharge(1)", "9", "2/4/34/1", "Recharge 1 Turn, Off Table Support, Reduced Range"},
        {"optRecharge(2)", "9", "2/4/34/2", "Needs Reloading, Off Table Support, Reduced Range"},
        {"optRecharge(3)", "6", "2/4/34/3", "One Use, Off Table Support, Reduced Range"},
        // Another class starts at its lowest penetration and keeps the rest: 12 x 2 x 0.75 x 0.5.
        {"cmbWeaponType=1", "9", "0/4/34/3", "One Use, Off Table Support, Reduced Range"},
        {"optRecharge(0)", "18", "0/4/34/0", "Off Table Support, Reduced Range"},
        // 8 is there twice: the first lights up, the factor is that of the last.
        {"optWeaponPen(2)", "36", "1/4/34/0", "Off Table Support, Reduced Range"},
        {"cmdMenu(0)", "12", "0/4//0", ""},
    };
    for (const auto& edit : kEdits) {
        Do(edit.action);
        EXPECT_EQ(Text("tedPointCost"), edit.cost) << edit.action;
        EXPECT_EQ(LitButtons(), edit.lit) << edit.action;
        EXPECT_EQ(Label("lblSpecialDescr"), edit.properties) << edit.action;
    }
    Do("optWeaponPen(1)");
    Do("tedName=Tube");
    Ask("A+", "TUBE");
    Do(kAddToDb);
    const CWeapon& stored = *Weapons().Item("TUBE").AsWeapon();
    EXPECT_EQ(stored.WeaponClass() + "/" + std::to_string(stored.Pen()), "Mortar/8");
    EXPECT_EQ(stored.BaseCost() * 100 + static_cast<double>(stored.PenMultiplier()), 1201.5);
    EXPECT_EQ(PenCaptions(), " 5 8 8");
}

TEST_F(WeaponMakerTest, ShowsEachPropertyOfARecord) {
    const char* kLit[] = {"0/0//0", "0/1//0",  "0/2//0",  "0/3//0",  "0/4/2/0", "0/4/1/0", "0/4//3",
                          "0/4//1", "0/4/0/0", "0/4/3/0", "0/4/4/0", "0/4//2",  "1/4//0",  "/4//0"};
    for (int bit = 0; bit < 14; ++bit) {
        CWeapon& weapon = AddWeapon(std::string(1, static_cast<char>('A' + bit)));
        if (bit < 12) weapon.SetWeaponProperty(bit, true);
        if (bit == 12) weapon.SetPen(3);
        if (bit == 13) weapon.SetPen(7);  // none of the class's
        weapon.SetAreaOfEffect(6);
        weapon.SetTargetingBonus(2);
    }
    for (const char* lit : kLit) {
        Do("cmdNext");
        EXPECT_EQ(LitButtons(), lit) << Text("tedName");
        EXPECT_EQ(Choice("cmbAreaOfEffect") + Text("tedTargetingBonus"), "62");
    }
    Ask("U+", "N");
    Do(kAddToDb);
    EXPECT_EQ(Weapons().Item("N").AsWeapon()->Pen(), 7);
}

TEST_F(WeaponMakerTest, TakesOneDigitOfBonus) {
    const char* kTyped[][3] = {{"x-57", "5", "29"}, {"0", "0", "4"}, {".9", ".", "4"}, {"", "", "4"}};  // 4 + 25
    for (const auto& [typed, shown, cost] : kTyped) {
        Do("tedTargetingBonus=1");
        Do(std::string("tedTargetingBonus=") + typed);
        EXPECT_EQ(Text("tedTargetingBonus") + "/" + Text("tedPointCost"), shown + std::string("/") + cost);
    }
    Do("tedName");
    EXPECT_EQ(Text("tedTargetingBonus"), "");  // until the weapon is shown again
    Do("cmbWeaponType=0");
    EXPECT_EQ(Text("tedTargetingBonus"), "0");
}

TEST_F(WeaponMakerTest, AnyChoiceIsAnEdit) {
    AddWeapon("Alpha");
    for (const char* choice : {"optWeaponPen(0)", "optAttackType(4)", "optRecharge(0)", "chkAttackType(0)",
                               "cmbAreaOfEffect=0", "cmbWeaponType=0", "tedTargetingBonus=1", "tedDescr=x"}) {
        Open<FWeaponMaker>();
        TakeRow(0);
        Do(choice);
        Ask("U-", "ALPHA");
        ExpectClosing("2");
    }
}

TEST_F(WeaponMakerTest, AGrenadeIsNeitherRechargedNorReloaded) {
    AddWeapon("grenade").SetWeaponProperty(CWeapon::Recharge, true);
    const auto enabled = [this] {
        std::string indexes;
        for (const char* index : {"0", "1", "2", "3"})
            indexes += Button(std::string("optRecharge(") + index + ")").isEnabled() ? index : "";
        return indexes;
    };
    Do("tedName=Grenade");
    EXPECT_EQ(enabled(), "0123");  // the name tells when it is shown
    Do("cmbWeaponType=0");
    EXPECT_EQ(enabled(), "03");
    Open<FWeaponMaker>();
    Do("cmdNext");
    EXPECT_EQ(enabled() + " " + LitButtons(), "03 0/4//1");
    Do(kNew);
    EXPECT_EQ(enabled(), "0123");
}

TEST_F(WeaponMakerTest, RefusesWhatIsNotComplete) {
    const std::pair<const char*, bool> kNeedsArea[] = {
        {"optAttackType(0)", true},  {"optAttackType(1)", true},  {"optAttackType(2)", true},
        {"optAttackType(3)", true},  {"optAttackType(4)", false}, {"chkAttackType(0)", false},
        {"chkAttackType(1)", false}, {"chkAttackType(2)", false}, {"chkAttackType(3)", true},
        {"chkAttackType(4)", false}, {"optRecharge(3)", false}};
    for (const auto& [button, needsArea] : kNeedsArea) {
        for (const std::string area : {"0", "1"}) {
            Open<FWeaponMaker>();
            Do("tedName=Gamma");
            Do("cmbAreaOfEffect=" + area);
            Do(button);
            if (needsArea && area == "0") {
                Expect(BoxKind::Warning, kNoArea);
            } else {
                Ask("A-", "GAMMA");
            }
            Do(kAddToDb);
            platform_.Verify();
        }
    }
    LoadTables(false);
    Open<FWeaponMaker>();
    EXPECT_FALSE(Button(kNew).isEnabled());
    EXPECT_EQ(PenCaptions(), "   ");  // nothing has been displayed
    Do("optAttackType(0)");
    for (const std::string& missing : {kNoName, kNoType, kNoArea})
        Expect(BoxKind::Warning, missing);
    Do(kAddToDb);
    ExpectClosing("2");
    EXPECT_EQ(Weapons().Count(), 0);
}

TEST_F(WeaponMakerTest, AWeaponOfAnUnknownClassShowsNameAndDescriptionAlone) {
    const std::string unknown = "Invalid Weapon Class: \"Relic\".";
    AddWeapon("Alpha");
    CWeapon& relic = AddWeapon("Beta", "b");
    relic.SetWeaponClass("Relic");
    relic.SetWeaponProperty(CWeapon::OneUse, true);
    Expect(BoxKind::Critical, unknown);
    TakeRow(1);
    EXPECT_EQ(Text("tedName") + Text("tedDescr") + Choice("cmbWeaponType"), "BetabRelic");
    EXPECT_EQ(LitButtons() + " " + Text("tedPointCost"), "0/4//0 4");  // as before
    for (const char* dead : {"optAttackType(0)", "optRecharge(3)", "chkAttackType(0)", "optWeaponPen(1)",
                             "tedTargetingBonus=5", "cmbAreaOfEffect=2", "cmbWeaponType=1", "tedDescr=dead"})
        Do(dead);
    EXPECT_EQ(Text("tedPointCost") + Label("lblSpecialDescr"), "4");
    Ask("U+", "BETA");  // name and description go into the weapon all the same
    Do(kAddToDb);
    EXPECT_EQ(Rows(Weapons()), "Alpha: Beta:dead ");
    EXPECT_EQ(Weapons().Item("BETA").AsWeapon()->SpecialPropertiesStr(), "One Use");
    Do("cmdNext");  // another one brings the form back to life
    Do("chkAttackType(0)");
    EXPECT_EQ(LitButtons() + " " + Text("tedPointCost"), "0/4/0/0 8");

    Open<FWeaponMaker>();
    for (int lookUp = 0; lookUp < 3; ++lookUp)  // base cost, its penetration, that of the display
        Expect(BoxKind::Critical, unknown);
    Do("cmbWeaponType=2");
    EXPECT_EQ(Text("tedPointCost"), "4");
    ExpectClosing("2");
}

}  // namespace
