#pragma once

#include <string>

#include "kit/Button.h"
#include "kit/Slider.h"

namespace tarnwell::view {

/// A control's state in one line of a dump.
std::string describe(const kit::Button& button);
std::string describe(const kit::Slider& slider);

}  // namespace tarnwell::view
