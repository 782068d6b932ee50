#include "makers/unit_special_props.h"

#include "makers/maker_test.h"

namespace {

class UnitSpecialPropsTest : public MakerTest {
  protected:
    UnitSpecialPropsTest() { form_ = std::make_unique<FUnitSpecialProps>(); }

    FUnitSpecialProps& Dialog() { return static_cast<FUnitSpecialProps&>(*form_); }
    void Init(CUnit::Type type) {
        unit_.SetUnitType(type);
        unit_.InitUnit();
    }
    /// Shows the unit and does the steps, the last of which ends the dialog; looks before that.
    void InDialog(
        const std::string& steps, const char* end, const std::function<void()>& look = [] {}) {
        MFormDriver::WhileModal([&](CForm&) { DoAll(steps), look(), Do(end); });
        Dialog().ShowUnit(unit_);
    }
    /// Special properties, crew places and cost, as the copy has them.
    std::string Unit() {
        std::string unit;
        for (int property = 0; property < CUnit::SpecialCount; ++property)
            unit += std::to_string(Dialog().Unit()->SpecialProp(property));
        for (int place = 0; place < CUnit::CrewPlaceCount; ++place)
            unit += "/" + std::to_string(Dialog().Unit()->Crew(place));
        return unit + " = " + Text("tedPointCost");
    }

    CUnit unit_;
};

TEST_F(UnitSpecialPropsTest, PricesEachChangeAtOnce) {
    const std::pair<std::string, const char*> kChanges[] = {
        // infantry at 5 + 3
        {"chkFlying", "100000/0/0/0/0 = 12"},
        {"chkFlying chkFlying", "000000/0/0/0/0 = 8"},
        {"chkSharpShooter", "010000/0/0/0/0 = 13"},
        {"chkMedic", "001000/0/0/0/0 = 13"},
        {"chkFerocious", "000001/0/0/0/0 = 12"},
        {"tedOfficerBonus=7", "000400/0/0/0/0 = 32"},  // (8 + 8) x 2
        {"tedOfficerBonus=2.5", "000200/0/0/0/0 = 24"},
        {"tedOfficerBonus=-2", "000-200/0/0/0/0 = 8"},
        {"tedHeroicSave=5 tedHeroicSave=", "000000/0/0/0/0 = 8"},
        {"tedHeroicSave=5", "000040/0/0/0/0 = 28"},
        // a vehicle at 5, and 2 for its exposed place
        {"tedCrewNumber(0)=", "000000/0/0/0/0 = 5"},
        {"tedCrewNumber(1)=2.5", "000000/1/2/0/0 = 15"},  // 4 each
        {"tedCrewNumber(2)=3", "000000/1/0/3/0 = 19"},    // at least 4 each
        {"tedCrewNumber(3)=-3", "000000/1/0/0/0 = 7"},
    };
    for (const auto& [steps, unit] : kChanges) {
        const bool crew = steps.starts_with("tedCrew");
        Init(crew ? CUnit::Vehicle : CUnit::Infantry);
        if (!crew) unit_.SetStatValue(CUnit::FA, 5);
        InDialog(steps, "cmdCancel", [&, unit = unit] {
            EXPECT_EQ(Unit(), unit);
            EXPECT_EQ(Shown("frmCrew"), crew);
        });
    }
    Expect(BoxKind::Critical, "Run-time error '6':\r\n\r\nOverflow");
    InDialog("tedCrewNumber(0)=32768", "cmdCancel", [this] {
        EXPECT_EQ(Dialog().Unit()->Crew(0), 3276);  // the last number that is one
    });
}

TEST_F(UnitSpecialPropsTest, OffersWhatRulesAndSkillAllow) {
    const std::tuple<std::int16_t, std::int16_t, bool> kModels[] = {{2, 6, false}, {2, 5, true}, {2, 2, true},
                                                                    {2, 0, false}, {3, 5, true}, {1, 5, false}};
    unit_.SetSpecialProp(CUnit::Ferocious, 1);
    for (const auto& [version, skill, ferocious] : kModels) {
        unit_.SetVersion(version);
        unit_.SetStatValue(CUnit::FA, skill);
        InDialog("", "cmdCancel", [&, secondEdition = version >= 2, allowed = ferocious] {
            for (const char* name : {"chkMedic", "chkSharpShooter", "tedHeroicSave"})
                EXPECT_EQ(Enabled(name), secondEdition) << name;
            EXPECT_EQ(Enabled("chkFerocious"), allowed);
            EXPECT_TRUE(Button("chkFerocious").Value());
        });
    }
}

TEST_F(UnitSpecialPropsTest, OnlyAVehicleNeedsACrewAndCancelCostsNothing) {
    Init(CUnit::SlaveRobot);
    InDialog("tedCrewNumber(0)=", "cmdOK");
    EXPECT_TRUE(Dialog().OK());
    Init(CUnit::Vehicle);
    Expect(BoxKind::Warning, "A vehicle must have space for at least one crew member.");
    InDialog("tedCrewNumber(0)= cmdOK tedCrewNumber(1)=2", "cmdOK");
    EXPECT_TRUE(Dialog().OK());
    EXPECT_EQ(Dialog().Unit()->Crew(1) + unit_.Crew(1), 2);
    MFormDriver::WhileModal([this](CForm& form) { Do("chkFlying"), MFormDriver::CloseWindow(form); });
    Dialog().ShowUnit(unit_);
    EXPECT_FALSE(Dialog().OK());
    EXPECT_EQ(unit_.SpecialProp(CUnit::Flyer), 0);
}

TEST_F(UnitSpecialPropsTest, TheFrameOfTheCrewTakesTheTipAloneAway) {
    const auto seen = [this](const char* place) {
        MFormDriver::Hover(*form_, place);
        return Label("lblTip") + (Button("cmdOK").BorderStyle() == 1 ? "!" : "");
    };
    Init(CUnit::SlaveRobot);
    InDialog("", "cmdCancel", [&] {
        EXPECT_EQ(seen("tedCrewNumber(3)"), "Crew riding inside the vehicle with full life support");
        EXPECT_EQ(seen("cmdOK"), "!");
        EXPECT_EQ(seen("frmCrew"), "!");
        EXPECT_EQ(seen("frmPointCost"), "");
    });
}

}  // namespace
