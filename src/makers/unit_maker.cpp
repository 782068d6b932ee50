#include "makers/unit_maker.h"

#include <QScopedValueRollback>
#include <array>
#include <utility>

#include "controls/control_utils.h"
#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/file_format.h"
#include "core/files/number_text.h"
#include "core/files/platform.h"
#include "core/state/supp_tables.h"
#include "equipment/army_tables.h"
#include "makers/unit_special_props.h"

using MFileFormat::FormatRealField;
using MQXBaseGUIControlsUtils::ClearControlGroup;

namespace {

constexpr std::array kTypeCaptions = {"Infantry", "Vehicle", "Slave Robot", "Autonomous Robot"};
constexpr int kFirstUnitPicture = 5;

struct SStatNames {
    const char* caption;
    const char* toolTip;
};
constexpr std::array<SStatNames, CUnit::StatCount> kStats = {{{"MV", "Movement"},
                                                              {"SS", "Shooting Skill"},
                                                              {"FA", "Fighting Skill"},
                                                              {"PF", "Protection Factor"},
                                                              {"DP", "Discipline"}}};

// For the skills a low number is a good one: below this they outclass everything else on the table.
constexpr std::int16_t kLowestBalanced = 4;
constexpr Colour kWarningColour = 0x0000FF;

constexpr std::string_view kLineEnd = "\r\n";

const CEqList& StoredWeapons() {
    return MGlobal::ArmyTables().ArmyWeapons();
}

const CEqList& StoredAccessories() {
    return MGlobal::ArmyTables().ArmyAccessories();
}

template <class TItem>
const TItem& Record(const CEqList& list, const std::string& name) {
    return SStored<TItem>::Content(*list.Share(name));
}

std::string Facts(std::string heading, const CEquipment& item, const std::string& morePoints = {}) {
    return heading.append(":")
        .append(kLineEnd)
        .append("Point Cost: ")
        .append(FormatRealField(item.PointCost()))
        .append(morePoints)
        .append(kLineEnd)
        .append(item.SpecialPropertiesStr());
}

std::string WeaponFacts(std::string heading, const CWeapon& weapon) {
    return Facts(std::move(heading), weapon, ", Pen: " + FormatRealField(weapon.Pen()));
}

}  // namespace

FUnitMaker::FUnitMaker() : FMakerOf(UnitTerms("FUnitMaker", "Unit Maker"), CGenUnit::Single) {
    for (int type = 0; type < optUnit.Size(); ++type) {
        optUnit[type].SetCaption(kTypeCaptions.at(static_cast<std::size_t>(type)));
        optUnit[type].SetControlGroup("optUnit");
    }
    for (int stat = 0; stat < tedStat.Size(); ++stat) {
        const SStatNames& names = kStats.at(static_cast<std::size_t>(stat));
        lblStat[stat].SetCaption(names.caption);
        lblStat[stat].SetToolTipText(names.toolTip);
        QXTextEdit& field = tedStat[stat];
        field.SetAlignment(Qt::AlignCenter);
        field.SetAllowedKeys("0123456789.");
        field.SetMaxLength(3);
        field.SetAutoSelect(true);
        field.OnLeave([this, stat] { tedStat_LostFocus(stat); });
    }
    frmSource.SetCaption("Equipment List");
    optFilter[Weapons].SetCaption("Weapons");
    optFilter[Accessories].SetCaption("Accessories");
    for (int filter = 0; filter < FilterCount; ++filter)
        optFilter[filter].SetControlGroup("optFilter");
    lstEquipment.SetSorted(true);
    cmdAddItem.SetCaption("Equip Item");
    frmTarget.SetCaption("Unit's Equipment");
    cmdRemoveItem.SetCaption("Remove Item");
    frmDescr[Specials].SetCaption("Special Properties");
    cmdSpecialProps.SetCaption("Modify");

    optUnit.OnClick([this](int type) { optUnit_Click(type); });
    optFilter.OnClick([this](int filter) { optFilter_Click(filter); });
    tedStat.OnChange([this](int stat) { tedStat_Change(stat); });
    lstEquipment.OnClick([this] { lstEquipment_Click(); });
    lstEquipment.OnDblClick([this] { cmdAddItem_Click(); });
    lstEquipment.OnEnter([this] { cmdAddItem_Click(); });
    cmdAddItem.OnClick([this] { cmdAddItem_Click(); });
    lstUnitEquipment.OnClick([this] { lstUnitEquipment_Click(); });
    lstUnitEquipment.OnDblClick([this] { cmdRemoveItem_Click(); });
    lstUnitEquipment.OnEnter([this] { cmdRemoveItem_Click(); });
    cmdRemoveItem.OnClick([this] { cmdRemoveItem_Click(); });
    cmdItemMoveUp.OnClick([this] { cmdItemMoveUp_Click(); });
    cmdItemMoveDown.OnClick([this] { cmdItemMoveDown_Click(); });
    cmdSpecialProps.OnClick([this] { cmdSpecialProps_Click(); });
    LayOut();
}

