#pragma once

#include <cstdint>
#include <utility>

/// How often a watched value has changed since the start. Whoever remembers the number knows later whether what he has
/// concluded from watched values still holds.
namespace MWatched {
inline std::uint64_t changes = 1;
}

/// A value on which the order of sorted lists may rest: the name of a record, the content of a wrapper. A list watches
/// those of its elements when it puts them in order; a change is then noticed whatever pointer or reference it comes
/// through. Once watched a value stays so: a change too many noticed costs a list one look at its elements.
template <class TValue>
class CWatched {
  public:
    CWatched() = default;
    CWatched(const CWatched& other) : value_(other.value_) {}  // a copy stands in no list yet
    ~CWatched() = default;
    CWatched& operator=(const CWatched& other) { return *this = other.value_; }
    CWatched& operator=(TValue value) {
        value_ = std::move(value);
        if (watched_) ++MWatched::changes;
        return *this;
    }

    const TValue& operator*() const { return value_; }
    const TValue* operator->() const { return &value_; }
    void Watch() { watched_ = true; }

  private:
    TValue value_;
    bool watched_ = false;
};
