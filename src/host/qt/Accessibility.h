#pragma once

#include <memory>

#include "kit/Aspect.h"

class QAccessibleEvent;
class QWidget;

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::host_qt {

/// Makes the widgets of controls known to screen readers by what they are. Once, before the first window.
void installAccessibility();

/// What a screen reader is told when `control`, which `widget` shows, has changed in `aspect`; null for nothing.
std::unique_ptr<QAccessibleEvent> announcementOf(QWidget& widget, const kit::Control& control, kit::Aspect aspect);

/// Tells it, where there is a screen reader.
void announceChange(QWidget& widget, const kit::Control& control, kit::Aspect aspect);

}  // namespace tarnwell::host_qt
