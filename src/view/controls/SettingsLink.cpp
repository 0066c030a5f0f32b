#include "view/controls/SettingsLink.h"

#include "view/controls/Button.h"

namespace tarnwell::view {

View SettingsLink::body() const { return Button{.action = openSettings.get(), .label = label}; }

}  // namespace tarnwell::view
