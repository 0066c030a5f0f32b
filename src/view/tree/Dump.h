#pragma once

#include <string>

namespace tarnwell::view {

class MountedNode;

/// A picture of what stands below `node`: a line for each view, indented by depth, from the controls' own state. Nodes
/// that only pass things on are left out; a disabled control and a turned one say so. Calls no body.
std::string dump(const MountedNode& node);

}  // namespace tarnwell::view
