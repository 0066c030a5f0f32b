#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "kit/turn/Subscription.h"

namespace tarnwell::kit {

/// Who wants to hear of something. An observer may leave, or make others leave, while all are being told; a list that
/// goes leaves its subscriptions without effect.
template <class... A>
class Observers {
 public:
  using Handler = std::function<void(A...)>;

  [[nodiscard]] Subscription add(Handler handler) {
    const int number = next_++;
    handlers_->emplace(number, std::move(handler));
    const std::weak_ptr weak = handlers_;
    return Subscription([weak, number] {
      if (const auto handlers = weak.lock()) {
        handlers->erase(number);
      }
    });
  }

  /// In the order in which they came.
  void tell(A... arguments) const {
    // A number, not an iterator: the one being told may be the one that leaves.
    const auto handlers = handlers_;
    auto entry = handlers->begin();
    while (entry != handlers->end()) {
      const int number = entry->first;
      const Handler handler = entry->second;
      handler(arguments...);
      entry = handlers->upper_bound(number);
    }
  }

 private:
  std::shared_ptr<std::map<int, Handler>> handlers_ = std::make_shared<std::map<int, Handler>>();
  int next_ = 0;
};

}  // namespace tarnwell::kit
