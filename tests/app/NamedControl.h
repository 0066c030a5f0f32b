#pragma once

#include <string>

#include "kit/control/Control.h"
#include "view/tree/MountedTree.h"

namespace tarnwell::app {

/// The control that a screen reader calls that: the last in the tree, as a row's label stands before its control.
kit::Control& controlNamed(const std::string& name, const view::MountedTree& tree);

bool hasControlNamed(const std::string& name, const view::MountedTree& tree);

}  // namespace tarnwell::app
