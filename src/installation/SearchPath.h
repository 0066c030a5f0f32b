#pragma once

#include <string>
#include <string_view>

namespace tarnwell::installation {

/// `before` with `folder` at the front and nowhere else. The system's own folders stand in for an empty `before`.
std::string searchPathWith(std::string_view folder, std::string_view before);

}  // namespace tarnwell::installation
