#include "roster/roster2.h"

#include <vector>

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
    void Navigate(const std::string& address) override { Addresses.push_back(address); }
    void Refresh() override { ++Refreshes; }
    void Print() override { ++Prints; }

    std::vector<std::string> Addresses;
    int Refreshes = 0;
    int Prints = 0;
};

// The rows of a page, as browsers have to find them.

std::string Cell(int width, const std::string& text) {
    return "<td valign=\"Top\" width=\"" + std::to_string(width) + "\">" + text + "</td>";
}

std::string Row(const std::string& cells) {
    return "<table border=\"0\"><tr>" + cells + "</tr></table>\r\n";
}

std::string Page(const std::string& rows, const std::string& colours = "\"black\" text=\"#B0B0FF\"") {
    return "<HTML>\r\n<BODY BGCOLOR=" + colours + "> <FONT FACE=\"ARIAL\">\r\n\r\n" + rows +
           "</FONT></BODY>\r\n</HTML>\r\n\r\n";
}

std::string Stats(const std::string& mv, const std::string& ss, const std::string& fa, const std::string& pf,
                  const std::string& gap, const std::string& dp) {
    return Cell(25, mv) + " " + Cell(25, ss) + "  " + Cell(25, fa) + " " + Cell(25, pf) + gap + Cell(25, dp);
}

const std::string kStatNames = Stats("<b>MV</b>", "<b>SS</b>", "<b>FA</b>", "<b>PF</b>", "  ", "<b>DP</b>");
const std::string kHeading =
    Row(Cell(250, "") + " " + kStatNames + Cell(40, "<b>PTS</b>") + "<TD><B>EQUIPMENT</B></TD>");
const std::string kRule = "<HR><BR>\r\n";

std::string UnitRow(const std::string& name, const std::string& stats, const std::string& points,
                    const std::string& equipment) {
    return Row(Cell(250, "<b>" + name + "</b>") + " " + stats + Cell(40, points) + "<td>" + equipment + "</td>");
}

std::string SquadRow(const std::string& name, const std::string& points) {
    return Row(Cell(250, "<H3>" + name + "</H3>") + " " + kStatNames + Cell(150, "<b>PTS (TOT: " + points + ")</b>"));
}

std::string Section(const std::string& title) {
    return Row(Cell(250, "<FONT COLOR=\"#00FF00\"><b>" + title + "</b></FONT>") +
               " <td></td> <td></td> <td></td><td></td><td></td>") +
           kRule;
}

const std::string kInfantry = Stats("10", "6", "6", "0", "", "6");
const std::string kVehicle = Stats("10", "0", "0", "0", "", "0");
const std::string kRobot = Stats("10", "6", "0", "0", "", "1");

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

class RosterPageTest : public CoreTest {
  protected:
    std::string ShownPage() const { return ReadBytes(folder_ / "tmproster.html"); }
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
    guard->SetQuantity(3);  // 3 x (5 + 5)
    guard->AsUnit()->AddItem(Item(CEqItem::Weapon, "Knife"));
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
    const std::string rows =
        kHeading + UnitRow("Stra\xDF\x65 x 3 (Medic)", kInfantry, "30", "Knife, Rope") + kRule + kHeading +
        UnitRow("Tank (Flyer)", kVehicle, "31.5",
                "Vehicle, Fully exposed crew: 1, Fully enclosed crew: 2, Fully enclosed life supported crew: 1") +
        kRule + SquadRow("Both x 2", "20") + UnitRow("a", kInfantry, "5", "") + UnitRow("b", kInfantry, "5", "") +
        kRule;
    roster_.ShowArmyRoster(roster);
    EXPECT_EQ(ShownPage(), Page("<H1>Caf\xE9 <\"200 \x80\" & more></H1><br><H3>\"200 \x80\" & more</H3><BR><BR>"
                                "<H3>Total Cost: 81.5</H3><BR><HR><BR>\r\n" +
                                rows));
    EXPECT_EQ(browser_.Addresses,
              (std::vector<std::string>{"about:blank", "file:\\\\" + (folder_ / "tmproster.html")}));

