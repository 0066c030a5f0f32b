#pragma once

#include <memory>
#include <optional>
#include <string>

#include "view/values/View.h"

namespace tarnwell::view {

/// How far something has come, as wide as it is offered.
struct ProgressBar {
  std::string title = {};                      ///< Hidden: what screen readers call it.
  std::optional<double> share = std::nullopt;  ///< From 0 to 1; absent while it is unknown.
};

std::shared_ptr<MountedNode> makeNode(const ProgressBar& bar, const Place& place);

}  // namespace tarnwell::view
