#pragma once

#include <functional>

namespace tarnwell::kit {

/// Something to do, once or often, on the main thread.
using Action = std::function<void()>;

}  // namespace tarnwell::kit
