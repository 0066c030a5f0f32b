#pragma once

#include <functional>
#include <map>
#include <string>

#include "kit/turn/Object.h"
#include "kit/turn/Observers.h"

namespace tarnwell::kit {

/// Something that is made known to the observers.
struct Notification {
  std::string name = {};
  /// What it is about; may be null.
  Object* object = nullptr;
};

/// Posted by a window that is about to close, while it still stands.
inline constexpr const char* windowWillCloseNotification = "NSWindowWillCloseNotification";

/// Posted when the user starts the application that runs already.
inline constexpr const char* reopenNotification = "NSApplicationReopenNotification";

class NotificationCenter {
 public:
  using Handler = std::function<void(const Notification&)>;

  [[nodiscard]] Subscription addObserver(const std::string& name, Handler handler) {
    return observers_[name].add(std::move(handler));
  }
  void post(const Notification& notification) { observers_[notification.name].tell(notification); }

 private:
  std::map<std::string, Observers<const Notification&>> observers_;
};

}  // namespace tarnwell::kit
