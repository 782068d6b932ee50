#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Keeps the rule tables from being read or edited with a text editor. Each plain line becomes one line of 150
/// characters in which it sits between two markers at a random position among random padding, folded with a fixed key.
/// It hides the data from a casual look and makes no claim to more.
namespace MHideUtils {

/// The longest plain line that has room for its markers.
inline constexpr std::size_t kLongestLine = 148;

/// A longer line, or a character that leaves the 8-bit range when folded, is error 5.
std::string EncodeLine(std::string_view line);

/// A line without markers gives empty text. A character below code 32 is error 5.
std::string DecodeLine(std::string_view line);

/// 0 done, 1 source can't be opened, 2 target can't be opened or written, -1 other failure. A malformed line is a
/// run-time error that reaches the caller, with both files closed.
std::int16_t DecodeFile(const std::string& source, const std::string& target);

/// A code from 1 to 127 that is never the marker's.
char RandomPadChar();

}  // namespace MHideUtils
