#include "makers/weapon_maker.h"

#include "makers/maker_test.h"

namespace {

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
        {"optAttackType(2)", "0/2//0", "Inhaled Gas", true},
        {"chkAttackType(1)", "0/4/1/0", "Sticky", false},
        {"chkAttackType(3)", "0/4/3/0", "Off Table Support", true},
        {"optRecharge(2)", "0/4//2", "Needs Reloading", false},
        {"optRecharge(3)", "0/4//3", "One Use", false},
    };
    for (const auto& [button, lit, property, needsArea] : kButtons) {
        Weapons().Clear();
        Open<FWeaponMaker>();
        Do("tedName=Gamma " + button);
        EXPECT_EQ(LitButtons() + Label("lblSpecialDescr"), lit + property);
        if (needsArea) {
            Expect(BoxKind::Warning, "The weapon must have an area of effect.");
            Do(kAddToDb + " cmbAreaOfEffect=1");
        }
        Ask("A+", "GAMMA");
        ExpectClosing("2");
        Open<FWeaponMaker>();
        Do("cmdNext");
        EXPECT_EQ(LitButtons(), lit);
        EXPECT_EQ(Weapons().Item("GAMMA").AsWeapon()->AreaOfEffect(), needsArea ? 3 : 0);
        Do("cmbWeaponType=0");
        Ask("U-", "GAMMA");
        ExpectClosing("2");
    }
}

TEST_F(WeaponMakerTest, ShowsTheCostAfterEachChoice) {
    const std::pair<std::string, std::string> kEdits[] = {
        {"optWeaponPen(1)", "6 1/4//0"},         // 4 x 1.5
        {"optWeaponPen(2)", "8 2/4//0"},         // 4 x 2, a factor of all that follow
        {"optAttackType(1)", "18 2/1//0 Acid"},  // 4 + 5
        {"chkAttackType(0)", "36 2/1/0/0 Acid, Automatic Fire"},
        // A type of attack switches the effects off on the screen alone.
        {"optAttackType(4)", "16 2/4//0 Automatic Fire"},
        // Another class starts at its lowest penetration and keeps the rest: 12 x 2.
        {"cmbWeaponType=1", "24 0/4/0/0 Automatic Fire"},
        // 8 is there twice: the first lights up, the factor is that of the last.
        {"optWeaponPen(2)", "48 1/4/0/0 Automatic Fire"},
        {"cmdMenu(0)", "12 0/4//0"},
        {"cmbWeaponType=0 tedTargetingBonus=x-57", "29 0/4//0 Targeting Bonus +5"},  // 4 + 5 x 5
        {"tedTargetingBonus=", "4 0/4//0"},
    };
    for (const auto& [actions, shown] : kEdits) {
        Do(actions);
        const std::string properties = Label("lblSpecialDescr");
        EXPECT_EQ(Text("tedPointCost") + " " + LitButtons() + (properties.empty() ? "" : " ") + properties, shown);
    }
}

TEST_F(WeaponMakerTest, AWeaponOfAnUnknownClassShowsNameAndDescriptionAlone) {
    AddWeapon("Alpha");
    CWeapon& relic = AddWeapon("Beta", "b");
    relic.SetWeaponClass("Relic");
    relic.SetWeaponProperty(CWeapon::OneUse, true);
    Expect(BoxKind::Critical, "Invalid Weapon Class: \"Relic\".");
    TakeRow(1);
    Do("optAttackType(0) optRecharge(3) chkAttackType(0) optWeaponPen(1) tedTargetingBonus=5 cmbAreaOfEffect=2 "
       "cmbWeaponType=1 tedDescr=dead");
    EXPECT_EQ(Text("tedName") + Text("tedPointCost") + Label("lblSpecialDescr"), "Beta4");
    Ask("U+", "BETA");  // name and description go into the weapon all the same
    Do(kAddToDb);
    EXPECT_EQ(Weapons().Item("BETA").Descr(), "dead");
    EXPECT_EQ(Weapons().Item("BETA").AsWeapon()->SpecialPropertiesStr(), "One Use");
    Do("cmdNext chkAttackType(0)");  // another one brings the form back to life
    EXPECT_EQ(Text("tedName") + Text("tedPointCost"), "Alpha8");
}

TEST_F(WeaponMakerTest, WithoutAClassNothingIsStored) {
    LoadTables(kNoRules, ';');
    Open<FWeaponMaker>();
    Expect(BoxKind::Warning,
           "No weapon type specified. Specify a type for the weapon before adding it to the database.");
    Do("tedName=Gamma " + kAddToDb);
    WarnWithCancel("The current weapon data is not complete/valid, it CANNOT be saved to the database.", BoxAnswer::Ok);
    ExpectClosing("2");
}

}  // namespace
