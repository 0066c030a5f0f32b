#pragma once

#include <tuple>

#include "settingsaccess/OpenSettingsKey.h"
#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::settingsaccess {

/// Stands around the root content of a scene and connects `openSettingsLegacy` to the platform: from system 14 on by an
/// invisible settings link behind the content.
struct OpenSettingsInjectionView {
  view::Environment<OpenSettingsKey> _openSettingsLegacy = {};
  view::View content;

  auto stored() { return std::tie(_openSettingsLegacy); }
  view::View body() const;
};

/// The same as a modifier.
view::View openSettingsAccess(const view::View& content);

}  // namespace tarnwell::settingsaccess
