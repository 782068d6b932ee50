#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Reads the sequential form: fields parted by commas and line ends, strings in double quotes, from top to bottom.
/// A line break between quotes becomes a blank, since no text of the model may hold one. Reading past the end is error
/// 62. A number field that holds no number gives 0; one out of range is error 6.
class CSequentialInput {
  public:
    /// Opens a file; see MFileAccess::ReadWholeFile for the errors.
    explicit CSequentialInput(const std::string& path);

    bool AtEnd() const { return at_ >= content_.size(); }
    std::string ReadText();
    std::int16_t ReadInt16();
    std::int32_t ReadInt32();
    double ReadReal();
    float ReadSingle();

    /// Reads a text and tells whether it is `tag`, exactly.
    bool ReadTag(std::string_view tag) { return ReadText() == tag; }
    /// Skips fields until one equals `tag`; false when the file ends before.
    bool SkipToTag(std::string_view tag);

  private:
    void SkipSeparator();

    std::string content_;
    std::size_t at_ = 0;
};

/// Text files open for output, by number, as the pages and the rule tables are written. Numbers are 1 and up.
namespace MTextOutput {

/// Opens a file for writing as MFileAccess::OpenEmpty does; errors as there, 52 for a number that isn't open.
std::int16_t Open(const std::string& path);
/// Writes the text and CR LF.
void Print(std::int16_t fileNumber, std::string_view text);
/// Closes the file; an error shows that not everything could be written.
void Close(std::int16_t fileNumber);
/// Closes the file if it is still open and keeps silent about failures: for the way out of a failed operation.
void Abandon(std::int16_t fileNumber) noexcept;

}  // namespace MTextOutput
