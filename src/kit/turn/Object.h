#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "kit/turn/Selectors.h"

namespace tarnwell::kit {

/// The name of an action, as the platform writes it: "terminate:".
using Selector = std::string;

/// What actions are sent to. A target is held weakly.
class Object : public std::enable_shared_from_this<Object> {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  virtual bool respondsToSelector(const Selector& selector) const { return actions_.contains(selector); }

  /// `sender` may be null. A selector that the object does not respond to does nothing.
  virtual void perform(const Selector& selector, Object* sender) {
    if (const auto found = actions_.find(selector); found != actions_.end()) {
      found->second(sender);
    }
  }

 protected:
  void respondTo(const Selector& selector, std::function<void(Object* sender)> action) {
    actions_[selector] = std::move(action);
  }

 private:
  std::map<Selector, std::function<void(Object* sender)>> actions_;
};

}  // namespace tarnwell::kit
