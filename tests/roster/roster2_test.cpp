#include "roster/roster2.h"

#include <regex>

#include "core/files/sequential.h"
#include "roster/page_templates.h"
#include "support/core_test.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace {

class CFakeBrowser : public IBrowser {
  public:
    void Navigate(const std::string& address) override { Calls += address + " "; }
    void Refresh() override { Calls += "refresh "; }
    void Print() override { Calls += "print "; }

    std::string Calls;
};

std::shared_ptr<CGenUnit> Unit(const std::string& name, std::int32_t type = 0) {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Single);
    unit->AsUnit()->SetUnitType(type);
    unit->AsUnit()->InitUnit();
    unit->SetName(name);
    return unit;
}

std::shared_ptr<CGenUnit> Squad(const std::string& name,
                                std::initializer_list<std::shared_ptr<CGenUnit>> members = {}) {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Squad);
    unit->SetName(name);
    for (const auto& member : members)
        unit->AsSquad()->Add(member, "");
    return unit;
}

std::shared_ptr<CGenUnit> Summary(std::shared_ptr<CGenUnit> unit) {
    unit->SetFullInfo(false);
    return unit;
}

std::shared_ptr<CEqItem> Item(std::int32_t kind, const std::string& name) {
    auto item = std::make_shared<CEqItem>();
    item->NewItem(kind);
    item->SetName(name);
    return item;
}

const std::string kHeading = "||MV|SS|FA|PF|DP|PTS|EQUIPMENT\n";

class RosterPageTest : public CoreTest {
  protected:
    std::string Page() const { return ReadBytes(folder_ / "tmproster.html"); }
    /// What the page shows: a line for each row, with its cells behind bars, and "--" for a rule.
    std::string Shown() const {
        std::string page = Page();
        for (const auto& [markup, text] : {std::pair("<BR>", "\n"), {"<HR>", "--"}, {"<TD[^>]*>", "|"}})
            page = std::regex_replace(page, std::regex(markup, std::regex::icase), text);
        page = std::regex_replace(page, std::regex("<[a-zA-Z/][^>]*>|\r"), "");
        return std::regex_replace(page, std::regex(R"(^\s+|\s+$| +(\|)|(\n)\n+)"), "$1$2");
    }
    void ExpectLost(const std::string& squad) {
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Error while retrieving information for unit: " + squad);
    }

    CFakeBrowser browser_;
    URoster2 roster_{browser_};
    CArmyList list_;
};

TEST_F(RosterPageTest, RosterKeepsItsOrderAndRulesOffEveryEntry) {
    CArmyRoster roster;
    roster.SetName("Caf\xE9 <*DESCR>");
    roster.SetDescr("\"200 \x80\" & more");
    auto guard = Unit("Stra\xDF\x65");
    guard->AsUnit()->SetSpecialProp(CUnit::Medic, 1);
    guard->SetQuantity(3);  // 3 x (5 + 5 + 2)
    auto knife = Item(CEqItem::Weapon, "Knife");
    knife->AsWeapon()->SetPenMultiplier(1);
    knife->AsWeapon()->SetBaseCost(2);
    guard->AsUnit()->AddItem(knife);
    guard->AsUnit()->AddItem(Item(CEqItem::Accessory, "Rope"));
    roster.Add(guard);
    auto tank = Unit("Tank", CUnit::Vehicle);
    tank->AsUnit()->SetCrew(2, 2);
    tank->AsUnit()->SetCrew(3, 1);
    tank->AsUnit()->SetSpecialProp(CUnit::Flyer, 1);  // (5 + 4 x 2 + 2 + 6) x 1.5
    roster.Add(tank);
    auto both = Squad("Both", {Unit("a"), Unit("b")});
    both->SetQuantity(2);  // 2 x (5 + 5)
    roster.Add(both);
    roster_.ShowArmyRoster(roster);
    EXPECT_EQ(Shown(), "Caf\xE9 <\"200 \x80\" & more>\n\"200 \x80\" & more\nTotal Cost: 87.5\n--\n" + kHeading +
                           "|Stra\xDF\x65 x 3 (Medic)|10|6|6|0|6|36|Knife, Rope\n--\n" + kHeading +
                           "|Tank (Flyer)|10|0|0|0|0|31.5|Vehicle, Fully exposed crew: 1, Fully enclosed crew: 2, "
                           "Fully enclosed life supported crew: 1\n--\n|Both x 2|MV|SS|FA|PF|DP|PTS (TOT: 20)\n"
                           "|a|10|6|6|0|6|5|\n|b|10|6|6|0|6|5|\n--");
    EXPECT_TRUE(Page().starts_with("<HTML>\r\n<BODY BGCOLOR=\"black\" text=\"#B0B0FF\"> <FONT FACE=\"ARIAL\">\r\n"));
    EXPECT_TRUE(Page().ends_with("</table>\r\n<HR><BR>\r\n</FONT></BODY>\r\n</HTML>\r\n\r\n"));
    EXPECT_EQ(browser_.Calls, "about:blank file:\\\\" + (folder_ / "tmproster.html "));

    roster.SetName("N");
    roster.SetPictureFile("a\\*NAME.png");
    roster_.SetSkin(2);
    roster_.ShowArmyRoster(roster);
    EXPECT_NE(Page().find("<BODY BGCOLOR=\"#FFFFD3\" text=\"#700000\">"), std::string::npos);
    EXPECT_NE(Page().find("<img src=\"a\\N.png\" alt=\"army logo\">"), std::string::npos);
}

