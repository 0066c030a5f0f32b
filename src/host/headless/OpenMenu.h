#pragma once

#include <string>
#include <vector>

#include "kit/application/Application.h"
#include "kit/application/Menu.h"

namespace tarnwell::host_headless {

/// A menu that is on the screen, as its user sees it. Choosing an entry closes it.
class OpenMenu {
 public:
  /// Both are borrowed.
  OpenMenu(kit::Application& application, const kit::Menu& menu) : application_(application), menu_(menu) {}

  /// The entries in order, "-" for a separator.
  std::vector<std::string> titles() const;

  /// Chooses the first entry of that title; one that is not there is a fault of the test.
  void choose(const std::string& title);

  /// Presses a key. False when nothing answered.
  bool press(const kit::KeyEvent& key) { return application_.responders().performKeyEquivalent(key); }

 private:
  kit::Application& application_;
  const kit::Menu& menu_;
};

}  // namespace tarnwell::host_headless