    roster.SetName("N");
    roster.SetDescr("D");
    roster.SetPictureFile("a\\*NAME.png");
    roster_.SetSkin(2);
    roster_.ShowArmyRoster(roster);
    EXPECT_EQ(ShownPage(),
              Page("<table border=\"0\" cellspacing=3><tr><td valign=\"Top\" width=400><H1>N</H1></td>"
                   "<td valign=\"Middle\" rowspan=2><img src=\"a\\N.png\" alt=\"army logo\"></td><tr>"
                   "<td valign=\"Top\"><H3>D</H3></td></tr></table><BR><BR><H3>Total Cost: 81.5</H3><BR><HR><BR>"
                   "\r\n" +
                       rows,
                   "\"#FFFFD3\" text=\"#700000\""));
}

TEST_F(RosterPageTest, ListStandsInSections) {
    list_.SetName("L");
    roster_.ShowArmyList(list_);
    EXPECT_EQ(ShownPage(), Page("<H1>L</H1><br><H3></H3><br><HR><BR>\r\n"));

    for (const auto& unit : {Unit("slave", 2), Unit("auto", 3), Unit("car", 1), Unit("man"), Unit("Man2")})
        list_.ArmyUnits().Add(unit);
    list_.ArmyUnits().Add(Squad("squad", {Unit("man")}));
    auto odd = Unit("odd");
    odd->AsUnit()->SetUnitType(7);  // in no section
    list_.ArmyUnits().Add(odd);
    list_.SetPictureFile("p");
    roster_.ShowArmyList(list_);
    EXPECT_EQ(
        ShownPage(),
        Page(
            "<table border=\"0\" cellspacing=3><tr><td valign=\"Top\" width=400><H1>L</H1></td><td valign=\"Middle\" "
            "rowspan=2><img src=\"p\" alt=\"army logo\"></td><tr><td valign=\"Top\"><H3></H3></td></tr></table><BR><HR>"
            "<BR>\r\n" +
            Section("INFANTRY") + kHeading + UnitRow("man", kInfantry, "5", "") + UnitRow("Man2", kInfantry, "5", "") +
            kRule + Section("VEHICLES") + kHeading + UnitRow("car", kVehicle, "7", "Vehicle, Fully exposed crew: 1") +
            kRule + Section("ROBOTS - AUTONOMOUS") + kHeading + UnitRow("auto", kRobot, "15", "Autonomous Robot") +
            kRule + Section("ROBOTS - SLAVE") + kHeading +
            UnitRow("slave", Stats("10", "6", "0", "0", "", "0"), "5", "Slave Robot") + kRule + Section("SQUADS") +
            SquadRow("squad", "5") + UnitRow("man", kInfantry, "5", "") + kRule));
}

