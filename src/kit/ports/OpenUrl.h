#pragma once

#include <functional>
#include <string>

namespace tarnwell::kit {

/// Opens an address in the user's browser, without waiting for it.
using OpenUrl = std::function<void(const std::string& address)>;

}  // namespace tarnwell::kit
