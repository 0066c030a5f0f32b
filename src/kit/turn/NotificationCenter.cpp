#include "kit/turn/NotificationCenter.h"

#include <utility>

namespace tarnwell::kit {

Subscription NotificationCenter::addObserver(const std::string& name, Handler handler) {
  return observers_[name].add(std::move(handler));
}

void NotificationCenter::post(const Notification& notification) { observers_[notification.name].tell(notification); }

}  // namespace tarnwell::kit
