#pragma once

#include "kit/application/Application.h"

namespace tarnwell::about {

/// Shows the application's window with icon, name, version and copyright before the others, for a platform that has
/// none of its own. Without the keyboard it leaves alone what the user is at.
void orderFrontAboutWindow(kit::Application& application, bool takesKeyboard);

}  // namespace tarnwell::about
