#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "equipment/accessory.h"
#include "equipment/weapon.h"

/// Wraps a weapon or an accessory, so that one list can hold both. Everything that an empty wrapper is asked for, but
/// WriteInfo, is error 91.
class CEqItem {
  public:
    enum Kind : std::int32_t { Empty = 0, Weapon = 1, Accessory = 2 };

    std::int32_t EqType() const { return eqType_; }

    CEquipment& Item() { return *Wrapped(); }
    const CEquipment& Item() const { return *Wrapped(); }
    /// The object itself, not a copy, becomes the content.
    void SetItem(std::shared_ptr<CWeapon> weapon);
    void SetItem(std::shared_ptr<CAccessory> accessory);

    bool IsEmpty() const { return *item_ == nullptr; }
    /// The content where it is of that class, else null.
    CWeapon* AsWeapon() const { return dynamic_cast<CWeapon*>(item_->get()); }
    CAccessory* AsAccessory() const { return dynamic_cast<CAccessory*>(item_->get()); }

    /// Drops the content and makes a new one of a kind. Any other kind leaves no content and `EqType` as it was.
    void NewItem(std::int32_t kind);
    void Clone(const CEqItem& source);

    const std::string& Name() const { return Item().Name(); }
    void SetName(const std::string& name) { Item().SetName(name); }
    /// From now on sorted lists notice another name, be it that of another content.
    void WatchName();
    const std::string& Descr() const { return Item().Descr(); }
    void SetDescr(const std::string& descr) { Item().SetDescr(descr); }
    const std::string& Key() const { return Item().Key(); }
    void SetKey(const std::string& key) { Item().SetKey(key); }
    bool FullInfo() const { return Item().FullInfo(); }
    void SetFullInfo(bool full) { Item().SetFullInfo(full); }
    double PointCost() const { return Item().PointCost(); }
    void CalculatePointCost() { Item().CalculatePointCost(); }

    bool WriteInfo(CProfile* profile, const std::string& section) const;
    bool ReadInfo(CProfile* profile, const std::string& section);
    bool ImportInfoV1(CSequentialInput& file);

  private:
    CEquipment* Wrapped() const;

    std::int32_t eqType_ = Empty;
    CWatched<std::shared_ptr<CEquipment>> item_;
};
