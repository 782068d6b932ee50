#pragma once

/// Roles that a screen reader, or a test from outside, finds: the toolkit knows none for the controls of this floor
/// that paint themselves.
namespace MAccessible {

/// Any number of times.
void Install();

}  // namespace MAccessible
