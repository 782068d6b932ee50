#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/files/ansi_text.h"
#include "core/files/runtime_error.h"

/// An ordered collection with positions from 1, whose elements may have a key. Keys ignore case; finding by key doesn't
/// walk the collection. Unknown key: error 5, position out of range: error 9, key in use: error 457.
template <class TItem>
class CKeyedCollection {
    struct SNode {
        std::shared_ptr<TItem> item;
        std::string key;
    };
    // Where each position finds its node, which never moves: an insertion in the middle only shifts these.
    using Nodes = std::vector<typename std::list<SNode>::iterator>;

    template <class TValue, class TBase>
    class CIterator {
      public:
        using value_type = TItem;
        using difference_type = std::ptrdiff_t;
        using reference = TValue&;
        using pointer = TValue*;
        using iterator_category = std::forward_iterator_tag;

        CIterator() = default;
        explicit CIterator(TBase at) : at_(at) {}
        TValue& operator*() const { return *(*at_)->item; }
        TValue* operator->() const { return (*at_)->item.get(); }
        CIterator& operator++() { return ++at_, *this; }
        CIterator operator++(int) { return CIterator(at_++); }
        bool operator==(const CIterator&) const = default;

      private:
        TBase at_{};
    };

  public:
    using iterator = CIterator<TItem, typename Nodes::const_iterator>;
    using const_iterator = CIterator<const TItem, typename Nodes::const_iterator>;

    CKeyedCollection() = default;
    CKeyedCollection(const CKeyedCollection&) = delete;
    CKeyedCollection& operator=(const CKeyedCollection&) = delete;

    std::int32_t Count() const { return static_cast<std::int32_t>(nodes_.size()); }
    bool Exists(std::int32_t position) const { return position >= 1 && position <= Count(); }
    bool Exists(std::string_view key) const { return byKey_.contains(key); }

    const std::shared_ptr<TItem>& Item(std::int32_t position) const { return NodeAt(position).item; }
    const std::shared_ptr<TItem>& Item(std::string_view key) const { return NodeOf(key).item; }

    /// Puts the item in front of the element now at `position`; a position behind the last one appends. An empty key
    /// means none.
    void Insert(std::int32_t position, std::shared_ptr<TItem> item, std::string_view key) {
        if (position < 1 || position > Count() + 1) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
        if (!key.empty() && Exists(key)) throw CRuntimeError(ErrorNumber::DuplicateKey);
        const auto node = store_.insert(store_.end(), SNode{std::move(item), std::string(key)});
        if (!key.empty()) byKey_.emplace(node->key, &*node);
        nodes_.insert(nodes_.begin() + (position - 1), node);
    }
    void Append(std::shared_ptr<TItem> item, std::string_view key) { Insert(Count() + 1, std::move(item), key); }

    void Remove(std::int32_t position) {
        byKey_.erase(NodeAt(position).key);
        store_.erase(nodes_[static_cast<std::size_t>(position - 1)]);
        nodes_.erase(nodes_.begin() + (position - 1));
    }
    void Remove(std::string_view key) { Remove(PositionOf(NodeOf(key))); }
    void Clear() {
        byKey_.clear();
        nodes_.clear();
        store_.clear();
    }

    iterator begin() { return iterator(nodes_.begin()); }
    iterator end() { return iterator(nodes_.end()); }
    const_iterator begin() const { return const_iterator(nodes_.begin()); }
    const_iterator end() const { return const_iterator(nodes_.end()); }

  private:
    const SNode& NodeAt(std::int32_t position) const {
        if (!Exists(position)) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
        return *nodes_[static_cast<std::size_t>(position - 1)];
    }
    const SNode& NodeOf(std::string_view key) const {
        const auto found = byKey_.find(key);
        if (found == byKey_.end()) throw CRuntimeError(ErrorNumber::InvalidCall);
        return *found->second;
    }
    std::int32_t PositionOf(const SNode& node) const {
        std::int32_t position = 1;
        while (&*nodes_[static_cast<std::size_t>(position - 1)] != &node)
            ++position;
        return position;
    }

    std::list<SNode> store_;
    Nodes nodes_;
    // The views look into the nodes, which stay where they are while the order changes.
    std::unordered_map<std::string_view, const SNode*, MAnsiText::HashIgnoreCase, MAnsiText::EqualToIgnoreCase> byKey_;
};
