#include "makers/unit_special_props.h"

#include "core/state/global.h"
#include "support/core_test.h"
#include "support/form_driver.h"

using namespace MFormDriver;

namespace {

class UnitSpecialPropsTest : public CoreTest {
  protected:
    UnitSpecialPropsTest() {
        MGlobal::Reset();
        MGlobal::SetSkinId(1);
    }
    ~UnitSpecialPropsTest() override { VerifySteps(); }

    void Init(CUnit::Type type) {
        unit_.SetUnitType(type);
        unit_.InitUnit();
    }
    /// Shows the unit, runs the step, and ends the dialog.
    void InDialog(
        const std::function<void()>& step,
        const std::function<void(CForm&)>& end = [](CForm& form) { Click(form, "cmdCancel"); }) {
        WhileModal([&](CForm&) { step(), end(form_); });
        form_.ShowUnit(unit_);
    }
    std::string Text(const char* field) { return Get<QXTextEdit>(form_, field).Text(); }
    bool Enabled(const char* name) { return Find(form_, name)->isEnabled(); }
    bool Shown(const char* name) { return Find(form_, name)->isVisible(); }
    /// Values of special properties and crew places of the copy.
    std::string Words() {
        std::string words;
        for (int property = 0; property < CUnit::SpecialCount; ++property)
            words += std::to_string(form_.Unit()->SpecialProp(property)) + " ";
        for (int place = 0; place < CUnit::CrewPlaceCount; ++place)
            words += "/" + std::to_string(form_.Unit()->Crew(place));
        return words;
    }

    CUnit unit_;
    FUnitSpecialProps form_;
};

TEST_F(UnitSpecialPropsTest, ShowsWhatTheUnitHas) {
    unit_.SetSpecialProp(CUnit::Medic, 1);
    unit_.SetSpecialProp(CUnit::Officer, 3);
    unit_.SetSpecialProp(CUnit::HeroicSave, 2);
    InDialog([this] {
        EXPECT_TRUE(Get<QXColorButton>(form_, "chkMedic").Value() && !Get<QXColorButton>(form_, "chkFlying").Value());
        EXPECT_EQ(Text("tedOfficerBonus") + Text("tedHeroicSave"), "32");
        EXPECT_EQ(Text("tedPointCost"), "52");  // (5 + 6 + 10 + 5) x 2
        EXPECT_TRUE(Shown("frmInfantry") && !Shown("frmCrew") && Get<QXTextEdit>(form_, "tedPointCost").Locked());
    });
    for (const auto type : {CUnit::Vehicle, CUnit::SlaveRobot, CUnit::AutonomousRobot}) {
        Init(type);
        unit_.SetCrew(CUnit::LifeSupported, 3);
        InDialog([this, type] {
            EXPECT_TRUE(!Shown("frmInfantry") && Shown("frmCrew"));
            EXPECT_EQ(Text("tedCrewNumber(0)") + Text("tedCrewNumber(3)"), type == CUnit::Vehicle ? "13" : "03");
            EXPECT_EQ(Find(form_, "tedCrewNumber(3)")->accessibleName(), "Enclosed and L.S. Crew");
        });
    }
}

TEST_F(UnitSpecialPropsTest, PricesEachChangeAtOnce) {
    struct {
        const char* control;
        const char* typed;  // nothing for a click
        const char* shown;
        const char* words;
        const char* cost;  // of infantry at 5 + 3, or of a vehicle at 5 and 2 for its exposed place
    } const cases[] = {
        {"chkFlying", nullptr, "", "1 0 0 0 0 0 /0/0/0/0", "12"},
        {"chkSharpShooter", nullptr, "", "0 1 0 0 0 0 /0/0/0/0", "13"},
        {"chkMedic", nullptr, "", "0 0 1 0 0 0 /0/0/0/0", "13"},
        {"chkFerocious", nullptr, "", "0 0 0 0 0 1 /0/0/0/0", "12"},
        {"tedOfficerBonus", "7", "4", "0 0 0 4 0 0 /0/0/0/0", "32"},  // (8 + 8) x 2
        {"tedOfficerBonus", "2.5", "2.5", "0 0 0 2 0 0 /0/0/0/0", "24"},
        {"tedOfficerBonus", "3.5", "3.5", "0 0 0 4 0 0 /0/0/0/0", "32"},
        {"tedOfficerBonus", "1x2", "4", "0 0 0 4 0 0 /0/0/0/0", "32"},  // a letter doesn't pass, and 12 is too much
        {"tedOfficerBonus", "-2", "-2", "0 0 0 -2 0 0 /0/0/0/0", "8"},
        {"tedOfficerBonus", "", "", "0 0 0 0 0 0 /0/0/0/0", "8"},
        {"tedHeroicSave", "5", "4", "0 0 0 0 4 0 /0/0/0/0", "28"},
        {"tedHeroicSave", "", "", "0 0 0 0 0 0 /0/0/0/0", "8"},
        {"tedCrewNumber(0)", "", "", "0 0 0 0 0 0 /0/0/0/0", "5"},
        {"tedCrewNumber(1)", "2.5", "2.5", "0 0 0 0 0 0 /1/2/0/0", "15"},  // 4 each
        {"tedCrewNumber(2)", "3", "3", "0 0 0 0 0 0 /1/0/3/0", "19"},      // at least 4 each
        {"tedCrewNumber(3)", "-3", "-3", "0 0 0 0 0 0 /1/0/0/0", "7"},
        {"tedCrewNumber(3)", "1", "1", "0 0 0 0 0 0 /1/0/0/1", "13"},
    };
    for (const auto& change : cases) {
        SCOPED_TRACE(change.control + std::string("=") + (change.typed != nullptr ? change.typed : ""));
        const bool crew = std::string(change.control).starts_with("tedCrew");
        Init(crew ? CUnit::Vehicle : CUnit::Infantry);
        if (!crew) unit_.SetStatValue(CUnit::FA, 5);
        InDialog([&] {
            if (change.typed == nullptr) {
                Click(form_, change.control);
            } else {
                Retype(form_, change.control, "1");  // emptying is a change, too
                Retype(form_, change.control, change.typed);
                EXPECT_EQ(Text(change.control), change.shown);
            }
            EXPECT_EQ(Words() + Text("tedPointCost"), std::string(change.words) + change.cost);
            if (change.typed != nullptr) return;
            Click(form_, change.control);
            EXPECT_EQ(Words() + Text("tedPointCost"), "0 0 0 0 0 0 /0/0/0/08");
        });
    }
    InDialog([this] {
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '6':\r\n\r\nOverflow");
        Retype(form_, "tedCrewNumber(0)", "32768");
        EXPECT_EQ(form_.Unit()->Crew(0), 3276);  // the last number that is one
    });
}

TEST_F(UnitSpecialPropsTest, OffersWhatRulesAndSkillAllow) {
    struct {
        std::int16_t version;
        std::int16_t skill;
        bool ferocious;
    } const cases[] = {{2, 6, false}, {2, 5, true}, {2, 2, true}, {2, 0, false}, {3, 5, true}, {1, 5, false}};
    unit_.SetSpecialProp(CUnit::Ferocious, 1);
    for (const auto& model : cases) {
        unit_.SetVersion(model.version);
        unit_.SetStatValue(CUnit::FA, model.skill);
        InDialog([&] {
            Retype(form_, "tedOfficerBonus", "1");  // sets the states anew
            for (const char* name : {"chkMedic", "chkSharpShooter", "tedHeroicSave"})
                EXPECT_EQ(Enabled(name), model.version >= 2) << name;
            EXPECT_EQ(Enabled("chkFerocious"), model.ferocious) << model.version << " " << model.skill;
            EXPECT_TRUE(Enabled("chkFlying") && Get<QXColorButton>(form_, "chkFerocious").Value());
        });
    }
}

TEST_F(UnitSpecialPropsTest, OnlyAVehicleNeedsACrewAndCancelCostsNothing) {
    const auto confirm = [](CForm& form) { Click(form, "cmdOK"); };
    for (const auto type : {CUnit::Vehicle, CUnit::SlaveRobot, CUnit::AutonomousRobot}) {
        Init(type);
        const auto step = [this, type] {
            Retype(form_, "tedCrewNumber(0)", "");
            if (type != CUnit::Vehicle) return;
            platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok,
                                "A vehicle must have space for at least one crew member.");
            Click(form_, "cmdOK");
            EXPECT_TRUE(form_.Visible() && !form_.OK());
            Retype(form_, "tedCrewNumber(3)", "2");
        };
        InDialog(step, confirm);
        EXPECT_TRUE(form_.OK());
        EXPECT_EQ(form_.Unit()->Crew(3) - unit_.Crew(3), type == CUnit::Vehicle ? 2 : 0);
    }
    const std::function<void(CForm&)> ways[] = {[](CForm& form) { Click(form, "cmdCancel"); }, &CloseWindow,
                                                [](CForm& form) { Press(form, "cmdOK", Qt::Key_Escape); }};
    for (const auto& cancel : ways) {
        InDialog([] {}, confirm);
        InDialog([this] { Click(form_, "chkFlying"); }, cancel);
        EXPECT_FALSE(form_.OK() || form_.Visible());
        EXPECT_EQ(unit_.SpecialProp(CUnit::Flyer) * 100 + unit_.EquippedPointCost(), 15);
    }
}

