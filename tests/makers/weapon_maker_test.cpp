#include "makers/weapon_maker.h"

#include "makers/maker_test.h"

namespace {

const char* const kNoArea = "The weapon must have an area of effect.";

class WeaponMakerTest : public MakerTest {
  protected:
    WeaponMakerTest() { Open<FWeaponMaker>(); }

    /// Buttons that are on: penetration, type of attack, other effects, use limit.
    std::string LitButtons() {
        return Lit("optWeaponPen") + "/" + Lit("optAttackType") + "/" + Lit("chkAttackType") + "/" + Lit("optRecharge");
    }
};

TEST_F(WeaponMakerTest, EachButtonIsAPropertyOfTheRecord) {
    // what lights up, what it is called, and whether it needs an area
    const std::tuple<std::string, std::string, const char*, bool> kButtons[] = {
        {"optWeaponPen(1)", "1/4//0", "", false},
        {"optAttackType(0)", "0/0//0", "Flame", true},
        {"optAttackType(1)", "0/1//0", "Acid", true},
        {"optAttackType(2)", "0/2//0", "Inhaled Gas", true},
        {"optAttackType(3)", "0/3//0", "Absorbed Gas", true},
        {"chkAttackType(0)", "0/4/0/0", "Automatic Fire", false},
        {"chkAttackType(1)", "0/4/1/0", "Sticky", false},
        {"chkAttackType(2)", "0/4/2/0", "Parabolic Trajectory", false},
        {"chkAttackType(3)", "0/4/3/0", "Off Table Support", true},
        {"chkAttackType(4)", "0/4/4/0", "Reduced Range", false},
        {"optRecharge(1)", "0/4//1", "Recharge 1 Turn", false},
        {"optRecharge(2)", "0/4//2", "Needs Reloading", false},
        {"optRecharge(3)", "0/4//3", "One Use", false},
    };
    for (const auto& [button, lit, property, needsArea] : kButtons) {
        SCOPED_TRACE(button);
        Weapons().Clear();
        Open<FWeaponMaker>();
        DoAll("tedName=Gamma " + button);
        EXPECT_EQ(LitButtons() + Label("lblSpecialDescr"), lit + property);
        if (needsArea) {
            Expect(BoxKind::Warning, kNoArea);
            DoAll(kAddToDb + " cmbAreaOfEffect=1");
        }
        Ask("A+", "GAMMA");
        ExpectClosing("2");
        Open<FWeaponMaker>();
        Do("cmdNext");
        EXPECT_EQ(LitButtons() + Choice("cmbAreaOfEffect"), lit + (needsArea ? "3" : "0"));
    }
    AddWeapon("Odd").SetPen(7);  // none of the class's
    Do("cmdNext");
    EXPECT_EQ(LitButtons(), "/4//0");
}

TEST_F(WeaponMakerTest, ShowsTheCostAfterEachChoice) {
    const std::tuple<std::string, const char*, const char*> kEdits[] = {
        {"optWeaponPen(1)", "6 1/4//0", ""},        // 4 x 1.5
        {"optWeaponPen(2)", "8 2/4//0", ""},        // 4 x 2, a factor of all that follow
        {"optAttackType(1)", "18 2/1//0", "Acid"},  // 4 + 5
        {"chkAttackType(0)", "36 2/1/0/0", "Acid, Automatic Fire"},
        // A type of attack switches the effects off on the screen alone.
        {"optAttackType(4)", "16 2/4//0", "Automatic Fire"},
        // Another class starts at its lowest penetration and keeps the rest: 12 x 2.
        {"cmbWeaponType=1", "24 0/4/0/0", "Automatic Fire"},
        // 8 is there twice: the first lights up, the factor is that of the last.
        {"optWeaponPen(2)", "48 1/4/0/0", "Automatic Fire"},
        {"cmdMenu(0)", "12 0/4//0", ""},
    };
    for (const auto& [action, shown, properties] : kEdits) {
        Do(action);
        EXPECT_EQ(Text("tedPointCost") + " " + LitButtons(), shown) << action;
        EXPECT_EQ(Label("lblSpecialDescr"), properties) << action;
    }
}

TEST_F(WeaponMakerTest, FieldsHaveTheirLimits) {
    DoAll("tedName=" + std::string(51, 'x') + " tedDescr=" + std::string(101, 'x'));
    EXPECT_EQ(Text("tedName").size() * 1000 + Text("tedDescr").size(), 50100u);
    for (const auto& [typed, shown] : {std::pair{"x-57", "5/29"}, {".9", "./4"}, {"", "/4"}}) {  // 4 + 5 x 5
        DoAll(std::string("tedTargetingBonus=1 tedTargetingBonus=") + typed + " tedName");
        EXPECT_EQ(Text("tedTargetingBonus") + "/" + Text("tedPointCost"), shown);
    }
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
    const auto limits = [this] { return Button("optRecharge(1)").isEnabled() + Button("optRecharge(2)").isEnabled(); };
    Do("tedName=Grenade");
    EXPECT_EQ(limits(), 2);  // the name tells when it is shown
    Do("cmbWeaponType=0");
    EXPECT_EQ(limits(), 0);
}

TEST_F(WeaponMakerTest, WithoutTablesNothingIsComplete) {
    EXPECT_TRUE(Button(kNew).isEnabled());
    LoadTables(false);
    Open<FWeaponMaker>();
    EXPECT_FALSE(Button(kNew).isEnabled());
    Do("optAttackType(0)");
    for (const std::string lack : {"name", "type"})
        Expect(BoxKind::Warning, "No weapon " + lack + " specified. Specify a " + lack +
                                     " for the weapon before adding it to the database.");
    Expect(BoxKind::Warning, kNoArea);
    Do(kAddToDb);
    ExpectClosing("2");
}

TEST_F(WeaponMakerTest, AWeaponOfAnUnknownClassShowsNameAndDescriptionAlone) {
    const char* unknown = "Invalid Weapon Class: \"Relic\".";
    AddWeapon("Alpha");
    CWeapon& relic = AddWeapon("Beta", "b");
    relic.SetWeaponClass("Relic");
    relic.SetWeaponProperty(CWeapon::OneUse, true);
    Expect(BoxKind::Critical, unknown);
    TakeRow(1);
    DoAll(
        "optAttackType(0) optRecharge(3) chkAttackType(0) optWeaponPen(1) tedTargetingBonus=5 cmbAreaOfEffect=2 "
        "cmbWeaponType=1 tedDescr=dead");
    EXPECT_EQ(Text("tedName") + Text("tedPointCost") + Label("lblSpecialDescr"), "Beta4");
    Ask("U+", "BETA");  // name and description go into the weapon all the same
    Do(kAddToDb);
    EXPECT_EQ(Weapons().Item("BETA").Descr(), "dead");
    EXPECT_EQ(Weapons().Item("BETA").AsWeapon()->SpecialPropertiesStr(), "One Use");
    DoAll("cmdNext chkAttackType(0)");  // another one brings the form back to life
    EXPECT_EQ(Text("tedName") + Text("tedPointCost"), "Alpha8");
}

}  // namespace
