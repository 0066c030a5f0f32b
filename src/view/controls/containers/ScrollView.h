#pragma once

#include <string>

#include "view/tree/Composite.h"

namespace tarnwell::view {

/// A view that scrolls where it lacks room, in a frame of its own.
struct ScrollView {
  std::string title = {};  ///< What a screen reader calls it.
  View content;

  View body() const;
};

}  // namespace tarnwell::view
