#pragma once

#include <string>
#include <tuple>

#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {

/// Opens an address in the user's browser.
struct Link {
  std::string title = {};
  std::string destination = {};
  Environment<OpenUrlKey> openURL = {};

  auto stored() { return std::tie(openURL); }
  View body() const;
};

}  // namespace tarnwell::view
