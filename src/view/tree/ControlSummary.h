#pragma once

#include <string>

#include "kit/controls/Button.h"
#include "kit/controls/Pane.h"
#include "kit/controls/Slider.h"

namespace tarnwell::view {

/// A control's state in one line of a dump.
std::string describe(const kit::Button& button);
std::string describe(const kit::Slider& slider);
std::string describe(const kit::Pane& pane);

}  // namespace tarnwell::view