TEST_F(RosterPageTest, ListStandsInSections) {
    list_.SetName("L");
    roster_.ShowArmyList(list_);
    EXPECT_EQ(Shown(), "L\n--");

    for (const auto& unit : {Unit("slave", 2), Unit("auto", 3), Unit("car", 1), Unit("man"), Unit("Man2")})
        list_.ArmyUnits().Add(unit);
    list_.ArmyUnits().Add(Squad("squad", {Unit("man")}));
    list_.ArmyUnits().Add(Squad("Squad 2"));
    auto odd = Unit("odd");
    odd->AsUnit()->SetUnitType(7);  // in no section
    list_.ArmyUnits().Add(odd);
    list_.SetPictureFile("p");
    roster_.ShowArmyList(list_);
    EXPECT_EQ(Shown(), "|L||\n--\n|INFANTRY|||||\n--\n" + kHeading +
                           "|man|10|6|6|0|6|5|\n|Man2|10|6|6|0|6|5|\n--\n|VEHICLES|||||\n--\n" + kHeading +
                           "|car|10|0|0|0|0|7|Vehicle, Fully exposed crew: 1\n--\n|ROBOTS - AUTONOMOUS|||||\n--\n" +
                           kHeading + "|auto|10|6|0|0|1|15|Autonomous Robot\n--\n|ROBOTS - SLAVE|||||\n--\n" +
                           kHeading +
                           "|slave|10|6|0|0|0|5|Slave Robot\n--\n|SQUADS|||||\n--\n"
                           "|squad|MV|SS|FA|PF|DP|PTS (TOT: 5)\n|man|10|6|6|0|6|5|\n--\n"
                           "|Squad 2|MV|SS|FA|PF|DP|PTS (TOT: 0)\n--");
}

TEST_F(RosterPageTest, SummariesAreTakenFromTheList) {
    auto guard = Unit("Guard");
    guard->SetDescr("of the list");
    guard->AsUnit()->AddItem(Item(CEqItem::Weapon, "Pike"));
    list_.ArmyUnits().Add(guard);
    list_.ArmyUnits().Add(Squad("Inner", {Unit("guard")}));
    auto summary = Summary(Unit("GUARD"));
    summary->SetQuantity(4);
    summary->SetDescr("of the roster");
    auto lost = Summary(Squad("Lost"));
    lost->SetQuantity(2);
    lost->SetDescr("kept");
    auto inner = Summary(Squad("INNER"));
    inner->SetQuantity(3);
    const auto shown = [this](const CGenUnit& unit) {
        roster_.ShowUnit(unit);
        return Shown();
    };

    // Without a list it is shown as it stands.
    EXPECT_EQ(shown(*summary), kHeading + "|GUARD x 4|10|6|6|0|6|20|\nof the roster");
    roster_.SetArmyList(&list_);
    EXPECT_EQ(shown(*summary), kHeading + "|Guard x 4|10|6|6|0|6|5|Pike\nof the list");
    EXPECT_EQ(shown(*Summary(Unit("Nobody"))), kHeading + "|Nobody DATA NOT FOUND|10|6|6|0|6|5|\nDATA NOT FOUND");
    EXPECT_EQ(shown(*Squad("Outer", {inner, Summary(Unit("gone")), lost})),
              "|Outer|MV|SS|FA|PF|DP|PTS (TOT: 5)\n|Inner x 3|MV|SS|FA|PF|DP|PTS (TOT: 5)\n|Guard|10|6|6|0|6|5|Pike\n"
              "|gone DATA NOT FOUND|10|6|6|0|6|5|\n|Lost DATA NOT FOUND x 2|MV|SS|FA|PF|DP|PTS (TOT: 0)");
    EXPECT_EQ(shown(*lost), "|Lost DATA NOT FOUND x 2|MV|SS|FA|PF|DP|PTS (TOT: 0)\nkept");
    EXPECT_EQ(shown(CGenUnit()), Shown());  // nothing is made of an empty one
}

