#pragma once

#include <string>

#include "view/ControlLine.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

/// Adds what stands at `node` and below it to a picture.
inline void append(const MountedNode& node, int indent, std::string& picture) {
  const bool isControl = node.summary().empty() && node.control() != nullptr;
  const std::string summary = isControl ? lineOf(*node.control()) : node.summary();
  if (!summary.empty()) {
    picture += std::string(static_cast<std::size_t>(indent) * 2, ' ') + summary + '\n';
  }
  for (const auto& child : node.children()) {
    append(*child, summary.empty() ? indent : indent + 1, picture);
  }
}

/// A picture of what stands below `node`: a line for each view, indented by depth, from the controls' own state. Nodes
/// that only pass things on are left out; a disabled control and a turned one say so. Calls no body.
inline std::string dump(const MountedNode& node) {
  std::string picture;
  append(node, 0, picture);
  return picture;
}

}  // namespace tarnwell::view
