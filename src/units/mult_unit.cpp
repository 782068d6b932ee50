#include "units/mult_unit.h"

#include <utility>

#include "core/files/number_text.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"
#include "units/copying.h"

namespace {

std::string UnitListSection(const std::string& section) {
    return section + "_UNITLIST";
}

// Counts how deep squads are nested while they are read.
class CNesting {
  public:
    CNesting() {
        if (depth_ >= CMultUnit::kDeepestNesting) throw CRuntimeError(ErrorNumber::OutOfStackSpace);
        ++depth_;
    }
    CNesting(const CNesting&) = delete;
    CNesting& operator=(const CNesting&) = delete;
    ~CNesting() { --depth_; }

  private:
    static int depth_;
};

int CNesting::depth_ = 0;

}  // namespace

CMultUnit::CMultUnit() {
    InitUnit();
}

void CMultUnit::InitUnit() {
    SetName("");
    descr_.clear();
    key_.clear();
    units_ = std::make_unique<CUnitList>();
    units_->SetIndexed(false);
    units_->SetSorted(false);
}

void CMultUnit::SetQuantity(std::int16_t quantity) {
    quantity_ = quantity < 1 ? std::int16_t{1} : quantity;
    CalculatePointCost();
}

double CMultUnit::PointCost() const {
    Recalculate();
    return pointCost_;
}

double CMultUnit::EquippedPointCost() const {
    Recalculate();
    return equippedPointCost_;
}

void CMultUnit::Recalculate() const {
    pointCost_ = 0;
    equippedPointCost_ = 0;
    for (const CGenUnit& member : Units()) {
        if (const CMultUnit* squad = member.AsSquad()) {
            // Once for both costs: asking each getter would double the work with every level of nesting.
            squad->Recalculate();
            pointCost_ = MNumberText::Finite(squad->pointCost_ + pointCost_);
            equippedPointCost_ = MNumberText::Finite(squad->equippedPointCost_ + equippedPointCost_);
        } else {
            pointCost_ = MNumberText::Finite(member.PointCost() + pointCost_);
            equippedPointCost_ = MNumberText::Finite(member.EquippedPointCost() + equippedPointCost_);
        }
    }
    pointCost_ = MNumberText::Finite(pointCost_ * quantity_);
    equippedPointCost_ = MNumberText::Finite(equippedPointCost_ * quantity_);
}

CGenUnit* CMultUnit::Add(std::shared_ptr<CGenUnit> member, const std::string& key) {
    std::string memberKey = key;
    const std::int32_t position = units_->Add(member, memberKey);
    if (position == 0) return nullptr;
    CalculatePointCost();
    member->SetFullInfo(false);
    return &units_->Item(position);
}

// Add without a sum for each member: whoever adds many takes one sum at the end.
void CMultUnit::AddAsSummary(std::shared_ptr<CGenUnit> member) {
    if (units_->Add(member) > 0) member->SetFullInfo(false);
}

void CMultUnit::Remove(std::int32_t position) {
    units_->Remove(position);
    CalculatePointCost();
}

void CMultUnit::Remove(std::string_view key) {
    units_->Remove(key);
    CalculatePointCost();
}

void CMultUnit::Clone(const CMultUnit& source) {
    CloneWithoutSum(source);
    if (Count() > 0) CalculatePointCost();
}

// Inner squads are summed with the outermost one: a sum at each level would visit a member once a level.
void CMultUnit::CloneWithoutSum(const CMultUnit& source) {
    SetName(source.Name());
    descr_ = source.descr_;
    key_ = source.key_;
    quantity_ = source.quantity_;
    units_->Clear();
    CCopying copying;
    for (const CGenUnit& member : source.Units()) {
        copying.CountMember();
        auto copy = std::make_shared<CGenUnit>();
        if (member.GenUnitClass() == CGenUnit::Squad) {
            copy->NewUnit(CGenUnit::Squad);
            copy->SquadUnit().CloneWithoutSum(member.SquadUnit());
        } else {
            copy->Clone(member);
        }
        AddAsSummary(std::move(copy));
    }
}

bool CMultUnit::WriteInfo(CProfile* profile, const std::string& section) const {
    return Trap([&] {
        if (profile == nullptr || !WriteIdentity(*profile, section, "#MU") ||
            !WriteQuantityAndPoints(*profile, section)) {
            return false;
        }
        return !FullInfo() || units_->WriteInfo(profile, UnitListSection(section));
    });
}

bool CMultUnit::ReadInfo(CProfile* profile, const std::string& section) {
    return Trap([&] {
        if (profile == nullptr || !ReadIdentity(*profile, section, "#MU") ||
            !ReadQuantityAndPoints(*profile, section)) {
            return false;
        }
        if (!FullInfo()) return true;
        const CNesting nesting;
        if (!units_->ReadInfo(profile, UnitListSection(section))) return false;
        CalculatePointCost();
        return true;
    });
}

bool CMultUnit::ImportInfoV1(CSequentialInput& file, bool readTag) {
    return Trap([&] {
        units_->Clear();
        if (readTag && !file.ReadTag("#MU")) return false;
        ImportIdentity(file);
        pointCost_ = file.ReadReal();
        equippedPointCost_ = file.ReadReal();
        const std::int32_t count = file.ReadInt32();
        if (!FullInfo()) return true;

        const CNesting nesting;
        bool complete = true;
        for (std::int32_t i = 0; i < count && complete; ++i) {
            auto member = std::make_shared<CGenUnit>();
            complete = member->ImportInfoV1(file);
            if (complete) AddAsSummary(std::move(member));
        }
        if (complete || Count() > 0) CalculatePointCost();
        return complete;
    });
}
