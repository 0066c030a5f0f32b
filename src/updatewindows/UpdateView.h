#pragma once

#include <tuple>

#include "updatewindows/UpdatePage.h"
#include "view/tree/Composite.h"

namespace tarnwell::updatewindows {

/// A page: the application's icon, and beside it texts, what the page is about, and buttons.
struct UpdateView {
  view::ObservedObject<ShownPage> shown;

  /// Of what stands beside the icon, in points.
  static constexpr double textWidth = 388;

  auto stored() { return std::tie(shown); }
  view::View body() const;
};

}  // namespace tarnwell::updatewindows
