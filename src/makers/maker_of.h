#pragma once

#include <memory>
#include <string>
#include <utility>

#include "core/files/runtime_error.h"
#include "equipment/eq_list.h"
#include "makers/maker.h"
#include "units/mult_unit.h"
#include "units/unit.h"
#include "units/unit_list.h"

/// How items of a class are stored: the list, the wrapper, its kind, and its content. Content of another class is
/// error 13, an empty wrapper error 91.
template <class TItem>
struct SStored;

template <class TItem, CEqItem::Kind Kind>
struct SStoredEquipment {
    using List = CEqList;
    using Wrapper = CEqItem;
    static void Make(CEqItem& wrapper) { wrapper.NewItem(Kind); }
    static TItem& Content(CEqItem& wrapper) {
        auto* item = dynamic_cast<TItem*>(&wrapper.Item());
        if (item == nullptr) throw CRuntimeError(ErrorNumber::TypeMismatch);
        return *item;
    }
};
template <>
struct SStored<CWeapon> : SStoredEquipment<CWeapon, CEqItem::Weapon> {};
template <>
struct SStored<CAccessory> : SStoredEquipment<CAccessory, CEqItem::Accessory> {};

template <>
struct SStored<CUnit> {
    using List = CUnitList;
    using Wrapper = CGenUnit;
    static void Make(CGenUnit& wrapper) { wrapper.NewUnit(CGenUnit::Single); }
    static CUnit& Content(const CGenUnit& wrapper) { return wrapper.SingleUnit(); }
};
template <>
struct SStored<CMultUnit> {
    using List = CUnitList;
    using Wrapper = CGenUnit;
    static void Make(CGenUnit& wrapper) { wrapper.NewUnit(CGenUnit::Squad); }
    static CMultUnit& Content(const CGenUnit& wrapper) { return wrapper.SquadUnit(); }
};

/// The part of the frame that depends on the class of the item alone. `TBase` is the frame, or what a maker shares with
/// its kin on top of it.
template <class TItem, class TBase = FMaker>
class FMakerOf : public TBase {
  public:
    using TBase::TBase;

  protected:
    using Stored = SStored<TItem>;

    /// The list of finished items, in its working document.
    virtual typename Stored::List& List() const = 0;

    CRecord& Item() const final { return *WorkItem; }
    std::int32_t StoredCount() const final { return List().Count(); }
    bool IsStored(const std::string& key) const final { return List().Exists(key); }
    std::int32_t StoredPosition(const std::string& key) const final { return List().GetIndex(key); }
    void RemoveStored(const std::string& key) final {
        List().Remove(key);
        this->NoteListChange();
    }
    bool StoreCopy() final {
        const auto wrapper = std::make_shared<typename Stored::Wrapper>();
        Stored::Make(*wrapper);
        TItem& copy = Stored::Content(*wrapper);
        copy.Clone(*WorkItem);
        const bool added = List().Add(wrapper) != 0;
        this->NoteListChange();
        WorkItem->Clone(copy);
        return added;
    }
    void TakeStored(const std::string& key) final { WorkItem->Clone(Stored::Content(*List().Share(key))); }
    void TakeStored(std::int32_t position) final { WorkItem->Clone(Stored::Content(*List().Share(position))); }

    void NewWorkItem() { WorkItem = std::make_unique<TItem>(); }

    std::unique_ptr<TItem> WorkItem = std::make_unique<TItem>();
};
