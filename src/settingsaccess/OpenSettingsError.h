#pragma once

#include <exception>

namespace tarnwell::settingsaccess {

/// Why the settings window could not be opened.
enum class OpenSettingsError { unsupportedPlatform, selectorNotFound, settingsLinkNotConnected };

/// Why the way of the older systems did not open it.
enum class LegacyOpenSettingsError { unsupportedPlatform, selectorNotFound };

/// How both travel through actions that may fail with anything.
template <class E>
class Failure final : public std::exception {
 public:
  explicit Failure(E error) : error_(error) {}

  E error() const { return error_; }
  const char* what() const noexcept override { return "the settings window could not be opened"; }

 private:
  E error_;
};

}  // namespace tarnwell::settingsaccess
