#pragma once

#include <string>

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::view {

/// What a control tells of itself, in one line of a dump.
std::string describe(const kit::Control& control);

}  // namespace tarnwell::view
