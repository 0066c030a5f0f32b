#pragma once

#include <memory>
#include <string>

#include "view/layout/Spacer.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A row of a form: a label, with a description under its title, on the left; a control on the right. The control
/// takes its ideal size first, the label gets the rest. Screen readers are told that label and description are its own.
/// Where the control is a switch, a click beside it counts as one on it.
struct LabeledRow {
  View label = EmptyView{};
  /// What screen readers call the control.
  std::string title = {};
  View description = EmptyView{};
  View control = EmptyView{};
};

std::shared_ptr<MountedNode> makeNode(const LabeledRow& row, const Place& place);

}  // namespace tarnwell::view
