#include "makers/unit_special_props.h"

#include <QScopedValueRollback>
#include <string>
#include <vector>

#include "controls/layout.h"
#include "core/files/file_format.h"
#include "core/files/int16.h"
#include "core/files/number_text.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "shell/look/point_cost.h"

namespace {

constexpr int kHighestLevel = 4;
constexpr int kFieldWidth = 80;
constexpr int kButtonWidth = 136;
// Ferocious is for models that fight well, and that fight at all.
constexpr std::int16_t kFerociousBelow = 6;

constexpr std::array kCrewCaptions = {
    "Fully Exposed Crew:", "Partially Exposed Crew:", "Enclosed Crew:", "Enclosed and L.S. Crew:"};

}  // namespace

struct FUnitSpecialProps::SFlag {
    QXColorButton FUnitSpecialProps::*button;
    CUnit::Special property;
    const char* caption;
    const char* tip;
};

struct FUnitSpecialProps::SLevel {
    QXLabel FUnitSpecialProps::*label;
    QXTextEdit FUnitSpecialProps::*field;
    CUnit::Special property;
    const char* caption;
    const char* tip;
};

const std::array<FUnitSpecialProps::SFlag, 4> FUnitSpecialProps::Flags = {{
    {&FUnitSpecialProps::chkFlying, CUnit::Flyer, "Flyer", "Select to make the unit a flyer"},
    {&FUnitSpecialProps::chkMedic, CUnit::Medic, "Medic", "Select to make the unit a medic"},
    {&FUnitSpecialProps::chkSharpShooter, CUnit::SharpShooter, "SharpShooter",
     "Select to make the unit a sharpshooter"},
    {&FUnitSpecialProps::chkFerocious, CUnit::Ferocious, "Ferocious",
     "Model must have FA 5 or better, gains Strikeback on 1 or 2"},
}};

const std::array<FUnitSpecialProps::SLevel, 2> FUnitSpecialProps::Levels = {{
    {&FUnitSpecialProps::lblOfficerBonus, &FUnitSpecialProps::tedOfficerBonus, CUnit::Officer,
     "Officer Bonus:", "Set the officer bonus (max 4)"},
    {&FUnitSpecialProps::lblHeroicSave, &FUnitSpecialProps::tedHeroicSave, CUnit::HeroicSave,
     "Heroic Save:", "Set Heroic Save (max 4)"},
}};

FUnitSpecialProps::FUnitSpecialProps() : CForm("FUnitSpecialProps") {
    SetCaption("Special Properties");
    frmGeneral.SetCaption("General");
    frmInfantry.SetCaption("Infrantry");  // spelled so since the first release
    frmCrew.SetCaption("Crew Space");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");

    const auto setUpNumber = [](QXTextEdit& field) {
        field.SetDataType(2);
        field.SetAlignment(Qt::AlignCenter);
        field.SetAutoSelect(true);
        field.setFixedWidth(kFieldWidth);
    };
    for (const SFlag& flag : Flags) {
        (this->*flag.button).SetCaption(flag.caption);
        (this->*flag.button).OnClick([this, &flag] { FlagChanged(flag); });
    }
    for (const SLevel& level : Levels) {
        (this->*level.label).SetCaption(level.caption);
        setUpNumber(this->*level.field);
        (this->*level.field).OnChange([this, &level] { LevelChanged(level); });
    }
    for (int place = 0; place < tedCrewNumber.Size(); ++place) {
        lblCrewMembers[place].SetCaption(kCrewCaptions.at(static_cast<std::size_t>(place)));
        tedCrewNumber[place].SetLabel(lblCrewMembers[place]);
        setUpNumber(tedCrewNumber[place]);
    }
    tedCrewNumber.OnChange([this](int place) { tedCrewNumber_Change(place); });
    cmdOK.OnClick([this] { cmdOK_Click(); });
    cmdCancel.OnClick([this] { cmdCancel_Click(); });
    LayOut();
}

void FUnitSpecialProps::LayOut() {
    MLayout::Column(&frmGeneral)->addWidget(&chkFlying, 0, Qt::AlignTop);
    SetUpPointCost(frmPointCost, tedPointCost);
    frmPointCost.setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);  // as wide as the frame above
    auto* left = MLayout::Column(nullptr, MLayout::GapAboveFrame);
    left->addWidget(&frmGeneral, 1);
    left->addWidget(&frmPointCost);

    auto* infantry = MLayout::Grid(&frmInfantry);
    int row = 0;
    for (const SLevel& level : Levels) {
        infantry->addWidget(&(this->*level.label), row, 0, 1, 2);
        infantry->addWidget(&(this->*level.field), row++, 2, Qt::AlignRight);
    }
    int column = 0;
    for (QXColorButton* button : {&chkMedic, &chkSharpShooter, &chkFerocious}) {
        infantry->addWidget(button, row, column);
        infantry->setColumnStretch(column++, 1);
    }
    infantry->setRowStretch(row + 1, 1);

    auto* crew = MLayout::Grid(&frmCrew);
    for (int place = 0; place < tedCrewNumber.Size(); ++place) {
        crew->addWidget(&lblCrewMembers[place], place, 0);
        crew->addWidget(&tedCrewNumber[place], place, 1);
    }
    crew->setColumnStretch(0, 1);
    crew->setRowStretch(tedCrewNumber.Size(), 1);

    // Only one of the two frames at the right shows.
    auto* frames = MLayout::Row(nullptr, MLayout::FrameGap);
    frames->addLayout(left, 1);
    frames->addWidget(&frmInfantry, 2);
    frames->addWidget(&frmCrew, 2);

    lblTip.SetPadding(10);
    lblTip.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // no tip widens the form
    auto* buttons = MLayout::Row();
    buttons->addStretch(1);
    for (QXColorButton* button : {&cmdOK, &cmdCancel}) {
        button->setMinimumWidth(kButtonWidth);
        buttons->addWidget(button);
    }
    auto* form = MLayout::WithFormMargins(MLayout::Column(this, MLayout::FrameGap));
    form->addLayout(frames, 1);
    form->addWidget(&lblTip);
    form->addLayout(buttons);
    resize(640, 330);
}