void FUnitMaker::LayOut() {
    // Without its picture the row of types and the row of stats take the whole width.
    auto* types = MLayout::Row();
    for (int type = 0; type < optUnit.Size(); ++type)
        types->addWidget(&optUnit[type], 1);
    auto* stats = MLayout::Row(nullptr, 2 * MLayout::FrameGap);
    for (int stat = 0; stat < tedStat.Size(); ++stat) {
        auto* pair = MLayout::Row();
        lblStat[stat].setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        pair->addWidget(&lblStat[stat]);
        pair->addWidget(&tedStat[stat], 1);
        stats->addLayout(pair, 1);
    }
    auto* rows = MLayout::Column();
    rows->addLayout(types);
    rows->addLayout(stats);
    auto* unit = MLayout::Row(nullptr, MLayout::FrameGap);
    imgUnit.setFixedSize(84, 84);
    unit->addWidget(&imgUnit);
    unit->addLayout(rows, 1);

    auto* filters = MLayout::Row();
    for (int filter = 0; filter < FilterCount; ++filter)
        filters->addWidget(&optFilter[filter], 1);
    auto* source = MLayout::Column(&frmSource);
    source->addLayout(filters);
    source->addWidget(&lstEquipment, 1);
    source->addWidget(&cmdAddItem);

    auto* target = MLayout::Column(&frmTarget);
    target->addWidget(&lstUnitEquipment, 1);
    target->addLayout(MLayout::ButtonWithArrows(cmdRemoveItem, cmdItemMoveUp, cmdItemMoveDown));

    constexpr int kRoom = 74;  // for most texts, so that the lists above seldom move
    for (const Descriptions place : {Source, Target})
        MLayout::TextInFrame(frmDescr[place], lblSpecialDescr[place], kRoom);
    MLayout::TextInFrame(frmDescr[Specials], lblSpecialDescr[Specials]);
    lblSpecialDescr[Specials].SetAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    cmdSpecialProps.setMinimumWidth(120);
    frmDescr[Specials].layout()->addWidget(&cmdSpecialProps);

    auto* work = MLayout::Grid(nullptr, MLayout::FrameGap);
    work->setVerticalSpacing(MLayout::GapAboveFrame);
    work->addLayout(unit, 0, 0, 1, 2);
    work->addWidget(&frmSource, 1, 0);
    work->addWidget(&frmTarget, 1, 1);
    work->addWidget(&frmDescr[Source], 2, 0);
    work->addWidget(&frmDescr[Target], 2, 1);
    work->addWidget(&frmDescr[Specials], 3, 0, 1, 2);
    work->setColumnStretch(0, 1);
    work->setColumnStretch(1, 1);
    work->setRowStretch(1, 1);
    Work().addLayout(work, 1);
    resize(1060, 740);
}

void FUnitMaker::LoadItem() {
    for (const Descriptions place : {Source, Target})
        lblSpecialDescr[place].SetFontSize(10);
    cmdItemMoveUp.SetArrow("\xE9");
    cmdItemMoveDown.SetArrow("\xEA");
    StatForeColor = tedStat[0].ForeColor();
    optFilter[Weapons].SetValue(true);
    ResetWorkUnit();
    ShowWithSource();
}

void FUnitMaker::ResetWorkUnit() {
    NewWorkItem();
    SourceName.clear();
}

bool FUnitMaker::ValidateItem(bool messages) {
    CValidation check(messages);
    check.Require(!WorkItem->Name().empty(), kNoUnitName);
    check.Require(!WorkItem->UnitClass().empty(),
                  "No unit type specified. Specify a type for the unit before adding it to the database.");
    bool manned = MAnsiText::UpperCase(WorkItem->UnitClass()) != "VEHICLE";
    for (int place = 0; place < CUnit::CrewPlaceCount; ++place)
        manned = manned || WorkItem->Crew(place) != 0;
    check.Require(manned, "Vehicles must have space for at least one crew member.");
    return check.Valid();
}

