#pragma once

#include <string>
#include <utility>
#include <vector>

#include "kit/turn/Object.h"

namespace tarnwell::kit {

/// Responds to one selector and notes each time that it was performed.
class Responder final : public Object {
 public:
  Responder(std::string name, Selector selector, std::vector<std::string>& notes)
      : name_(std::move(name)), selector_(std::move(selector)), notes_(notes) {}

  Object* lastSender() const { return lastSender_; }

  bool respondsToSelector(const Selector& selector) const override { return selector == selector_; }
  void perform(const Selector& selector, Object* sender) override {
    lastSender_ = sender;
    notes_.push_back(name_ + " " + selector);
  }

 private:
  std::string name_;
  Selector selector_;
  std::vector<std::string>& notes_;
  Object* lastSender_ = nullptr;
};

}  // namespace tarnwell::kit
