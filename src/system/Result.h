#pragma once

#include <string>
#include <variant>

namespace tarnwell::system {

/// Why something could not be had, as one line for the user without a line end.
struct Failure {
  std::string message = {};
};

/// What was asked for, or why not.
template <class T>
using Result = std::variant<T, Failure>;

}  // namespace tarnwell::system
