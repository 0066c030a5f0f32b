#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "kit/Printing.h"
#include "kit/control/Control.h"
#include "kit/turn/Turn.h"
#include "view/BoxHost.h"
#include "view/scenes/HostedWindow.h"
#include "view/values/Binding.h"

namespace tarnwell::view {

using Lines = std::vector<std::string>;

/// A view in a window of the platform in memory, mounted but not open.
class Stage {
 public:
  explicit Stage(const View& content, const EnvironmentValues& environment = makeEnvironment());

  /// With numbers as in English.
  static EnvironmentValues makeEnvironment();

  void open() { window_->open(); }
  void close() { window_->close(); }
  void perform(const kit::Action& action) { turn_.perform(action); }

  /// Another view in the place of the content; part of the event that is under way, or an event of its own.
  void show(const View& content);
  /// Takes the window away, with all that is mounted in it.
  void drop() { window_.reset(); }

  std::string dump() const;

  /// The control of that kind with that name.
  template <class C>
  C& find(const std::string& name) const {
    return *lookFor<C>([&name](const C& control) { return control.accessibleName() == name; }, name);
  }
  /// The first of that kind.
  template <class C>
  C& first() const {
    return *lookFor<C>([](const C&) { return true; }, "any");
  }
  bool has(const std::string& name) const;
  const kit::Rect& frame(const std::string& name) const { return find<kit::Control>(name).frame(); }

  /// What the platform was told since the last call.
  Lines told();

  BoxHost& host() { return host_; }
  kit::Turn& turn() { return turn_; }
  HostedWindow& hosted() { return *window_; }
  kit::Window& window() { return window_->window(); }

 private:
  template <class C, class Test>
  C* lookFor(const Test& test, const std::string& name) const {
    for (kit::Control* control : window_->tree().controls()) {
      auto* found = dynamic_cast<C*>(control);
      if (found != nullptr && test(*found)) {
        return found;
      }
    }
    throw std::out_of_range("no control of that kind is called " + name);
  }

  BoxHost host_;
  kit::Turn turn_;
  std::shared_ptr<Binding<std::shared_ptr<const View>>> content_ =
      std::make_shared<Binding<std::shared_ptr<const View>>>();
  std::unique_ptr<HostedWindow> window_;
};

}  // namespace tarnwell::view
