#include "units/gen_unit.h"

#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace {

std::int32_t KindOfTag(const std::string& tag) {
    if (tag == "#U") return CGenUnit::Single;
    if (tag == "#MU") return CGenUnit::Squad;
    return CGenUnit::Empty;
}

template <class TUnit>
TUnit& Required(TUnit* unit) {
    if (unit == nullptr) throw CRuntimeError(ErrorNumber::TypeMismatch);
    return *unit;
}

}  // namespace

CBaseUnit* CGenUnit::Wrapped() const {
    if (IsEmpty()) throw CRuntimeError(ErrorNumber::ObjectNotSet);
    return unit_->get();
}

CUnit* CGenUnit::AsUnit() const {
    return dynamic_cast<CUnit*>(unit_->get());
}

CMultUnit* CGenUnit::AsSquad() const {
    return dynamic_cast<CMultUnit*>(unit_->get());
}

CUnit& CGenUnit::SingleUnit() const {
    Wrapped();
    return Required(AsUnit());
}

CMultUnit& CGenUnit::SquadUnit() const {
    Wrapped();
    return Required(AsSquad());
}

void CGenUnit::SetUnit(const CBaseUnit& unit) {
    class_ = unit.UnitType() == CBaseUnit::kSquadType ? Squad : Single;
}

void CGenUnit::WatchName() {
    unit_.Watch();
    if (!IsEmpty()) Unit().WatchName();
}

void CGenUnit::NewUnit(std::int32_t kind) {
    unit_ = nullptr;
    if (kind == Single) {
        unit_ = std::make_shared<CUnit>();
        class_ = Single;
    } else if (kind == Squad) {
        unit_ = std::make_shared<CMultUnit>();
        class_ = Squad;
    }
}

void CGenUnit::Clone(const CGenUnit& source) {
    const CGenUnit kept = source;  // shares the content, which must outlive this wrapper's own where they are the same
    NewUnit(kept.GenUnitClass());
    Wrapped();
    if (CUnit* unit = AsUnit()) {
        unit->Clone(kept.SingleUnit());
    } else {
        SquadUnit().Clone(kept.SquadUnit());
    }
}

bool CGenUnit::WriteInfo(CProfile* profile, const std::string& section) const {
    return !IsEmpty() && Unit().WriteInfo(profile, section);
}

bool CGenUnit::ReadInfo(CProfile* profile, const std::string& section) {
    std::string tag;
    if (profile == nullptr || !profile->ReadProfile(section, "ENTRY", tag)) return false;
    const std::int32_t kind = KindOfTag(tag);
    if (kind == Empty) return false;
    NewUnit(kind);
    return Unit().ReadInfo(profile, section);
}

bool CGenUnit::ImportInfoV1(CSequentialInput& file) {
    return Trap([&] {
        const std::int32_t kind = KindOfTag(file.ReadText());
        if (kind == Empty) return false;
        NewUnit(kind);
        return Unit().ImportInfoV1(file, false);
    });
}
