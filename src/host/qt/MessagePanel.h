#pragma once

#include <string>

#include "kit/Action.h"

namespace tarnwell::host::qt {

/// Shows a short message with a button to close it, and returns at once; `closed` is run when the user has closed it.
void showMessage(const std::string& title, const std::string& message, kit::Action closed);

}  // namespace tarnwell::host::qt
