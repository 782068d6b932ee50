#include "makers/selector.h"

#include "makers/maker_test.h"

namespace {

class SelectorTest : public MakerTest {
  protected:
    /// What the selector will show, and what is done there.
    void InSelector(const std::string& shown, const std::string& actions) {
        MFormDriver::WhileModal([=, this](CForm& form) {
            EXPECT_EQ(Items(form, "lstItems") + selector_.Selection(), shown);
            EXPECT_FALSE(selector_.OK() || MFormDriver::Find(form, "cmdOK")->isEnabled());
            Do(form, actions);
            if (form.isVisible()) MFormDriver::CloseWindow(form);
        });
    }

    FSelector selector_;
};

TEST_F(SelectorTest, GivesTheChosenNameAndStartsAnewEachTime) {
    const std::tuple<const char*, bool, const char*> kShows[] = {{"lstItems#1 cmdOK", true, "beta"},
                                                                 {"lstItems#1 cmdCancel", false, "beta"},
                                                                 {"lstItems##2", true, "Gamma"},
                                                                 {"", false, ""}};
    for (const char* name : {"Gamma", "Alpha", "beta"})
        AddWeapon(name);
    Weapons().ShiftObjUp("GAMMA");
    for (const auto& [actions, confirmed, selection] : kShows) {
        InSelector("Alpha beta Gamma ", actions);
        EXPECT_EQ(selector_.ShowEqList(Weapons()), confirmed);
        EXPECT_EQ(selector_.OK(), confirmed);
        EXPECT_EQ(selector_.Selection(), selection);
    }
}

TEST_F(SelectorTest, ShowsTheUnitsOfAClass) {
    AddUnit("Patrol", CGenUnit::Squad);
    AddUnit("Guard");
    for (const auto& [unitClass, rows] :
         {std::pair{0, "Guard Patrol "}, {+CGenUnit::Single, "Guard "}, {+CGenUnit::Squad, "Patrol "}}) {
        InSelector(rows, "cmdCancel");
        EXPECT_FALSE(selector_.ShowUnitList(Units(), unitClass));
    }
}

TEST_F(SelectorTest, ANamelessEntryCannotBeChosenAndAListThatFailsIsReported) {
    AddWeapon("");
    Expect(BoxKind::Warning, "No item selected!");
    InSelector(" ", "lstItems##0");
    EXPECT_FALSE(selector_.ShowEqList(Weapons()));
    Weapons().SetSorted(false);
    Weapons().SetIndexed(false);
    ASSERT_NE(Weapons().Add(std::make_shared<CEqItem>()), 0);  // an empty wrapper has no name
    Expect(BoxKind::Critical, "91 : Object variable or With block variable not set");
    EXPECT_FALSE(selector_.ShowEqList(Weapons()));
}

}  // namespace
