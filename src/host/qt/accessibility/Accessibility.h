#pragma once

namespace tarnwell::host_qt {

/// Makes the widgets of controls known to screen readers by what they are, and goes between the two. Once, before the
/// first window.
void installAccessibility();

}  // namespace tarnwell::host_qt
