#pragma once

#include "core/DockSettings.h"

namespace tarnwell::core {

/// Calls `action(edited, current, byDefault, defaultValue, savedValue)` with the three fields of each preference and
/// what the first holds after fixtures::resetCommands() and fixtures::savedCommands(), in the order of those.
template <class Action>
void forEachField(const Action& action) {
  using S = DockSettings;
  action(&S::delaySpeed, &S::delaySpeedCurrent, &S::delaySpeedDefault, 0.2, 0.7);
  action(&S::animationSpeed, &S::animationSpeedCurrent, &S::animationSpeedDefault, 0.5, 0.3);
  action(&S::scrollToExpose, &S::scrollToExposeCurrent, &S::scrollToExposeDefault, false, true);
  action(&S::minEffect, &S::minEffectCurrent, &S::minEffectDefault, MinEffect::genie, MinEffect::suck);
  action(&S::showHidden, &S::showHiddenCurrent, &S::showHiddenDefault, false, true);
  action(&S::activeAppsOnly, &S::activeAppsOnlyCurrent, &S::activeAppsOnlyDefault, false, true);
  action(&S::singleAppMode, &S::singleAppModeCurrent, &S::singleAppModeDefault, false, true);
}

}  // namespace tarnwell::core
