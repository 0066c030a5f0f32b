#pragma once

namespace tarnwell::installation {

/// The argument that a start at login has: the program's own, which its autostart entry names and its front hands on.
inline constexpr const char* launchedAtLogin = "--launched-at-login";

}  // namespace tarnwell::installation
