#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/files/file_format.h"
#include "core/files/keyed_collection.h"
#include "core/files/profile.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"
#include "core/files/watched.h"

/// What the equipment lists and the unit lists have in common: an ordered keyed list of wrappers, with positions
/// from 1. `Sorted` decides where a new element goes, `Indexed` gives it the key of its upper-cased name.
///
/// Item, Remove and Update let the collection's errors out (5 unknown key, 9 position out of range), GetIndex that of
/// an empty wrapper (91); the other operations trap them. A stored element is renamed through Update, which files it
/// anew; one that is renamed where it stands keeps its place, and later ones are sorted in by the names as they are.
template <class TItem>
class CKeyedList {
  public:
    using ItemPtr = std::shared_ptr<TItem>;

    bool Sorted() const { return sorted_ != 0; }
    void SetSorted(bool sorted) { sorted_ = MFileFormat::FlagWord(sorted); }
    bool Indexed() const { return indexed_ != 0; }
    void SetIndexed(bool indexed) { indexed_ = MFileFormat::FlagWord(indexed); }

    std::int32_t Count() const { return items_.Count(); }
    bool Exists(std::int32_t position) const { return items_.Exists(position); }
    bool Exists(std::string_view key) const { return items_.Exists(key); }

    /// The element itself, to be held or filed elsewhere too.
    const ItemPtr& Share(std::int32_t position) const { return items_.Item(position); }
    const ItemPtr& Share(std::string_view key) const { return items_.Item(key); }

    TItem& Item(std::int32_t position) { return *items_.Item(position); }
    TItem& Item(std::string_view key) { return *items_.Item(key); }
    const TItem& Item(std::int32_t position) const { return *items_.Item(position); }
    const TItem& Item(std::string_view key) const { return *items_.Item(key); }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    /// The new count, or 0 where the key is in use: the list then stays as it was. An empty key becomes the item's key
    /// in an indexed list; a key that isn't empty is stored in the item.
    std::int32_t Add(ItemPtr item, std::string& key) {
        std::int32_t count = 0;
        Trap([&] {
            if (key.empty() && indexed_ != 0) key = MAnsiText::UpperCase(item->Name());
            if (!key.empty()) item->SetKey(key);
            items_.Insert(sorted_ != 0 ? SortedPosition(*item) : Count() + 1, item, key);
            if (sorted_ != 0 && InOrder()) {
                item->WatchName();
            } else {
                orderSeen_ = kNeverSeen;
            }
            count = Count();
            return true;
        });
        return count;
    }
    std::int32_t Add(ItemPtr item) {
        std::string key;
        return Add(std::move(item), key);
    }

    void Remove(std::int32_t position) { items_.Remove(position); }
    void Remove(std::string_view key) { items_.Remove(key); }

    /// Empties the list; the flags stay.
    void Clear() { items_.Clear(); }

    /// Files an element anew after a change of its name. Into a name in use the element is lost.
    void Update(ItemPtr item, std::string_view oldKey) {
        items_.Remove(std::string_view(MAnsiText::UpperCase(oldKey.empty() ? std::string_view(item->Key()) : oldKey)));
        Add(std::move(item));
    }

    /// Position of the first element whose Key equals `key` exactly, case included; 0 if there is none.
    std::int32_t GetIndex(std::string_view key) const {
        std::int32_t position = 0;
        for (const TItem& item : items_) {
            ++position;
            if (item.Key() == key) return position;
        }
        return 0;
    }

    /// Both give the new position, or 0 where nothing moved. The element goes back under its own Key, also in a list
    /// without keys: where another element holds that key it is lost.
    std::int32_t ShiftObjUp(std::int32_t position) { return Shift(position, -1, true); }
    std::int32_t ShiftObjUp(std::string_view key) {
        return ShiftFound(key, [this](std::int32_t position) { return ShiftObjUp(position); });
    }
    std::int32_t ShiftObjDown(std::int32_t position) { return Shift(position, +1, true); }
    std::int32_t ShiftObjDown(std::string_view key) {
        return ShiftFound(key, [this](std::int32_t position) { return ShiftObjDown(position); });
    }

    /// The same shifts for lists in which elements share names: the element goes back without a key, and so meets no
    /// other. An indexed list finds its elements by their keys, which they keep there.
    std::int32_t MoveUp(std::int32_t position) { return Shift(position, -1, Indexed()); }
    std::int32_t MoveDown(std::int32_t position) { return Shift(position, +1, Indexed()); }

    bool WriteInfo(CProfile* profile, const std::string& section) const {
        return Trap([&] {
            if (profile == nullptr || !profile->WriteProfile(section, "ENTRY", tag_) ||
                !MFileFormat::WriteListHeader(profile, section, sorted_, indexed_, Count())) {
                return false;
            }
            std::int32_t position = 0;
            for (const TItem& item : items_) {
                if (!item.WriteInfo(profile, MFileFormat::ElementSection(section, ++position))) return false;
            }
            return true;
        });
    }

