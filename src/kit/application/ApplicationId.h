#pragma once

namespace tarnwell::kit {

/// The application's one name among all others: of its desktop entry, its icon, its bus name.
inline constexpr const char* applicationId = "example.tarnwell.Tarnwell";

}  // namespace tarnwell::kit
