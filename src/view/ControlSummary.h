#pragma once

#include <string>

#include "kit/Button.h"
#include "kit/Pane.h"
#include "kit/Slider.h"

namespace tarnwell::view {

/// A control's state in one line of a dump.
std::string describe(const kit::Button& button);
std::string describe(const kit::Slider& slider);
std::string describe(const kit::Pane& pane);

}  // namespace tarnwell::view