    /// Reads a list of the sequential form: its tag, a count, the elements. `Sorted` stays.
    bool ImportInfoV1(CSequentialInput& file, bool indexed) {
        return Trap([&] {
            SetIndexed(indexed);
            Clear();
            const bool tagged = file.ReadTag(tag_);
            const std::int32_t count = file.ReadInt32();
            if (!tagged) return false;
            for (std::int32_t i = 0; i < count; ++i) {
                auto item = std::make_shared<TItem>();
                if (!item->ImportInfoV1(file)) return false;
                Add(std::move(item));
            }
            return true;
        });
    }

  protected:
    CKeyedList(std::string_view tag, bool sorted) : tag_(tag), sorted_(MFileFormat::FlagWord(sorted)) {}
    ~CKeyedList() = default;
    CKeyedList(const CKeyedList&) = default;
    CKeyedList& operator=(const CKeyedList&) = default;

    bool ReadTag(CProfile& profile, const std::string& section) const {
        std::string entry;
        return profile.ReadProfile(section, "ENTRY", entry) && entry == tag_;
    }

    /// `count` receives the number of elements; the flags are in force before the first one goes in, and stay as they
    /// were where the header can't be read.
    bool ReadHeader(CProfile& profile, const std::string& section, std::int32_t& count) {
        std::int16_t sorted = 0;
        std::int16_t indexed = 0;
        if (!MFileFormat::ReadListHeader(&profile, section, sorted, indexed, count)) return false;
        sorted_ = sorted;
        indexed_ = indexed;
        return true;
    }

    bool ReadElements(CProfile& profile, const std::string& section, std::int32_t count) {
        for (std::int32_t i = 1; i <= count; ++i) {
            auto item = std::make_shared<TItem>();
            if (!item->ReadInfo(&profile, MFileFormat::ElementSection(section, i))) return false;
            Add(std::move(item));
        }
        return true;
    }

  private:
    static constexpr std::uint64_t kNeverSeen = 0;

    static bool Precedes(std::string_view a, std::string_view b) { return MAnsiText::CompareIgnoreCase(a, b) < 0; }
    const std::string& NameAt(std::int32_t position) const { return items_.Item(position)->Name(); }

    bool InOrder() const { return orderSeen_ == MWatched::changes; }

    // Finds out whether the names stand in order, and watches them from then on.
    void LookAtOrder() {
        const TItem* previous = nullptr;
        for (TItem& item : items_) {
            if (item.IsEmpty() || (previous != nullptr && Precedes(item.Name(), previous->Name()))) return;
            item.WatchName();
            previous = &item;
        }
        orderSeen_ = MWatched::changes;
    }

    // In front of the first element whose name compares greater; equals keep the order in which they came. An empty
    // wrapper that is met on the way is error 91. Where the names stand in order the place is searched, else walked to.
    std::int32_t SortedPosition(const TItem& added) {
        if (!InOrder()) LookAtOrder();
        if (Count() == 0) return 1;
        const std::string_view name = added.Name();
        if (!InOrder()) {
            std::int32_t position = 1;
            while (position <= Count() && !Precedes(name, NameAt(position)))
                ++position;
            return position;
        }
        if (!Precedes(name, NameAt(Count()))) return Count() + 1;
        std::int32_t low = 1;
        std::int32_t high = Count();
        while (low < high) {
            const std::int32_t middle = low + (high - low) / 2;
            if (Precedes(name, NameAt(middle))) {
                high = middle;
            } else {
                low = middle + 1;
            }
        }
        return low;
    }

    std::int32_t Shift(std::int32_t from, std::int32_t step, bool keyed) {
        std::int32_t moved = 0;
        Trap([&] {
            if (!Exists(from) || !Exists(from + step)) return false;
            const std::int32_t to = from + step;
            const ItemPtr item = items_.Item(from);
            orderSeen_ = kNeverSeen;
            items_.Remove(from);
            items_.Insert(to, item, keyed ? std::string_view(item->Key()) : std::string_view());
            moved = to;
            return true;
        });
        return moved;
    }

    template <class TShift>
    std::int32_t ShiftFound(std::string_view key, const TShift& shift) {
        std::int32_t moved = 0;
        Trap([&] { return (moved = shift(GetIndex(key))) != 0; });
        return moved;
    }

    CKeyedCollection<TItem> items_;
    std::string_view tag_;
    std::int16_t sorted_ = 0;
    std::int16_t indexed_ = 0;
    // The number of changes at which the names were seen to stand in order: while it holds, none of them has changed.
    std::uint64_t orderSeen_ = kNeverSeen;
};
