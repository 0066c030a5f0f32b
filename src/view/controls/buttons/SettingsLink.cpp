#include "view/controls/buttons/SettingsLink.h"

#include "view/controls/buttons/Button.h"

namespace tarnwell::view {

View SettingsLink::body() const { return Button{.action = openSettings.get(), .label = label}; }

}  // namespace tarnwell::view
