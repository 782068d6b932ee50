#include "equipment/weapon.h"

#include "core/files/file_format.h"
#include "core/files/int16.h"
#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/sequential.h"

using MEquipmentRules::Power;

namespace {

// Order of the words in files: Needs Reloading joined the properties later than its place here tells.
constexpr std::array<std::int32_t, CWeapon::PropertyCount> kFileOrder = {0, 1, 2, 3, 4, 5, 6, 7, 11, 8, 9, 10};

struct SPropertyText {
    CWeapon::Property property;
    const char* text;
};

// In the order in which a description lists them.
constexpr std::array<SPropertyText, CWeapon::PropertyCount> kPropertyTexts = {{
    {CWeapon::Flame, "Flame, "},
    {CWeapon::Acid, "Acid, "},
    {CWeapon::InhaledGas, "Inhaled Gas, "},
    {CWeapon::AbsorbedGas, "Absorbed Gas, "},
    {CWeapon::Recharge, "Recharge 1 Turn, "},
    {CWeapon::NeedsReloading, "Needs Reloading, "},
    {CWeapon::OneUse, "One Use, "},
    {CWeapon::ParabolicTrajectory, "Parabolic Trajectory, "},
    {CWeapon::OffTableSupport, "Off Table Support, "},
    {CWeapon::ReducedRange, "Reduced Range, "},
    {CWeapon::AutomaticFire, "Automatic Fire, "},
    {CWeapon::Sticky, "Sticky, "},
}};

std::size_t Checked(std::int32_t index) {
    if (index < 0 || index >= CWeapon::PropertyCount) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
}

}  // namespace

bool CWeapon::WeaponProperty(std::int32_t index) const {
    return words_[Checked(index)] != 0;
}

void CWeapon::SetWeaponProperty(std::int32_t index, bool value) {
    words_[Checked(index)] = MFileFormat::FlagWord(value);
    CalculatePointCost();
}

void CWeapon::SetBaseCost(double cost) {
    baseCost_ = cost;
    CalculatePointCost();
}

void CWeapon::SetPen(std::int16_t pen) {
    pen_ = pen;
    CalculatePointCost();
}

void CWeapon::SetPenMultiplier(float multiplier) {
    penMultiplier_ = multiplier;
    CalculatePointCost();
}

void CWeapon::CalculatePointCost() {
    double cost = double{CInt16(words_[Flame]) * 5} + baseCost_;
    cost += CInt16(words_[Acid]) * 5;
    cost += CInt16(words_[InhaledGas]) * 2;
    cost += CInt16(words_[AbsorbedGas]) * 4;
    cost += CInt16(targetingBonus_) * 5;
    pointCost_ = MNumberText::Finite(cost);

    const double area = AreaFactor();
    pointCost_ = MNumberText::Finite(penMultiplier_ * cost * area);
    cost = pointCost_;
    cost *= Power(2.0, words_[AutomaticFire]);
    cost *= Power(1.5, words_[ParabolicTrajectory]);
    cost *= Power(2.0, words_[Sticky]);
    cost *= Power(2.0, words_[OffTableSupport]);
    cost *= Power(0.5, words_[OneUse]);
    cost *= Power(0.75, words_[Recharge]);
    cost *= Power(0.75, words_[NeedsReloading]);
    cost *= Power(0.75, words_[ReducedRange]);
    pointCost_ = MNumberText::Finite(cost);
}

std::string CWeapon::SpecialPropertiesStr() const {
    std::string text;
    for (const SPropertyText& row : kPropertyTexts) {
        if (words_[row.property] != 0) text += row.text;
    }
    return MEquipmentRules::WithoutLastSeparator(text + AreaAndTargetingStr());
}

void CWeapon::Clone(const CWeapon& source) {
    SetName(source.Name());
    descr_ = source.descr_;
    class_ = source.class_;
    key_ = source.key_;
    SetFullInfo(source.FullInfo());
    pen_ = source.pen_;
    penMultiplier_ = source.penMultiplier_;
    for (const std::int32_t index : kFileOrder)
        SetWeaponProperty(index, source.WeaponProperty(index));
    areaOfEffect_ = source.areaOfEffect_;
    targetingBonus_ = source.targetingBonus_;
    baseCost_ = source.baseCost_;
    pointCost_ = source.pointCost_;
    if (FullInfo()) CalculatePointCost();
}

bool CWeapon::WriteProperties(CProfile& profile, const std::string& section) const {
    if (!FullInfo()) return true;
    std::string words;
    for (const std::int32_t index : kFileOrder) {
        MFileFormat::AppendItem(words, std::to_string(words_[static_cast<std::size_t>(index)]));
    }
    return profile.WriteProfile(section, "PROP2", words) &&
           profile.WriteProfile(section, "PROP3",
                                std::to_string(pen_) + "," + MFileFormat::FormatRealField(penMultiplier_) + "," +
                                    std::to_string(areaOfEffect_) + "," + std::to_string(targetingBonus_));
}

bool CWeapon::ReadProperties(CProfile& profile, const std::string& section) {
    if (!FullInfo()) return true;
    std::string text;
    if (!profile.ReadProfile(section, "PROP2", text)) return false;
    const MNumberText::CCommaList words(text);
    for (std::size_t i = 0; i < kFileOrder.size(); ++i) {
        words_[static_cast<std::size_t>(kFileOrder[i])] = MNumberText::ToInt16(words.Item(i));
    }
    if (!profile.ReadProfile(section, "PROP3", text)) return false;
    const MNumberText::CCommaList numbers(text);
    pen_ = MNumberText::ToInt16(numbers.Item(0));
    penMultiplier_ = MNumberText::ToSingle(MNumberText::ToReal(numbers.Item(1)));
    areaOfEffect_ = MNumberText::ToInt16(numbers.Item(2));
    targetingBonus_ = MNumberText::ToInt16(numbers.Item(3));
    CalculatePointCost();
    return true;
}

void CWeapon::ImportProperties(CSequentialInput& file) {
    if (!FullInfo()) return;
    pen_ = file.ReadInt16();
    penMultiplier_ = file.ReadSingle();
    for (const std::int32_t index : kFileOrder)
        words_[static_cast<std::size_t>(index)] = file.ReadInt16();
    areaOfEffect_ = file.ReadInt16();
    targetingBonus_ = file.ReadInt16();
    CalculatePointCost();
}
