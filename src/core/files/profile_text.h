#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text in the profile form: lines `[SECTION]` and `KEY=value`, with names that ignore case. Only the first section of
/// a name and the first key of a name in it count. Lines that are neither, comments included, are kept as they are.
///
/// Looking up goes through an index of the sections; the first lines of the section looked at last are remembered too.
/// Adding keys in the order of the file, as a save does, only ever appends.
class CProfileText {
  public:
    CProfileText() = default;
    explicit CProfileText(std::string text);

    const std::string& Text() const { return text_; }

    /// The value without blanks at its ends and without one pair of equal quotes around it. The view lives until the
    /// next Set.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key);

    /// Changes the line of the key and no other; a new key goes behind the last line of its section, a new section to
    /// the end. The value is stored raw.
    void Set(std::string_view section, std::string_view key, std::string_view value);

  private:
    struct SSection {
        std::size_t name = 0;
        std::size_t nameLength = 0;
        std::size_t begin = 0;  // first byte behind the header line
        std::size_t end = 0;
    };
    struct SKeyLine {
        std::size_t line = 0;  // first byte of the line
        std::size_t key = 0;
        std::size_t keyLength = 0;
        std::size_t value = 0;     // first byte behind the equals sign
        std::size_t valueEnd = 0;  // end of the line without its terminator
    };
    struct SSlot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;  // of a section, from 1; 0 is a free slot
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    // Key lines kept for a section: no section of ours has more, a broken file may have millions.
    static constexpr std::size_t kRemembered = 64;

    void IndexSections(std::size_t from);
    SSlot& SlotOf(std::string_view name);
    void AddSection(std::string_view name, std::size_t begin);
    void GrowSlots();
    bool OpenSection(std::string_view section);
    std::optional<SKeyLine> KeyLineAt(std::size_t& at) const;
    std::optional<SKeyLine> FindKey(std::string_view key);
    void Replace(std::size_t position, std::size_t length, std::string_view replacement);
    void Append(std::string_view addition);
    void AppendKey(std::string_view key, std::string_view value);
    std::size_t EndOfContent(const SSection& section) const;
    std::string_view Part(std::size_t begin, std::size_t length) const {
        return std::string_view(text_).substr(begin, length);
    }

    std::string text_;
    // The first section of each name. Whether the last of them reaches to the end of the text.
    std::vector<SSection> sections_;
    bool lastReachesEnd_ = false;
    // Hash table of the sections. Names stay in the text, since a document has tens of thousands of sections and a
    // broken one millions.
    std::vector<SSlot> slots_;

    // The section looked at last, under the name it was asked by, and its key lines as far as they were read.
    std::string openName_;
    std::size_t open_ = kNone;
    std::vector<SKeyLine> keys_;
    std::size_t keysReadTo_ = 0;
};
