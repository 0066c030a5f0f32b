#pragma once

#include "core/MinEffect.h"

namespace tarnwell::core {

/// The settings of the Dock, three times each: the constant default, the value last read from or written to the Dock,
/// and the value being edited. Speeds are seconds. The initial speeds differ from each other and from what a Dock is
/// likely to hold; a load replaces them.
struct DockValues {
  const double delaySpeedDefault = 0.2;
  const double animationSpeedDefault = 0.5;
  const bool scrollToExposeDefault = false;
  const MinEffect minEffectDefault = MinEffect::genie;
  const bool showHiddenDefault = false;
  const bool activeAppsOnlyDefault = false;
  const bool singleAppModeDefault = false;

  double delaySpeedCurrent = 9.0;
  double animationSpeedCurrent = 9.0;
  bool scrollToExposeCurrent = false;
  MinEffect minEffectCurrent = MinEffect::genie;
  bool showHiddenCurrent = false;
  bool activeAppsOnlyCurrent = false;
  bool singleAppModeCurrent = false;

  double delaySpeed = 8.0;
  double animationSpeed = 8.0;
  bool scrollToExpose = false;
  MinEffect minEffect = MinEffect::genie;
  bool showHidden = false;
  bool activeAppsOnly = false;
  bool singleAppMode = false;
};

}  // namespace tarnwell::core