void FUnitSpecialProps::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    std::vector<std::string_view> tips;
    for (const IControl* control : Controls())
        tips.push_back(TipOf(control));
    lblTip.SetRoomFor(tips);
}

void FUnitSpecialProps::ShowUnit(const CUnit& source) {
    ok_ = false;
    unit_ = std::make_shared<CUnit>();
    unit_->Clone(source);
    Load();
    FillControls();
    SetStates();
    ShowModal();
}

void FUnitSpecialProps::FillControls() {
    const QScopedValueRollback busy(busy_, true);
    for (int place = 0; place < tedCrewNumber.Size(); ++place)
        tedCrewNumber[place].SetText(std::to_string(unit_->Crew(place)));
    for (const SLevel& level : Levels)
        (this->*level.field).SetText(std::to_string(unit_->SpecialProp(level.property)));
    for (const SFlag& flag : Flags)
        (this->*flag.button).SetValue(unit_->SpecialProp(flag.property) != 0);
}

// Ferocious stays set where it can't be chosen any more.
void FUnitSpecialProps::SetStates() {
    const QScopedValueRollback busy(busy_, true);
    const bool infantry = unit_->UnitType() == CUnit::Infantry;
    frmInfantry.SetVisible(infantry);
    frmCrew.SetVisible(!infantry);
    if (infantry) {
        const bool secondEdition = unit_->Version() >= 2;
        chkMedic.SetEnabled(secondEdition);
        chkSharpShooter.SetEnabled(secondEdition);
        tedHeroicSave.SetEnabled(secondEdition);
        const std::int16_t skill = unit_->StatValue(CUnit::FA);
        chkFerocious.SetEnabled(secondEdition && skill >= 1 && skill < kFerociousBelow);
    }
    tedPointCost.SetText(MFileFormat::FormatRealField(unit_->EquippedPointCost()));
}

bool FUnitSpecialProps::Validate() const {
    if (unit_->UnitType() != CUnit::Vehicle) return true;
    CInt16 places = 0;
    for (int place = 0; place < CUnit::CrewPlaceCount; ++place)
        places = places + unit_->Crew(place);
    return places.Value() >= 1;
}

void FUnitSpecialProps::Edit(const std::function<void()>& change) {
    if (busy_) return;
    change();
    SetStates();
}

void FUnitSpecialProps::FlagChanged(const SFlag& flag) {
    Edit([&] { unit_->SetSpecialProp(flag.property, (this->*flag.button).Value() ? 1 : 0); });
}

void FUnitSpecialProps::LevelChanged(const SLevel& level) {
    Edit([&] {
        QXTextEdit& field = this->*level.field;
        if (MNumberText::ToReal(field.Text()) > kHighestLevel) {
            const QScopedValueRollback busy(busy_, true);
            field.SetText(std::to_string(kHighestLevel));
        }
        unit_->SetSpecialProp(level.property, MNumberText::FieldInt16(field.Text()));
    });
}

void FUnitSpecialProps::tedCrewNumber_Change(int index) {
    Edit([&] { unit_->SetCrew(index, MNumberText::FieldInt16(tedCrewNumber[index].Text())); });
}

void FUnitSpecialProps::cmdOK_Click() {
    if (!Validate()) {
        MPlatform::ShowWarning("A vehicle must have space for at least one crew member.");
        return;
    }
    unit_->CalculatePointCost();  // what can't be priced is an error here, where it can still be put right
    ok_ = true;
    Hide();
}

void FUnitSpecialProps::cmdCancel_Click() {
    ok_ = false;
    Hide();
}

std::string_view FUnitSpecialProps::TipOf(const IControl* control) const {
    for (const SFlag& flag : Flags) {
        if (control == &(this->*flag.button)) return flag.tip;
    }
    for (const SLevel& level : Levels) {
        if (control == &(this->*level.label) || control == &(this->*level.field)) return level.tip;
    }
    for (int place = 0; place < tedCrewNumber.Size(); ++place) {
        if (control == &lblCrewMembers[place] || control == &tedCrewNumber[place]) return CUnit::CrewDescription(place);
    }
    return {};
}

void FUnitSpecialProps::MouseMove(IControl* control) {
    if (control != &frmCrew) GuiHandler->FollowPointer(control);
    GuiHandler->SetTip(TipOf(control));
}
