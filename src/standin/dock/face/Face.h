#pragma once

#include <string>

#include "standin/dock/DockBehavior.h"

namespace tarnwell::standin {

/// Whether there is a display that can be reached.
bool hasDisplay();

/// Shows the dock until the process ends. What becomes of its demonstration applications is kept in `deskPath`.
int showFace(int& argc, char** argv, const DockBehavior& behavior, const std::string& deskPath);

}  // namespace tarnwell::standin