TEST_F(RosterPageTest, SummariesAreTakenFromTheList) {
    auto guard = Unit("Guard");
    guard->SetDescr("of the list");
    guard->AsUnit()->AddItem(Item(CEqItem::Weapon, "Pike"));
    list_.ArmyUnits().Add(guard);
    auto inner = Squad("Inner", {Unit("guard")});
    list_.ArmyUnits().Add(inner);
    auto summary = Summary(Unit("GUARD"));
    summary->SetQuantity(4);
    summary->SetDescr("of the roster");

    roster_.ShowUnit(*summary);  // without a list it is shown as it stands
    EXPECT_EQ(ShownPage(), Page(kHeading + UnitRow("GUARD x 4", kInfantry, "20", "") + "<p>of the roster</p>\r\n"));
    roster_.SetArmyList(&list_);
    roster_.ShowUnit(*summary);
    EXPECT_EQ(ShownPage(), Page(kHeading + UnitRow("Guard x 4", kInfantry, "5", "Pike") + "<p>of the list</p>\r\n"));
    roster_.ShowUnit(*Summary(Unit("Nobody")));
    EXPECT_EQ(ShownPage(),
              Page(kHeading + UnitRow("Nobody DATA NOT FOUND", kInfantry, "5", "") + "<p>DATA NOT FOUND</p>\r\n"));

    auto lost = Summary(Squad("Lost"));
    lost->SetQuantity(2);
    lost->SetDescr("kept");
    auto outer = Squad("Outer", {Summary(Squad("INNER")), Summary(Unit("gone")), lost});
    roster_.ShowUnit(*outer);
    EXPECT_EQ(ShownPage(),
              Page(SquadRow("Outer", "5") + SquadRow("Inner", "5") + UnitRow("Guard", kInfantry, "5", "Pike") +
                   UnitRow("gone DATA NOT FOUND", kInfantry, "5", "") + SquadRow("Lost DATA NOT FOUND x 2", "0") +
                   "<p></p>\r\n"));
    roster_.ShowUnit(*lost);
    EXPECT_EQ(ShownPage(), Page(SquadRow("Lost DATA NOT FOUND x 2", "0") + "<p>kept</p>\r\n"));
    roster_.ShowUnit(CGenUnit(), 0);
    EXPECT_EQ(browser_.Addresses.size(), 6u);  // nothing was made of the empty one
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
    EXPECT_EQ(ShownPage(), Page(Row(Cell(200, "<b>WEAPON</b>") + " " + Cell(50, "<b>PTS</b>") + " " +
                                    Cell(65, "<b>Class</b>") + " " + Cell(25, "<b>Pen</b>") +
                                    Cell(150, "<b>Properties</b>") + "<td valign=\"Top\"><b>Description</b></td>") +
                                Row(Cell(200, "Gun 7.875") + " " + Cell(50, "7.875") + " " + Cell(65, "-3") + " " +
                                    Cell(25, "-3") + Cell(150, "Flame") + "<td valign=\"Top\"><i>hot</i></td>")));
    roster_.ShowAccessoryList(items);
    EXPECT_EQ(ShownPage(),
              Page(Row(Cell(200, "<b>ACCESSORY</b>") + " " + Cell(50, "<b>PTS</b>") + " " + Cell(65, "<b>Class</b>") +
                       " " + Cell(150, "<b>Properties</b>") + "<td valign=\"Top\"><b>Description</b></td>") +
                   Row(Cell(200, "Kit") + " " + Cell(50, "2") + " " + Cell(65, "Any *PEN") + " " + Cell(150, "PF 1") +
                       "<td valign=\"Top\"></td>")));
    EXPECT_EQ(MPageTemplates::FormatText("x", 7, "p"), "<p><b><i><u>x</u></i></b></p>");
}

TEST_F(RosterPageTest, NamesThatResolveToNothingUsefulAreErrors) {
    list_.ArmyUnits().Add(Squad("Thing"));
    list_.ArmyUnits().Add(Unit("Man"));
    roster_.SetArmyList(&list_);
    EXPECT_EQ(ErrorOf([&] { roster_.ShowUnit(*Summary(Unit("Thing"))); }), 13);
    ExpectLost("Man");
    roster_.ShowUnit(*Summary(Squad("Man")));
    EXPECT_EQ(ShownPage(), Page(""));
    ExpectLost("Band");  // the rows behind the failing one stay missing
    roster_.ShowUnit(*Squad("Band", {Unit("man"), Unit("thing"), Unit("man")}));
    EXPECT_EQ(ShownPage(), Page(SquadRow("Band", "15") + UnitRow("Man", kInfantry, "5", "")));

    // Squads that hold themselves are reported once.
    list_.ArmyUnits().Add(Squad("A", {Squad("B")}));
    list_.ArmyUnits().Add(Squad("B", {Squad("A"), Squad("B")}));
    ExpectLost("A");
    roster_.ShowUnit(list_.ArmyUnits().Item("A"));
    EXPECT_EQ(ShownPage(), Page(SquadRow("A", "0") + SquadRow("B", "0")));
}

TEST_F(RosterPageTest, PagesGoWhereTheyAreToldOrFail) {
    const std::int16_t number = roster_.NewRoster(folder_ / "own.html");
    roster_.ShowSingleUnit(*Unit("a")->AsUnit(), number, false);
    roster_.CloseRoster(number);
    EXPECT_EQ(ReadBytes(folder_ / "own.html"), Page(UnitRow("a", kInfantry, "5", "")));
    roster_.ShowRosterFile("/x/y.html");
    EXPECT_EQ(browser_.Addresses.back(), "file:\\\\/x/y.html");
    std::filesystem::create_directory(folder_ / "tmproster.html");
    EXPECT_EQ(ErrorOf([&] { roster_.ShowArmyList(list_); }), 75);
    roster_.PrintRoster();
    roster_.Refresh();
    EXPECT_EQ(browser_.Prints + browser_.Refreshes, 2);
}

}  // namespace
