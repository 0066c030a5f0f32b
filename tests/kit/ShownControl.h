#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/headless/HeadlessHost.h"
#include "host/headless/JournalPeer.h"
#include "kit/Printing.h"

namespace tarnwell::kit {

/// A control that the platform in memory shows.
template <class C>
class ShownControl {
 public:
  template <class... Arguments>
  explicit ShownControl(Arguments&&... arguments)
      : control_(std::make_unique<C>(std::forward<Arguments>(arguments)...)) {
    showAgain();
    told();
  }

  C* operator->() const { return control_.get(); }
  C& operator*() { return *control_; }

  void showAgain() { control_->attach(control_->makePeer(host_, parent_)); }

  /// What the peer was told since the last call.
  std::vector<std::string> told() {
    auto lines = host_.journal().lines();
    host_.journal().clear();
    return lines;
  }

  host_headless::HeadlessHost& host() { return host_; }

 private:
  host_headless::HeadlessHost host_;
  host_headless::JournalPeer parent_ = host_headless::JournalPeer(host_.journal(), "parent");
  std::unique_ptr<C> control_;
};

using Lines = std::vector<std::string>;

}  // namespace tarnwell::kit
