#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>

#include "system/ChildReaper.h"
#include "system/Descriptor.h"
#include "system/Result.h"

namespace tarnwell::updater {

/// Gives files to the program that opens them on this desktop, one at a time.
class PackageOpener {
 public:
  using Opened = std::function<void(std::optional<system::Failure>)>;

  /// How long the desktop has to say that it cannot open a file. Some stay with it until the user is done.
  explicit PackageOpener(std::chrono::milliseconds patience);

  /// Returns why it could not even begin, as a sentence for people. Otherwise `opened` is called once, from `dispatch`.
  std::optional<system::Failure> open(const std::filesystem::path& file, Opened opened);
  /// Nothing is called any more. What was given to the desktop stays with it.
  void stopWaiting();

  /// Readable when `dispatch` has something to do. The same for the opener's whole life.
  int descriptor() const { return events_.number(); }
  /// Goes on with what was begun. What it calls may end the opener.
  void dispatch();

 private:
  void setTimer(std::chrono::milliseconds time) const;
  void watch(int number) const;
  void tell(std::optional<system::Failure> failure);

  std::chrono::milliseconds patience_;
  system::Descriptor events_;
  system::Descriptor timer_;
  system::ChildReaper openers_;
  pid_t awaited_ = -1;  // Among the openers.
  Opened opened_;
};

}  // namespace tarnwell::updater