void FUnitMaker::ShowItem() {
    const QScopedValueRollback loading(Loading, true);
    tedName.SetText(WorkItem->Name());
    tedDescr.SetText(WorkItem->Descr());
    const std::int32_t type = WorkItem->UnitType();
    const bool known = type >= 0 && type < optUnit.Size();  // a file may hold any other
    if (known) optUnit[type].SetValue(true);
    ClearControlGroup(*this, "optUnit", "optUnit", type);
    imgUnit.SetPicture(known ? GuiHandler->GUIImg(type + kFirstUnitPicture) : nullptr);
    imgUnit.SetVisible(imgUnit.Picture() != nullptr);
    ShowStats();
    lstUnitEquipment.Clear();
    for (const CEqItem& item : std::as_const(*WorkItem).EqList())
        lstUnitEquipment.AddItem(item.Name());
    lblSpecialDescr[Target].SetCaption("");
    lblSpecialDescr[Specials].SetCaption(WorkItem->SpecialPropertiesStr());
    UpdateItemButtons();
}

void FUnitMaker::ShowStats() {
    for (int stat = 0; stat < tedStat.Size(); ++stat)
        tedStat[stat].SetText(std::to_string(WorkItem->StatValue(stat)));
    for (const CUnit::Stat stat : {CUnit::SS, CUnit::FA}) {
        const std::int16_t value = WorkItem->StatValue(stat);
        const bool warns = value >= 1 && value < kLowestBalanced;
        tedStat[stat].SetForeColor(warns ? kWarningColour : StatForeColor);
        tedStat[stat].SetToolTipText(warns ? "Values below 4 for this stat are potentially unbalancing" : "");
    }
    tedPointCost.SetText(FormatRealField(WorkItem->EquippedPointCost()));
    tedStat[CUnit::DP].SetEnabled(optUnit[CUnit::Infantry].Value());
    tedStat[CUnit::SS].SetEnabled(!optUnit[CUnit::Vehicle].Value());
}

void FUnitMaker::ShowWithSource() {
    ShowItem();
    lstUnitEquipment.scrollToTop();
    RefreshSourceList();
}

void FUnitMaker::UpdateItemButtons() {
    cmdRemoveItem.SetEnabled(lstUnitEquipment.ListIndex() >= 0);
    cmdItemMoveDown.SetEnabled(lstUnitEquipment.CanMoveDown());
    cmdItemMoveUp.SetEnabled(lstUnitEquipment.CanMoveUp());
    cmdAddItem.SetEnabled(lstEquipment.ListIndex() >= 0);
}

void FUnitMaker::RefreshSourceList() {
    if (optFilter[Weapons].Value()) {
        FillAllowedWeapons();
    } else if (optFilter[Accessories].Value()) {
        FillAllowedAccessories();
    }
    UpdateItemButtons();
}

void FUnitMaker::FillAllowedWeapons() {
    FillAllowed(StoredWeapons());
}

void FUnitMaker::FillAllowedAccessories() {
    FillAllowed(StoredAccessories());
}

void FUnitMaker::FillAllowed(const CEqList& list) {
    lstEquipment.Clear();
    lblSpecialDescr[Source].SetCaption("");
    for (const CEqItem& item : list) {
        if (MGlobal::SuppTables().IsEqAllowed(item, WorkItem->UnitClass())) lstEquipment.AddItem(item.Name());
    }
    lstEquipment.scrollToTop();
}

std::string FUnitMaker::SourceFacts() const {
    const std::string name = lstEquipment.Text();
    if (optFilter[Accessories].Value()) return Facts(name, Record<CAccessory>(StoredAccessories(), name));
    const auto& weapon = Record<CWeapon>(StoredWeapons(), name);
    return WeaponFacts(name + " (" + weapon.WeaponClass() + ")", weapon);
}

// What a unit carries is a summary, so the facts are those of the record that it was taken from, as long as there is
// one.
std::string FUnitMaker::TargetFacts() const {
    const std::string name = lstUnitEquipment.Text();
    const std::int32_t position = lstUnitEquipment.ListIndex() + 1;
    const CEqList& carried = WorkItem->EqList();
    if (carried.Exists(position)) {
        const CEqItem& item = carried.Item(position);
        if (item.AsWeapon() != nullptr && StoredWeapons().Exists(name)) {
            return WeaponFacts(name, Record<CWeapon>(StoredWeapons(), name));
        }
        if (item.AsAccessory() != nullptr && StoredAccessories().Exists(name)) {
            return Facts(name, Record<CAccessory>(StoredAccessories(), name));
        }
    }
    return name + ":" + std::string(kLineEnd) + "UNABLE TO RETRIEVE INFORMATION";
}

