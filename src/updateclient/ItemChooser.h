#pragma once

#include <optional>
#include <string>
#include <vector>

#include "release/protocol/FeedItem.h"
#include "updateclient/UserDriver.h"

namespace tarnwell::updateclient {

/// Picks the item of a feed that is to be offered.
class ItemChooser {
 public:
  struct Circumstances {
    std::string runningVersion = {};
    /// Of the kernel, the one number that all Linux systems share and that grows: what `minimumSystemVersion` asks for.
    std::string systemVersion = {};
    std::vector<std::string> channels = {};  // Beside the one without a name.
    std::string skippedVersion = {};
    /// What was given to the installer while this program ran; empty for nothing.
    std::string handedOverVersion = {};
    UserDriver::Origin origin = UserDriver::Origin::user;
  };

  explicit ItemChooser(Circumstances circumstances) : circumstances_(std::move(circumstances)) {}

  /// The newest item that suits this system and is newer than what runs, both in versions that are such; of several
  /// with the same version the first. Unless the user asks, what is not newer than the skipped version is passed over,
  /// but never a critical item; and what is not newer than the version that was handed over, whatever it is.
  std::optional<release::FeedItem> best(const std::vector<release::FeedItem>& items) const;

 private:
  bool suits(const release::FeedItem& item) const;
  bool isPassedOver(const release::FeedItem& item) const;

  Circumstances circumstances_;
};

}  // namespace tarnwell::updateclient
