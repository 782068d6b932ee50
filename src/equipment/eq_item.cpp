#include "equipment/eq_item.h"

#include <utility>

#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"

namespace {

std::int32_t KindOfTag(const std::string& tag) {
    if (tag == "#W") return CEqItem::Weapon;
    if (tag == "#I") return CEqItem::Accessory;
    return CEqItem::Empty;
}

}  // namespace

CEquipment* CEqItem::Wrapped() const {
    if (IsEmpty()) throw CRuntimeError(ErrorNumber::ObjectNotSet);
    return item_->get();
}

void CEqItem::SetItem(std::shared_ptr<CWeapon> weapon) {
    item_ = std::move(weapon);
    eqType_ = Weapon;
}

void CEqItem::SetItem(std::shared_ptr<CAccessory> accessory) {
    item_ = std::move(accessory);
    eqType_ = Accessory;
}

void CEqItem::WatchName() {
    item_.Watch();
    if (!IsEmpty()) Item().WatchName();
}

void CEqItem::NewItem(std::int32_t kind) {
    item_ = nullptr;
    if (kind == Weapon) {
        SetItem(std::make_shared<CWeapon>());
    } else if (kind == Accessory) {
        SetItem(std::make_shared<CAccessory>());
    }
}

void CEqItem::Clone(const CEqItem& source) {
    const CEqItem kept = source;  // shares the content, which must outlive this wrapper's own where they are the same
    NewItem(kept.EqType());
    Wrapped();
    const CWeapon* weapon = kept.AsWeapon();
    const CAccessory* accessory = kept.AsAccessory();
    if (weapon != nullptr && AsWeapon() != nullptr) {
        AsWeapon()->Clone(*weapon);
    } else if (accessory != nullptr && AsAccessory() != nullptr) {
        AsAccessory()->Clone(*accessory);
    } else {
        throw CRuntimeError(kept.IsEmpty() ? ErrorNumber::ObjectNotSet : ErrorNumber::TypeMismatch);
    }
}

bool CEqItem::WriteInfo(CProfile* profile, const std::string& section) const {
    return !IsEmpty() && Item().WriteInfo(profile, section);
}

bool CEqItem::ReadInfo(CProfile* profile, const std::string& section) {
    std::string tag;
    if (profile == nullptr || !profile->ReadProfile(section, "ENTRY", tag)) return false;
    const std::int32_t kind = KindOfTag(tag);
    if (kind == Empty) return false;
    NewItem(kind);
    return Item().ReadInfo(profile, section);
}

bool CEqItem::ImportInfoV1(CSequentialInput& file) {
    return Trap([&] {
        const std::int32_t kind = KindOfTag(file.ReadText());
        if (kind == Empty) return false;
        NewItem(kind);
        return Item().ImportInfoV1(file, false);
    });
}