void FUnitMaker::cmdNew_Click() {
    StoreIfEdited();
    ResetWorkUnit();
    ShowWithSource();
}

// Takes the entered unit away without a question, and is no edit by itself.
void FUnitMaker::optUnit_Click(int index) {
    if (Loading) return;
    ClearControlGroup(*this, "optUnit", "optUnit", index);
    WorkItem->SetUnitType(index);
    WorkItem->InitUnit();
    ShowWithSource();
}

void FUnitMaker::optFilter_Click(int index) {
    ClearControlGroup(*this, "optFilter", "optFilter", index);
    RefreshSourceList();
}

// The field shows at once what the limits of the stat have made of its number.
void FUnitMaker::tedStat_Change(int index) {
    if (Loading || tedStat[index].Text().empty()) return;
    WorkItem->SetStatValue(index, MNumberText::FieldInt16(tedStat[index].Text()));
    EditState = Edited;
    ShowItem();
}

void FUnitMaker::tedStat_LostFocus(int index) {
    const QScopedValueRollback loading(Loading, true);
    if (tedStat[index].Text().empty()) tedStat[index].SetText(FormatRealField(WorkItem->StatValue(index)));
}

void FUnitMaker::lstEquipment_Click() {
    if (lstEquipment.ListIndex() >= 0) lblSpecialDescr[Source].SetCaption(SourceFacts());
    UpdateItemButtons();
}

void FUnitMaker::lstUnitEquipment_Click() {
    if (lstUnitEquipment.ListIndex() >= 0) lblSpecialDescr[Target].SetCaption(TargetFacts());
    UpdateItemButtons();
}

// The list offers only what the class of the unit may carry; nothing else checks it.
void FUnitMaker::cmdAddItem_Click() {
    const int shown = lstUnitEquipment.ListCount();
    if (lstEquipment.ListIndex() >= 0) {
        const bool accessory = optFilter[Accessories].Value();
        const auto item = std::make_shared<CEqItem>();
        item->NewItem(accessory ? CEqItem::Accessory : CEqItem::Weapon);
        if (item->EqType() == CEqItem::Empty) {
            MPlatform::ShowPlain((accessory ? "Cannot add accessory (" : "Cannot add weapon (") +
                                 MAnsiText::ToUtf8(MGlobal::LastErrorText()) + ").");
        }
        item->Clone(*(accessory ? StoredAccessories() : StoredWeapons()).Share(lstEquipment.Text()));
        WorkItem->AddItem(item);
        MarkEdited();
    }
    ShowItem();
    if (lstUnitEquipment.ListCount() > shown) lstUnitEquipment.scrollToBottom();
}

void FUnitMaker::cmdRemoveItem_Click() {
    if (lstUnitEquipment.ListIndex() >= 0) {
        WorkItem->RemoveItem(lstUnitEquipment.ListIndex() + 1);
        MarkEdited();
    }
    ShowItem();
}

void FUnitMaker::cmdItemMoveUp_Click() {
    if (lstUnitEquipment.CanMoveUp()) MoveRow(WorkItem->EqList().MoveUp(lstUnitEquipment.ListIndex() + 1));
    UpdateItemButtons();
}

void FUnitMaker::cmdItemMoveDown_Click() {
    if (lstUnitEquipment.CanMoveDown()) MoveRow(WorkItem->EqList().MoveDown(lstUnitEquipment.ListIndex() + 1));
    UpdateItemButtons();
}

// The list follows a shift that has put the selected entry at `position`; 0 is a shift that moved nothing.
void FUnitMaker::MoveRow(std::int32_t position) {
    if (position <= 0) return;
    lstUnitEquipment.MoveItem(lstUnitEquipment.ListIndex(), position - 1);
    EditState = Edited;
}

void FUnitMaker::cmdSpecialProps_Click() {
    FUnitSpecialProps dialog;
    dialog.ShowUnit(*WorkItem);
    if (dialog.OK()) {
        WorkItem->Clone(*dialog.Unit());
        EditState = Edited;
    }
    dialog.Unload();
    ShowItem();
}
