#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "kit/turn/Action.h"
#include "release/protocol/FeedItem.h"
#include "updateclient/installation/HandOver.h"

namespace tarnwell::updateclient {

/// What the updater shows to the user. One thing is on the screen at a time: each `show` replaces what was there,
/// without running its answer. An answer is given once, on the main thread, from the event loop and never from inside
/// the call that asked; closing a panel answers as its most harmless button does.
class UserDriver {
 public:
  /// Whose wish a check was: a background check must not take the keyboard.
  enum class Origin { user, schedule };

  enum class Choice { install, remindLater, skip };

  struct Permission {
    bool checks = false;
    bool downloads = false;
  };

  virtual ~UserDriver() = default;

  /// May new versions be looked for without being asked?
  virtual void showPermission(std::function<void(Permission)> answer) = 0;
  virtual void showChecking(kit::Action cancel) = 0;
  /// For an informational item "install" opens its page. A critical one is not offered for skipping.
  virtual void showFound(const release::FeedItem& item, Origin origin, std::function<void(Choice)> answer) = 0;
  virtual void showDownloading(const release::FeedItem& item, kit::Action cancel) = 0;
  /// Of what `showDownloading` showed.
  virtual void showProgress(std::uint64_t received, std::uint64_t expected) = 0;
  virtual void showVerifying(const release::FeedItem& item, kit::Action cancel) = 0;
  /// Downloaded and verified; installing it is the user's decision.
  virtual void showReady(const release::FeedItem& item, Origin origin, std::function<void(Choice)> answer) = 0;
  /// On its way to where it is installed.
  virtual void showInstalling(const release::FeedItem& item, kit::Action cancel) = 0;
  /// What is left for the user to do. Unasked, so as not to cover what has just been opened.
  virtual void showHandedOver(const release::FeedItem& item, HandOver handOver, Origin origin,
                              kit::Action acknowledged) = 0;
  virtual void showUpToDate(const std::string& shownVersion, kit::Action acknowledged) = 0;
  /// Why no check is possible here, in a sentence for people.
  virtual void showObstacle(const std::string& reason, kit::Action acknowledged) = 0;
  /// `reason` is a sentence for people. `retry` is empty where trying again cannot help.
  virtual void showFailure(const std::string& reason, kit::Action acknowledged, kit::Action retry) = 0;
  /// In the browser.
  virtual void openPage(const std::string& address) = 0;
  /// Takes away whatever is shown, without running its answer.
  virtual void dismiss() = 0;
};

}  // namespace tarnwell::updateclient
