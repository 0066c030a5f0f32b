#pragma once

#include <string>

#include "standin/dock/DockBehavior.h"

namespace tarnwell::standin {

/// Shows the dock until the process ends; nothing, but as long, where no display can be reached. What becomes of its
/// demonstration applications is kept in `deskPath`.
int showFace(int& argc, char** argv, const DockBehavior& behavior, const std::string& deskPath);

}  // namespace tarnwell::standin
