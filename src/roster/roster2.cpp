#include "roster/roster2.h"

#include <algorithm>
#include <array>
#include <memory>

#include "core/files/ansi_text.h"
#include "core/files/file_access.h"
#include "core/files/file_format.h"
#include "core/files/platform.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"
#include "roster/page_templates.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"
#include "units/unit.h"

using MFileFormat::FormatRealField;
using namespace MPageTemplates;

namespace {

constexpr std::string_view kNotFound = "DATA NOT FOUND";
constexpr std::int32_t kParchmentSkin = 2;

struct SPalette {
    std::string_view background;
    std::string_view text;
};

constexpr SPalette kParchment = {"#FFFFD3", "#700000"};
constexpr SPalette kDark = {"black", "#B0B0FF"};

struct SListSection {
    std::int32_t unitType;
    const std::string_view& title;
};

// Autonomous robots come before slave robots.
constexpr std::array<SListSection, 4> kUnitSections = {{
    {CUnit::Infantry, kSectionInfantry},
    {CUnit::Vehicle, kSectionVehicles},
    {CUnit::AutonomousRobot, kSectionAutonomousRobots},
    {CUnit::SlaveRobot, kSectionSlaveRobots},
}};

constexpr std::array<std::string_view, CUnit::CrewPlaceCount> kCrewLabels = {
    "Fully exposed crew: ", "Partially exposed crew: ", "Fully enclosed crew: ",
    "Fully enclosed life supported crew: "};

CFilledTemplate Title(const CArmyDocument& document, std::string_view plain, std::string_view withPicture) {
    const std::string& picture = document.PictureFile();
    CFilledTemplate title(picture.empty() ? plain : withPicture);
    if (!picture.empty()) title.Replace("*PICTURE", picture);
    title.Replace("*NAME", document.Name()).Replace("*DESCR", document.Descr());
    return title;
}

std::string NameWithQuantity(const std::string& name, std::int16_t quantity) {
    return quantity > 1 ? name + " x " + std::to_string(quantity) : name;
}

std::string EquipmentColumn(const CUnit& unit) {
    std::string column;
    const auto append = [&column](std::string_view piece) { column.append(piece).append(", "); };
    if (unit.UnitType() != CUnit::Infantry && unit.UnitType() != CBaseUnit::kSquadType) {
        append(unit.UnitSubclass().empty() ? unit.UnitClass() : unit.UnitSubclass() + " " + unit.UnitClass());
    }
    for (std::int32_t place = 0; place < CUnit::CrewPlaceCount; ++place) {
        const std::int16_t count = unit.Crew(place);
        if (count > 0) append(std::string(kCrewLabels[static_cast<std::size_t>(place)]) + std::to_string(count));
    }
    for (const CEqItem& item : unit.EqList())
        append(item.Name());
    if (!column.empty()) column.resize(column.size() - 2);
    return column;
}

const CUnit& ContentOf(const CGenUnit& entry, const CUnit*) {
    return entry.SingleUnit();
}

const CMultUnit& ContentOf(const CGenUnit& entry, const CMultUnit*) {
    return entry.SquadUnit();
}

// The object to display for one that may be a summary: itself, the army list's entry of its name, or `lost`, a copy
// with a mark.
template <class TUnit>
const TUnit& Resolve(const CArmyList* list, const TUnit& unit, std::unique_ptr<TUnit>& lost) {
    if (list == nullptr || unit.FullInfo()) return unit;
    const CUnitList& entries = list->ArmyUnits();
    if (entries.Exists(unit.Name())) return ContentOf(entries.Item(unit.Name()), &unit);
    lost = std::make_unique<TUnit>();
    lost->Clone(unit);
    lost->SetDescr(std::string(kNotFound));
    lost->SetName(lost->Name() + " " + std::string(kNotFound));
    return *lost;
}

}  // namespace

// A page that is written by one operation: opened and finished by the outermost one only, and closed on failure too.
class URoster2::CPage {
  public:
    CPage(URoster2& owner, std::int16_t fileNumber) : owner_(owner), opened_(fileNumber < 1), number_(fileNumber) {
        if (opened_) number_ = owner_.NewRoster();
    }
    CPage(const CPage&) = delete;
    CPage& operator=(const CPage&) = delete;
    ~CPage() {
        if (opened_) MTextOutput::Abandon(number_);
    }

    bool IsOpenedHere() const { return opened_; }
    std::int16_t Number() const { return number_; }
    void Write(std::string_view text) { owner_.Write(number_, text); }
    void Finish() {
        if (!opened_) return;
        owner_.CloseRoster(number_);
        opened_ = false;
        owner_.ShowRosterFile();
    }

  private:
    URoster2& owner_;
    bool opened_;
    std::int16_t number_;
};

URoster2::URoster2(IBrowser& browser)
    : browser_(browser), defaultPage_(MPlatform::InApplicationFolder("tmproster.html")) {
    browser_.Navigate("about:blank");
}

