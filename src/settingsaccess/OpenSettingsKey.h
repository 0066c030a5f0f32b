#pragma once

#include <memory>

#include "settingsaccess/OpenSettingsAccessAction.h"

namespace tarnwell::settingsaccess {

/// The environment value `openSettingsLegacy`. Its default is one action for the whole application, made on first use.
struct OpenSettingsKey {
  using Value = std::shared_ptr<OpenSettingsAccessAction>;
  static constexpr const char* valueTypeName = "OpenSettingsAccessAction";

  static Value initial();
};

}  // namespace tarnwell::settingsaccess