TEST_F(UnitSpecialPropsTest, TellsWhatIsUnderThePointer) {
    const auto look = [this](const std::string& place) {
        Hover(form_, QString::fromStdString(place));
        std::string seen = Get<QXLabel>(form_, "lblTip").Caption() + "|";
        for (IControl* control : form_.Controls()) {
            const auto* button = dynamic_cast<QXColorButton*>(control);
            if (button != nullptr && button->BorderStyle() == 1) seen += button->Name();
        }
        return seen;
    };
    unit_.SetStatValue(CUnit::FA, 5);
    InDialog([&] {
        const std::pair<const char*, const char*> tips[] = {
            {"chkFlying", "Select to make the unit a flyer|chkFlying"},
            {"frmGeneral", "|"},
            {"chkMedic", "Select to make the unit a medic|chkMedic"},
            {"frmInfantry", "|"},
            {"chkSharpShooter", "Select to make the unit a sharpshooter|chkSharpShooter"},
            {"", "|"},
            {"chkFerocious", "Model must have FA 5 or better, gains Strikeback on 1 or 2|chkFerocious"},
            {"lblOfficerBonus", "Set the officer bonus (max 4)|"},
            {"tedHeroicSave", "Set Heroic Save (max 4)|"},
            {"cmdOK", "|cmdOK"}};
        for (const auto& [place, seen] : tips)
            EXPECT_EQ(look(place), seen);
    });
    Init(CUnit::SlaveRobot);
    InDialog([&] {
        look("cmdOK");
        EXPECT_EQ(look("lblCrewMembers(1)"), "Partially exposed crew (head or torso always out of the vehicle)|");
        look("cmdOK");
        EXPECT_EQ(look("frmCrew"), "|cmdOK");  // the tip alone goes
        EXPECT_EQ(look("tedCrewNumber(3)"), "Crew riding inside the vehicle with full life support|");
    });
}

}  // namespace
