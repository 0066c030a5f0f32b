#pragma once

#include <chrono>

namespace tarnwell::app {

/// A model that could be kept. Nothing keeps one.
struct Item {
  std::chrono::system_clock::time_point timestamp = {};
};

}  // namespace tarnwell::app
