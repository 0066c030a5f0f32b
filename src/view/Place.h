#pragma once

#include "view/EnvironmentValues.h"
#include "view/View.h"

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
