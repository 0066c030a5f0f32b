#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "system/base/Result.h"

namespace tarnwell::updateclient {

/// What the desktop does with packages.
class PackageDesktop {
 public:
  using Opened = std::function<void(const system::Result<void>&)>;

  virtual ~PackageDesktop() = default;

  /// Gives a file to the program that opens such files. Returns why it could not even begin, as a sentence for people;
  /// otherwise `opened` is called once, later, from the event loop. One file at a time.
  virtual system::Result<void> open(const std::filesystem::path& file, Opened opened) = 0;
  /// Nothing is called any more. What was given to the desktop stays with it.
  virtual void stopWaiting() = 0;
};

}  // namespace tarnwell::updateclient
