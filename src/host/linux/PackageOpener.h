#pragma once

#include <chrono>
#include <functional>

#include "kit/turn/Subscription.h"
#include "system/events/Timer.h"
#include "system/processes/ChildReaper.h"
#include "updateclient/engine/Watch.h"
#include "updateclient/installation/PackageDesktop.h"

namespace tarnwell::host_linux {

/// Gives files to the program that opens them on this desktop.
class PackageOpener final : public updateclient::PackageDesktop {
 public:
  /// How long the desktop has to say that it cannot open a file. Some stay with it until the user is done.
  explicit PackageOpener(const updateclient::Watch& watch,
                         std::chrono::milliseconds patience = std::chrono::seconds(3));

  system::Result<void> open(const std::filesystem::path& file, Opened opened) override;
  void stopWaiting() override;

 private:
  void tell(const system::Result<void>& result);

  std::chrono::milliseconds patience_;
  system::Timer timer_;
  system::ChildReaper openers_;
  pid_t awaited_ = -1;  // Among the openers.
  Opened opened_;
  kit::Subscription timing_;
  kit::Subscription reaping_;
};

}  // namespace tarnwell::host_linux