std::string URoster2::HtmlHead() const {
    const SPalette& palette = skin_ == kParchmentSkin ? kParchment : kDark;
    return CFilledTemplate(kHead).Replace("*BGCOLOR", palette.background).Replace("*TXTCOLOR", palette.text).Text();
}

// The player never chose this file: an error has to say which one it is about.
template <class TOperation>
void URoster2::WritePage(TOperation&& operation) {
    try {
        operation();
    } catch (const CRuntimeError& error) {
        throw error.About(openPage_);
    }
}

std::int16_t URoster2::NewRoster(const std::string& path) {
    openPage_ = path.empty() ? defaultPage_ : path;
    std::int16_t fileNumber = 0;
    WritePage([&] { fileNumber = MTextOutput::Open(openPage_); });
    pageSize_ = 0;
    Write(fileNumber, HtmlHead());
    return fileNumber;
}

void URoster2::CloseRoster(std::int16_t fileNumber) {
    WritePage([&] {
        try {
            MTextOutput::Print(fileNumber, kTail);
        } catch (const CRuntimeError&) {
            MTextOutput::Abandon(fileNumber);
            throw;
        }
        MTextOutput::Close(fileNumber);
    });
}

void URoster2::ShowRosterFile(const std::string& path) {
    browser_.Navigate("file:\\\\" + (path.empty() ? defaultPage_ : path));
}

bool URoster2::IsPageFull() const {
    return pageSize_ > MFileAccess::kMaxFileSize;
}

void URoster2::Write(std::int16_t fileNumber, std::string_view text) {
    // Squads that refer to each other by name can unfold into more rows than any disk holds.
    pageSize_ += text.size();
    WritePage([&] {
        if (IsPageFull()) throw CRuntimeError(ErrorNumber::DiskFull);
        MTextOutput::Print(fileNumber, text);
    });
}

void URoster2::ShowArmyRoster(const CArmyRoster& roster) {
    CPage page(*this, 0);
    page.Write(Title(roster, kRosterTitle, kRosterTitleWithPicture)
                   .Replace("*PTS", FormatRealField(roster.PointCost()))
                   .Text());
    for (const CGenUnit& unit : roster.ArmyUnits()) {
        if (unit.GenUnitClass() == CGenUnit::Single) page.Write(kUnitHeading);
        ShowUnit(unit, page.Number(), false);
        page.Write(kSeparator);
    }
    page.Finish();
}

void URoster2::ShowArmyList(const CArmyList& list) {
    CPage page(*this, 0);
    page.Write(Title(list, kListTitle, kListTitleWithPicture).Text());
    std::array<std::vector<const CUnit*>, kUnitSections.size()> unitsOf;
    for (const CGenUnit& entry : list.ArmyUnits()) {
        const std::int32_t type = entry.UnitType();
        for (std::size_t i = 0; i < kUnitSections.size(); ++i) {
            if (type == kUnitSections[i].unitType) unitsOf[i].push_back(&entry.SingleUnit());
        }
    }
    for (std::size_t i = 0; i < kUnitSections.size(); ++i) {
        if (unitsOf[i].empty()) continue;
        page.Write(kUnitSections[i].title);
        page.Write(kSeparator);
        page.Write(kUnitHeading);
        for (const CUnit* unit : unitsOf[i])
            ShowSingleUnit(*unit, page.Number(), false);
        page.Write(kSeparator);
    }
    bool anySquad = false;
    for (const CGenUnit& entry : list.ArmyUnits()) {
        if (entry.GenUnitClass() != CGenUnit::Squad) continue;
        if (!anySquad) {
            page.Write(kSectionSquads);
            page.Write(kSeparator);
        }
        anySquad = true;
        ShowMultiUnit(entry.SquadUnit(), page.Number(), false);
        page.Write(kSeparator);
    }
    page.Finish();
}

void URoster2::ShowUnit(const CGenUnit& unit, std::int16_t fileNumber, bool showDescription) {
    if (unit.GenUnitClass() == CGenUnit::Single) {
        ShowSingleUnit(unit.SingleUnit(), fileNumber, showDescription);
    } else if (unit.GenUnitClass() == CGenUnit::Squad) {
        ShowMultiUnit(unit.SquadUnit(), fileNumber, showDescription);
    }
}

