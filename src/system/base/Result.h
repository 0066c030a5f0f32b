#pragma once

#include <concepts>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

namespace tarnwell::system {

/// Why something did not happen: one line for the user, without a line end.
struct Failure {
  std::string message = {};
  /// The system's reason, an errno value; 0 where it is not the system's.
  int error = 0;
};

/// "cannot write /a/b: No space left on device" of `what` and the reason that errno holds.
Failure systemFailure(const std::string& what);

/// What was asked for, or why not. True where it was had; only then there is something to look at.
template <class T>
class Result {
 public:
  template <class U>
  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): none that is a Result comes here
  requires(std::convertible_to<U, T> && !std::same_as<std::remove_cvref_t<U>, Result>) Result(U&& value)
      : value_(std::in_place_index<0>, std::forward<U>(value)) {}
  Result(Failure failure) : value_(std::in_place_index<1>, std::move(failure)) {}

  explicit operator bool() const { return value_.index() == 0; }
  T& operator*() & { return std::get<0>(value_); }
  const T& operator*() const& { return std::get<0>(value_); }
  T&& operator*() && { return std::get<0>(std::move(value_)); }
  T* operator->() { return &std::get<0>(value_); }
  const T* operator->() const { return &std::get<0>(value_); }

  /// Only where it is false.
  const Failure& error() const { return std::get<1>(value_); }

 private:
  std::variant<T, Failure> value_;
};

/// That something was done, or why not.
template <>
class Result<void> {
 public:
  Result() = default;
  Result(Failure failure) : failure_(std::move(failure)) {}

  explicit operator bool() const { return !failure_; }
  const Failure& error() const { return *failure_; }

 private:
  std::optional<Failure> failure_;
};

}  // namespace tarnwell::system
