#pragma once

#include "kit/Aspect.h"

class QWidget;

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::host::qt {

/// Makes the widgets of controls known to screen readers by what they are. Once, before the first window.
void installAccessibility();

/// Tells a screen reader, where there is one, that `control` has changed in `aspect`.
void announceChange(QWidget& widget, const kit::Control& control, kit::Aspect aspect);

}  // namespace tarnwell::host::qt
