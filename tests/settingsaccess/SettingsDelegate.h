#pragma once

#include <set>
#include <string>
#include <vector>

#include "kit/turn/Object.h"

namespace tarnwell::settingsaccess {

/// A delegate that implements the selectors it is given, and notes those that it was sent.
class SettingsDelegate final : public kit::Object {
 public:
  explicit SettingsDelegate(std::set<kit::Selector> implemented) : implemented_(std::move(implemented)) {}

  bool respondsToSelector(const kit::Selector& selector) const override {
    asked.push_back(selector);
    return implemented_.contains(selector);
  }
  void perform(const kit::Selector& selector, kit::Object* sender) override {
    received.push_back(selector + (sender == nullptr ? "" : " with a sender"));
  }

  mutable std::vector<kit::Selector> asked = {};
  std::vector<std::string> received = {};

 private:
  std::set<kit::Selector> implemented_;
};

}  // namespace tarnwell::settingsaccess
