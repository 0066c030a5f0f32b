#include "host/macos/Display.h"

namespace tarnwell::host_macos {

// The user's.
void openDisplay() {}

}  // namespace tarnwell::host_macos
