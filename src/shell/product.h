#pragma once

#include <string>

/// What the program says of itself.
namespace MProduct {

inline constexpr const char* WebAddress = "https://vdtools2.example.org/";
inline constexpr const char* Description = "Vandrel second edition tools ";
inline constexpr const char* Copyright = "Copyright (c) 2026 The VdTools2 authors";

/// "Version " and major, minor and revision number.
std::string VersionText();
/// What the program is and under which terms it may be used; lines end in CR LF.
std::string Notice();

}  // namespace MProduct
