#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace tarnwell::standin {

/// Why something did not happen: for the user, in small letters, without a full stop or a line end.
struct Failure {
  std::string reason;
};

/// What was asked for, or why not.
template <class T>
using Result = std::variant<T, Failure>;

/// "cannot write /a/b: No space left on device", in the system's words for errno.
Failure systemFailure(std::string_view what, const std::string& path);

}  // namespace tarnwell::standin
