#pragma once

#include <optional>

#include "kit/application/Application.h"
#include "kit/turn/NotificationCenter.h"
#include "kit/turn/Subscription.h"

namespace tarnwell::app {

/// An application and window delegate that watches for a settings window. The application does not install it.
class AppDelegate2 final : public kit::Object {
 public:
  /// The application is borrowed and outlives the delegate.
  explicit AppDelegate2(kit::Application& application);

  /// None before the launch; kept, without effect, after the end.
  std::optional<kit::Subscription> settingsWindowObserver = std::nullopt;

  /// From now on each list of windows is printed, the present one first, and the first window of it with the
  /// identifier "com.apple.preferences.window" gets this delegate.
  void applicationDidFinishLaunching();
  void windowWillClose(const kit::Notification& notification);
  void applicationWillTerminate();

 private:
  kit::Application& application_;
};

}  // namespace tarnwell::app
