#include "makers/selector.h"

#include "makers/maker_test.h"
#include "units/army_list.h"

namespace {

using MFormDriver::WhileModal;

class SelectorTest : public MakerTest {
  protected:
    static std::string Shown(CForm& form) {
        auto& list = MFormDriver::Get<CListBox>(form, "lstItems");
        std::string rows;
        for (int row = 0; row < list.ListCount(); ++row)
            rows += list.List(row) + ",";
        return rows;
    }
    static bool CanConfirm(CForm& form) { return MFormDriver::Get<QXColorButton>(form, "cmdOK").isEnabled(); }
    std::string Texts() { return selector_.Prompt() + "/" + selector_.OKCaption() + "/" + selector_.CancelCaption(); }

    FSelector selector_;
};

TEST_F(SelectorTest, GivesTheChosenNameAndStartsAnewEachTime) {
    EXPECT_EQ(selector_.Caption() + ": " + Texts(), "Database Selection: Select an item from the list:/OK/Cancel");
    selector_.SetPrompt("Which?");
    selector_.SetOKCaption("Take");
    selector_.SetCancelCaption("Leave");
    EXPECT_EQ(Texts(), "Which?/Take/Leave");
    for (const char* name : {"Gamma", "Alpha", "beta"})
        AddWeapon(name);
    Weapons().ShiftObjUp("GAMMA");

    using Step = void (*)(CForm&);
    const Step ok = [](CForm& form) { MFormDriver::Click(form, "cmdOK"); };
    const Step cancel = [](CForm& form) { MFormDriver::Click(form, "cmdCancel"); };
    const Step escape = [](CForm& form) { MFormDriver::Press(form, "lstItems", Qt::Key_Escape); };
    const Step doubleClick = [](CForm& form) { MFormDriver::ClickRow(form, "lstItems", 2, true); };
    const struct {
        int row;
        Step end;
        bool confirmed;
        const char* selection;
    } kShows[] = {
        {1, ok, true, "beta"},      {1, cancel, false, "beta"},       {0, &MFormDriver::CloseWindow, false, "Alpha"},
        {1, escape, false, "beta"}, {-1, doubleClick, true, "Gamma"}, {-1, cancel, false, ""}};
    for (const auto& show : kShows) {
        WhileModal([&](CForm& form) {
            EXPECT_EQ(Shown(form), "Alpha,beta,Gamma,");
            EXPECT_FALSE(selector_.OK() || CanConfirm(form) || !selector_.Selection().empty());
            if (show.row >= 0) MFormDriver::ClickRow(form, "lstItems", show.row);
            EXPECT_EQ(CanConfirm(form), show.row >= 0);
            show.end(form);
        });
        EXPECT_EQ(selector_.ShowEqList(Weapons()), show.confirmed);
        EXPECT_EQ(selector_.OK(), show.confirmed);
        EXPECT_EQ(selector_.Selection(), show.selection);
    }
}

TEST_F(SelectorTest, ShowsTheUnitsOfAClass) {
    CUnitList& units = MGlobal::ArmyList().ArmyUnits();
    const auto shows = [&](std::int32_t unitClass, const std::string& rows) {
        WhileModal([&](CForm& form) {
            EXPECT_EQ(Shown(form), rows) << unitClass;
            EXPECT_FALSE(CanConfirm(form));
            MFormDriver::Click(form, "cmdCancel");
        });
        EXPECT_FALSE(selector_.ShowUnitList(units, unitClass));
    };
    shows(0, "");
    for (const auto& [name, kind] : {std::pair{"Patrol", CGenUnit::Squad}, {"Guard", CGenUnit::Single}}) {
        shows(CGenUnit::Single, "");
        auto unit = std::make_shared<CGenUnit>();
        unit->NewUnit(kind);
        unit->SetName(name);
        units.Add(unit);
    }
    shows(0, "Guard,Patrol,");
    shows(CGenUnit::Single, "Guard,");
    shows(CGenUnit::Squad, "Patrol,");
}

TEST_F(SelectorTest, ANamelessEntryCannotBeChosen) {
    AddWeapon("");
    Expect(BoxKind::Warning, "No item selected!");
    WhileModal([](CForm& form) {
        MFormDriver::ClickRow(form, "lstItems", 0, true);
        EXPECT_FALSE(CanConfirm(form));
        MFormDriver::Click(form, "cmdCancel");
    });
    EXPECT_FALSE(selector_.ShowEqList(Weapons()));
}

TEST_F(SelectorTest, ReportsAListThatFailsWhileItIsWalked) {
    Weapons().SetSorted(false);
    Weapons().SetIndexed(false);
    ASSERT_NE(Weapons().Add(std::make_shared<CEqItem>()), 0);  // an empty wrapper has no name
    Expect(BoxKind::Critical, "91 : Object variable or With block variable not set");
    EXPECT_FALSE(selector_.ShowEqList(Weapons()));
    EXPECT_FALSE(selector_.Visible());
}

}  // namespace
