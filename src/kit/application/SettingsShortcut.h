#pragma once

namespace tarnwell::kit {

class Application;

/// Types Command-comma on the user's behalf, behind everything that waits in the event queue: the main menu then opens
/// the settings. Does nothing where events cannot be made.
void postSettingsShortcut(Application& application);

}  // namespace tarnwell::kit
