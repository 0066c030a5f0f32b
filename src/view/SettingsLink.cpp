#include "view/SettingsLink.h"

#include "view/Button.h"

namespace tarnwell::view {

View SettingsLink::body() const { return Button{.action = openSettings.get(), .label = label}; }

}  // namespace tarnwell::view
