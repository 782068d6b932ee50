#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CSequentialInput;

/// A row of a rule table: a fixed number of values, indexed from 0. Values are kept as the text of their fields.
class CTuple {
  public:
    CTuple() : CTuple(2) {}
    explicit CTuple(std::int16_t elements) { SetElements(elements); }

    std::int16_t Elements() const { return static_cast<std::int16_t>(values_.size()); }
    /// Above 0 it resizes the row and keeps what fits; other values are ignored.
    void SetElements(std::int16_t count);
    /// Empty for an index out of range, which the setter ignores.
    std::string Element(std::int32_t index) const;
    void SetElement(std::int32_t index, const std::string& value);

    /// Reads one field a value; `withCount` reads the number of values first.
    void ReadInfo(CSequentialInput& file, bool withCount);
    /// Each value in double quotes, parted by commas; `withCount` puts the number of values in front.
    void WriteInfo(std::int16_t fileNumber, bool withCount) const;

  private:
    bool IsValid(std::int32_t index) const { return index >= 0 && index < Elements(); }

    std::vector<std::string> values_;
};
