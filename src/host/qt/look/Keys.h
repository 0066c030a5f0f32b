#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "kit/host/KeyEvent.h"
#include "kit/menus/MenuItem.h"

class QKeyEvent;

namespace tarnwell::host_qt {

/// Control counts as Command, as is usual on this platform.
kit::KeyEvent toKeyEvent(const QKeyEvent& event);

/// A key equivalent as menus show it here: "Ctrl+," for a comma with Command, "Ctrl+Q" for a "q" and for a "Q". Shift
/// is shown where the equivalent names it. Empty for none.
QString keyEquivalentText(const kit::MenuItem::KeyEquivalent& equivalent);

/// The same for a menu that another program shows, by the names that such menus are described with: "Control",
/// "Q".
QStringList keyEquivalentNames(const kit::MenuItem::KeyEquivalent& equivalent);

}  // namespace tarnwell::host_qt
