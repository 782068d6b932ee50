#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>

#include "core/files/runtime_error.h"

/// A control array: `Count` controls of one name, told apart by their index from 0.
template <class Control, int Count>
class CControlArray {
  public:
    template <class Form>
    CControlArray(Form* form, const char* name) {
        for (int index = 0; index < Count; ++index) {
            elements_[static_cast<std::size_t>(index)] = std::make_unique<Control>(form, name, index);
        }
    }

    /// The element; error 9 for an index outside.
    Control& operator[](int index) { return *elements_[Checked(index)]; }
    const Control& operator[](int index) const { return *elements_[Checked(index)]; }
    static constexpr int Size() { return Count; }

    /// One handler for all elements, which takes the index.
    void OnClick(const std::function<void(int)>& handler) {
        for (int index = 0; index < Count; ++index)
            (*this)[index].OnClick([handler, index] { handler(index); });
    }
    void OnChange(const std::function<void(int)>& handler) {
        for (int index = 0; index < Count; ++index)
            (*this)[index].OnChange([handler, index] { handler(index); });
    }

  private:
    static std::size_t Checked(int index) {
        if (index < 0 || index >= Count) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(index);
    }

    std::array<std::unique_ptr<Control>, static_cast<std::size_t>(Count)> elements_;
};
