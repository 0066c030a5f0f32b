#pragma once

#include <memory>
#include <vector>

#include "kit/host/Aspect.h"

class QAccessibleEvent;
class QWidget;

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::host_qt {

using Announcements = std::vector<std::unique_ptr<QAccessibleEvent>>;

/// What a screen reader is told when `control`, which `widget` shows, has changed in `aspect`: nothing
/// as long as it is not seen.
Announcements announcementsOf(QWidget& widget, const kit::Control& control, kit::Aspect aspect);

/// False for one of the many events of a page that comes or goes as a whole.
bool isWorthTelling(const QAccessibleEvent& event);

/// Tells what is new of a control that is seen, where there is a screen reader.
void announceChange(QWidget& widget, const kit::Control& control, kit::Aspect aspect);

}  // namespace tarnwell::host_qt