TEST_F(RosterPageTest, ListsOfEquipmentShowOneKind) {
    CEqList items;
    auto gun = Item(CEqItem::Weapon, "Gun *PTS");
    gun->AsWeapon()->SetPenMultiplier(1.5f);
    gun->AsWeapon()->SetBaseCost(0.25);
    gun->AsWeapon()->SetWeaponClass("*PEN");
    gun->AsWeapon()->SetPen(-3);
    gun->AsWeapon()->SetWeaponProperty(CWeapon::Flame, true);
    gun->SetDescr("<i>hot</i>");
    items.Add(gun);
    auto kit = Item(CEqItem::Accessory, "Kit");
    kit->AsAccessory()->SetPointCost(2);
    kit->AsAccessory()->SetPF(1);
    kit->AsAccessory()->SetAccClass("Any *PEN");
    items.Add(kit);
    roster_.ShowWeaponList(items);
    EXPECT_EQ(Shown(), "|WEAPON|PTS|Class|Pen|Properties|Description\n|Gun 7.875|7.875|-3|-3|Flame|hot");
    roster_.ShowAccessoryList(items);
    EXPECT_EQ(Shown(), "|ACCESSORY|PTS|Class|Properties|Description\n|Kit|2|Any *PEN|PF 1|");
    EXPECT_EQ(MPageTemplates::FormatText("x", 7, "p"), "<p><b><i><u>x</u></i></b></p>");
}

TEST_F(RosterPageTest, NamesThatResolveToNothingUsefulAreErrors) {
    list_.ArmyUnits().Add(Squad("Thing"));
    list_.ArmyUnits().Add(Unit("Man"));
    roster_.SetArmyList(&list_);
    EXPECT_EQ(ErrorOf([&] { roster_.ShowUnit(*Summary(Unit("Thing"))); }), 13);
    ExpectLost("Man");
    roster_.ShowUnit(*Summary(Squad("Man")));
    EXPECT_EQ(Shown(), "");
    ExpectLost("Band");  // the rows behind the failing one stay missing
    roster_.ShowUnit(*Squad("Band", {Unit("man"), Unit("thing"), Unit("man")}));
    EXPECT_EQ(Shown(), "|Band|MV|SS|FA|PF|DP|PTS (TOT: 15)\n|Man|10|6|6|0|6|5|");

    // Squads that hold themselves are reported once.
    list_.ArmyUnits().Add(Squad("A", {Squad("B")}));
    list_.ArmyUnits().Add(Squad("B", {Squad("A"), Squad("B")}));
    ExpectLost("A");
    roster_.ShowUnit(list_.ArmyUnits().Item("A"));
    EXPECT_EQ(Shown(), "|A|MV|SS|FA|PF|DP|PTS (TOT: 0)\n|B|MV|SS|FA|PF|DP|PTS (TOT: 0)");
}

TEST_F(RosterPageTest, PagesGoWhereTheyAreToldOrFail) {
    const std::int16_t number = roster_.NewRoster(folder_ / "own.html");
    roster_.ShowSingleUnit(*Unit("a")->AsUnit(), number, false);
    roster_.CloseRoster(number);
    EXPECT_NE(ReadBytes(folder_ / "own.html").find("<b>a</b>"), std::string::npos);
    std::filesystem::create_directory(folder_ / "tmproster.html");
    EXPECT_EQ(ErrorOf([&] { roster_.ShowArmyList(list_); }), 75);
    roster_.ShowRosterFile("/x/y.html");
    roster_.PrintRoster();
    roster_.Refresh();
    EXPECT_EQ(browser_.Calls, "about:blank file:\\\\/x/y.html print refresh ");
}

}  // namespace
