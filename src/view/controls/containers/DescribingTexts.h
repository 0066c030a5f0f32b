#pragma once

#include "view/values/AccessibleContext.h"

namespace tarnwell::view {

class MountedNode;

/// What stands around a control, with another text before those that explain it.
AccessibleContext describedBy(const MountedNode& text, const AccessibleContext& around);

/// The first control below `node` that is only read; null for none.
const kit::Control* firstTextIn(const MountedNode& node);

}  // namespace tarnwell::view
