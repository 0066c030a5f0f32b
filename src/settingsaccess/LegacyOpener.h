#pragma once

#include <optional>

#include "kit/application/Application.h"
#include "settingsaccess/OpenSettingsError.h"

namespace tarnwell::settingsaccess {

/// Opens the settings window the way of systems before 14: through the application's delegate. Returns why not.
std::optional<LegacyOpenSettingsError> openSettingsThroughDelegate(kit::Application& application);

}  // namespace tarnwell::settingsaccess
