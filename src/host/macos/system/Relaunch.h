#pragma once

#include "kit/application/Product.h"
#include "kit/ports/Log.h"

namespace tarnwell::host_macos {

/// For a process that ends now: has the system open the application once more. What fails is logged.
void relaunchAfterEnd(kit::Log& log, const kit::Product& product);

}  // namespace tarnwell::host_macos