void URoster2::ShowSingleUnit(const CUnit& unit, std::int16_t fileNumber, bool showDescription) {
    std::unique_ptr<CUnit> lost;
    const CUnit& shown = Resolve(armyList_, unit, lost);
    CPage page(*this, fileNumber);
    if (page.IsOpenedHere()) page.Write(kUnitHeading);

    // The quantity is that of the entry, everything else that of what is displayed.
    std::string name = NameWithQuantity(shown.Name(), unit.Quantity());
    if (const std::string specials = shown.SpecialPropertiesStr(); !specials.empty()) name += " (" + specials + ")";
    CFilledTemplate row(kUnitRow);
    row.ReplaceFormatted("*NAME", name, Bold, "");
    constexpr std::array<std::string_view, CUnit::StatCount> kStats = {"*MV", "*SS", "*FA", "*PF", "*DP"};
    for (std::int32_t stat = 0; stat < CUnit::StatCount; ++stat) {
        row.Replace(kStats[static_cast<std::size_t>(stat)], std::to_string(shown.StatValue(stat)));
    }
    row.Replace("*PTS", FormatRealField(shown.EquippedPointCost())).Replace("*EQ", EquipmentColumn(shown));
    page.Write(row.Text());
    if (showDescription) page.Write(FormatText(shown.Descr(), Plain, "p"));
    page.Finish();
}

void URoster2::ShowMultiUnit(const CMultUnit& squad, std::int16_t fileNumber, bool showDescription) {
    const std::size_t depth = squadsInProgress_.size();
    std::int16_t number = fileNumber;
    try {
        if (fileNumber < 1) number = NewRoster();
        WriteSquad(squad, number, showDescription);
    } catch (const std::exception&) {
        const CRuntimeError error = CurrentRuntimeError();
        squadsInProgress_.resize(depth);
        // Squads that unfold without end are reported once, for the outermost, and not for each of their rows.
        const bool endless = error.Number() == static_cast<int>(ErrorNumber::OutOfStackSpace) || IsPageFull();
        if (endless && depth > 0) throw;
        MLastError::Remember(error);
        MPlatform::ShowCritical("Error while retrieving information for unit: " + MAnsiText::ToUtf8(squad.Name()));
    }
    if (fileNumber < 1) {
        CloseRoster(number);
        ShowRosterFile();
    }
}

void URoster2::WriteSquad(const CMultUnit& squad, std::int16_t fileNumber, bool showDescription) {
    std::unique_ptr<CMultUnit> lost;
    const CMultUnit& shown = Resolve(armyList_, squad, lost);
    const bool holdsItself =
        std::find(squadsInProgress_.begin(), squadsInProgress_.end(), &shown) != squadsInProgress_.end();
    if (holdsItself || squadsInProgress_.size() >= CMultUnit::kDeepestNesting) {
        throw CRuntimeError(ErrorNumber::OutOfStackSpace);
    }
    squadsInProgress_.push_back(&shown);
    Write(fileNumber, CFilledTemplate(kSquadHeading)
                          .ReplaceFormatted("*NAME", NameWithQuantity(shown.Name(), squad.Quantity()), Plain, "H3")
                          .Replace("*PTS", FormatRealField(shown.EquippedPointCost()))
                          .Text());
    for (const CGenUnit& member : shown.Units())
        ShowUnit(member, fileNumber, false);
    if (showDescription) Write(fileNumber, FormatText(squad.Descr(), Plain, "p"));
    squadsInProgress_.pop_back();
}

void URoster2::ShowWeaponList(const CEqList& list, std::int16_t fileNumber, bool) {
    CPage page(*this, fileNumber);
    page.Write(kWeaponHeading);
    for (const CEqItem& item : list) {
        if (const CWeapon* weapon = item.AsWeapon()) ShowSingleWeapon(*weapon, page.Number());
    }
    page.Finish();
}

void URoster2::ShowSingleWeapon(const CWeapon& weapon, std::int16_t fileNumber, bool) {
    Write(fileNumber, CFilledTemplate(kWeaponRow)
                          .Replace("*NAME", weapon.Name())
                          .Replace("*PTS", FormatRealField(weapon.PointCost()))
                          .Replace("*CLASS", weapon.WeaponClass())
                          .Replace("*PEN", std::to_string(weapon.Pen()))
                          .Replace("*PROPS", weapon.SpecialPropertiesStr())
                          .Replace("*DESCR", weapon.Descr())
                          .Text());
}

void URoster2::ShowAccessoryList(const CEqList& list, std::int16_t fileNumber, bool) {
    CPage page(*this, fileNumber);
    page.Write(kAccessoryHeading);
    for (const CEqItem& item : list) {
        if (const CAccessory* accessory = item.AsAccessory()) ShowSingleAccessory(*accessory, page.Number());
    }
    page.Finish();
}

void URoster2::ShowSingleAccessory(const CAccessory& accessory, std::int16_t fileNumber, bool) {
    Write(fileNumber, CFilledTemplate(kAccessoryRow)
                          .Replace("*NAME", accessory.Name())
                          .Replace("*PTS", FormatRealField(accessory.PointCost()))
                          .Replace("*CLASS", accessory.AccClass())
                          .Replace("*PROPS", accessory.SpecialPropertiesStr())
                          .Replace("*DESCR", accessory.Descr())
                          .Text());
}
