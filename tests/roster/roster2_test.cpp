#include "roster/roster2.h"

#include <cctype>

#include "support/core_test.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace {

class CFakeBrowser : public IBrowser {
  public:
    void Navigate(const std::string& address) override { Calls += address + " "; }
    void Refresh() override {}
    void Print() override {}

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

std::shared_ptr<CGenUnit> Summary(std::shared_ptr<CGenUnit> unit, std::int16_t quantity = 1) {
    unit->SetFullInfo(false);
    unit->SetQuantity(quantity);
    return unit;
}

std::shared_ptr<CEqItem> Weapon(const std::string& name) {
    auto item = std::make_shared<CEqItem>();
    item->NewItem(CEqItem::Weapon);
    item->SetName(name);
    item->AsWeapon()->SetPenMultiplier(1);
    item->AsWeapon()->SetBaseCost(2);
    return item;
}

const std::string kHeading = "||MV|SS|FA|PF|DP|PTS|EQUIPMENT\n";

class RosterPageTest : public CoreTest {
  protected:
    /// What the page shows: a line for each row, with its cells behind bars, and "--" for a rule.
    std::string Shown() const {
        const std::string page = ReadBytes(folder_ / "tmproster.html");
        std::string shown;
        const auto cutBlanks = [&shown](const char* blanks) { shown.erase(shown.find_last_not_of(blanks) + 1); };
        for (std::size_t at = 0; at < page.size(); ++at) {
            if (page[at] == '<' && (std::isalpha(page[at + 1]) != 0 || page[at + 1] == '/')) {
                const std::string tag = MAnsiText::UpperCase(page.substr(at + 1, 2));
                if (tag == "TD") cutBlanks(" ");
                shown += tag == "BR" ? "\n" : tag == "HR" ? "--" : tag == "TD" ? "|" : "";
                at = page.find('>', at);
            } else if (page[at] != '\r') {
                shown += page[at];
            }
            if (shown == " " || shown == "\n" || shown.ends_with("\n\n")) shown.pop_back();
        }
        cutBlanks(" \n");
        return shown;
    }
    std::string Shown(const CGenUnit& unit) {
        roster_.ShowUnit(unit);
        return Shown();
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
    guard->AsUnit()->AddItem(Weapon("Knife"));
    guard->AsUnit()->AddItem(Weapon("Axe"));
    guard->SetQuantity(3);  // 3 x (5 + 5 + 2 + 2)
    roster.Add(guard);
    auto tank = Unit("Tank", CUnit::Vehicle);
    tank->AsUnit()->SetCrew(2, 2);
    tank->AsUnit()->SetSpecialProp(CUnit::Flyer, 1);  // (5 + 4 x 2 + 2) x 1.5
    roster.Add(tank);
    auto both = Squad("Both", {Unit("a"), Unit("b")});
    both->SetQuantity(2);  // 2 x (5 + 5)
    roster.Add(both);
    roster_.ShowArmyRoster(roster);
    EXPECT_EQ(Shown(), "Caf\xE9 <\"200 \x80\" & more>\n\"200 \x80\" & more\nTotal Cost: 84.5\n--\n" + kHeading +
                           "|Stra\xDF\x65 x 3 (Medic)|10|6|6|0|6|42|Knife, Axe\n--\n" + kHeading +
                           "|Tank (Flyer)|10|0|0|0|0|22.5|Vehicle, Fully exposed crew: 1, Fully enclosed crew: 2\n--\n"
                           "|Both x 2|MV|SS|FA|PF|DP|PTS (TOT: 20)\n|a|10|6|6|0|6|5|\n|b|10|6|6|0|6|5|\n--");
    EXPECT_EQ(browser_.Calls, "about:blank file:\\\\" + (folder_ / "tmproster.html "));
}

TEST_F(RosterPageTest, SummariesAreTakenFromTheList) {
    auto guard = Unit("Guard");
    guard->SetDescr("of the list");
    guard->AsUnit()->AddItem(Weapon("Pike"));
    list_.ArmyUnits().Add(guard);
    list_.ArmyUnits().Add(Squad("Inner", {Unit("guard")}));
    auto summary = Summary(Unit("GUARD"), 4);
    summary->SetDescr("of the roster");

    // Without a list it is shown as it stands.
    EXPECT_EQ(Shown(*summary), kHeading + "|GUARD x 4|10|6|6|0|6|20|\nof the roster");
    roster_.SetArmyList(&list_);
    EXPECT_EQ(Shown(*summary), kHeading + "|Guard x 4|10|6|6|0|6|7|Pike\nof the list");
    EXPECT_EQ(Shown(*Summary(Unit("Nobody"))), kHeading + "|Nobody DATA NOT FOUND|10|6|6|0|6|5|\nDATA NOT FOUND");
    EXPECT_EQ(Shown(*Squad("Outer", {Summary(Squad("INNER"), 3), Summary(Unit("gone")), Summary(Squad("Lost"), 2)})),
              "|Outer|MV|SS|FA|PF|DP|PTS (TOT: 5)\n|Inner x 3|MV|SS|FA|PF|DP|PTS (TOT: 5)\n|Guard|10|6|6|0|6|7|Pike\n"
              "|gone DATA NOT FOUND|10|6|6|0|6|5|\n|Lost DATA NOT FOUND x 2|MV|SS|FA|PF|DP|PTS (TOT: 0)");
}

TEST_F(RosterPageTest, NamesThatResolveToNothingUsefulAreErrors) {
    list_.ArmyUnits().Add(Squad("Thing"));
    list_.ArmyUnits().Add(Unit("Man"));
    roster_.SetArmyList(&list_);
    EXPECT_EQ(ErrorOf([&] { roster_.ShowUnit(*Summary(Unit("Thing"))); }), 13);
    ExpectLost("Band");  // the rows behind the failing one stay missing
    EXPECT_EQ(Shown(*Squad("Band", {Unit("man"), Unit("thing"), Unit("man")})),
              "|Band|MV|SS|FA|PF|DP|PTS (TOT: 15)\n|Man|10|6|6|0|6|5|");

    // Squads that hold themselves are reported once.
    list_.ArmyUnits().Add(Squad("A", {Squad("B")}));
    list_.ArmyUnits().Add(Squad("B", {Squad("A"), Squad("B")}));
    ExpectLost("A");
    EXPECT_EQ(Shown(list_.ArmyUnits().Item("A")), "|A|MV|SS|FA|PF|DP|PTS (TOT: 0)\n|B|MV|SS|FA|PF|DP|PTS (TOT: 0)");

    std::filesystem::remove(folder_ / "tmproster.html");
    std::filesystem::create_directory(folder_ / "tmproster.html");
    try {
        roster_.ShowArmyList(list_);
        ADD_FAILURE() << "a folder has become a page";
    } catch (const CRuntimeError& error) {
        EXPECT_EQ(error.what(), "Path/File access error\r\n" + folder_ / "tmproster.html");
    }
}

}  // namespace
