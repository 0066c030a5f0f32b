#pragma once

#include <memory>
#include <string>

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

  virtual bool respondsToSelector(const Selector& /*selector*/) const { return false; }

  /// `sender` may be null. A selector that the object does not respond to does nothing.
  virtual void perform(const Selector& /*selector*/, Object* /*sender*/) {}
};

}  // namespace tarnwell::kit
