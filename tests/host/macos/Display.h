#pragma once

namespace tarnwell::host_macos {

/// Before anything of the platform's is used: what the windows of this process are to be seen on.
void openDisplay();

}  // namespace tarnwell::host_macos
