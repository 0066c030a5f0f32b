#pragma once

#include "view/values/EnvironmentValues.h"
#include "view/values/View.h"

namespace tarnwell::view {

class MountedNode;
class MountedTree;

/// Where a node is made: its tree, its parent (null for the root), what it describes, what flows down to it.
struct Place {
  MountedTree& tree;
  MountedNode* parent;
  View view;
  EnvironmentValues environment;
};

}  // namespace tarnwell::view
