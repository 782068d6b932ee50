#include "equipment/accessory.h"

#include "core/files/file_format.h"
#include "core/files/int16.h"
#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/sequential.h"

using MEquipmentRules::Power;

namespace {

std::size_t Checked(std::int32_t index) {
    if (index < 0 || index >= CAccessory::PropertyCount) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
}

}  // namespace

bool CAccessory::AccProperty(std::int32_t index) const {
    return words_[Checked(index)] != 0;
}

void CAccessory::SetAccProperty(std::int32_t index, bool value) {
    words_[Checked(index)] = MFileFormat::FlagWord(value);
    CalculatePointCost();
}

void CAccessory::SetPF(std::int16_t pf) {
    pf_ = pf;
    CalculatePointCost();
}

// Individual armour is paid for by the unit that wears it, through the unit's PF.
std::int16_t CAccessory::PFBaseCost() const {
    return words_[IndividualArmour] != 0 ? std::int16_t{0} : (CInt16(pf_) * 5).Value();
}

void CAccessory::CalculatePointCost() {
    baseCost_ = CInt16(targetingBonus_) * 5 + PFBaseCost();
    baseCost_ = MNumberText::Finite(AreaFactor() * baseCost_);
    double cost = baseCost_;
    cost *= Power(0.5, words_[OneUse]);
    cost *= Power(0.75, words_[Recharge]);
    cost *= Power(0.75, words_[NeedsReloading]);
    baseCost_ = MNumberText::Finite(cost);
}

std::string CAccessory::SpecialPropertiesStr() const {
    std::string text;
    if (words_[IndividualArmour] != 0) text += "Individual Armour, ";
    if (words_[Recharge] != 0) text += "Recharge 1 Turn, ";
    if (words_[OneUse] != 0) text += "One Use, ";
    if (words_[NeedsReloading] != 0) text += "Needs Reloading, ";
    text += AreaAndTargetingStr();
    if (pf_ > 0) text += "PF " + std::to_string(pf_) + ", ";
    return MEquipmentRules::WithoutLastSeparator(text);
}

void CAccessory::Clone(const CAccessory& source) {
    SetName(source.Name());
    descr_ = source.descr_;
    class_ = source.class_;
    key_ = source.key_;
    SetFullInfo(source.FullInfo());
    pf_ = source.pf_;
    for (const std::int32_t index : {OneUse, Recharge, IndividualArmour, NeedsReloading}) {
        SetAccProperty(index, source.AccProperty(index));
    }
    areaOfEffect_ = source.areaOfEffect_;
    targetingBonus_ = source.targetingBonus_;
    baseCost_ = source.baseCost_;
    pointCost_ = source.pointCost_;
    if (FullInfo()) CalculatePointCost();
}

bool CAccessory::WriteProperties(CProfile& profile, const std::string& section) const {
    // PF and the armour flag stand in summaries too: a unit needs them when it takes the armour off.
    if (!profile.WriteProfile(section, "PROP1", std::to_string(pf_) + "," + std::to_string(words_[IndividualArmour]))) {
        return false;
    }
    if (!FullInfo()) return true;
    std::string numbers;
    for (const std::int16_t number :
         {words_[OneUse], words_[Recharge], words_[NeedsReloading], areaOfEffect_, targetingBonus_}) {
        MFileFormat::AppendItem(numbers, std::to_string(number));
    }
    return profile.WriteProfile(section, "PROP2", numbers);
}

bool CAccessory::ReadProperties(CProfile& profile, const std::string& section) {
    std::string text;
    if (!profile.ReadProfile(section, "PROP1", text)) return false;
    const MNumberText::CCommaList armour(text);
    pf_ = MNumberText::ToInt16(armour.Item(0));
    words_[IndividualArmour] = MNumberText::ToInt16(armour.Item(1));
    if (!FullInfo()) return true;
    if (!profile.ReadProfile(section, "PROP2", text)) return false;
    const MNumberText::CCommaList numbers(text);
    words_[OneUse] = MNumberText::ToInt16(numbers.Item(0));
    words_[Recharge] = MNumberText::ToInt16(numbers.Item(1));
    words_[NeedsReloading] = MNumberText::ToInt16(numbers.Item(2));
    areaOfEffect_ = MNumberText::ToInt16(numbers.Item(3));
    targetingBonus_ = MNumberText::ToInt16(numbers.Item(4));
    CalculatePointCost();
    return true;
}

void CAccessory::ImportProperties(CSequentialInput& file) {
    pf_ = file.ReadInt16();
    if (!FullInfo()) {
        words_[IndividualArmour] = file.ReadInt16();
        return;
    }
    for (std::int16_t& word : words_)
        word = file.ReadInt16();
    areaOfEffect_ = file.ReadInt16();
    targetingBonus_ = file.ReadInt16();
    CalculatePointCost();
}
