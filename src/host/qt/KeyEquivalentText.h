#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "kit/MenuItem.h"

namespace tarnwell::host_qt {

/// A key equivalent as menus show it here: "Ctrl+," for a comma with Command, "Ctrl+Q" for a "q", "Ctrl+Shift+Q" for
/// an upper-case "Q", since that is how it is typed. Empty for none.
QString keyEquivalentText(const kit::MenuItem::KeyEquivalent& equivalent);

/// The same for a menu that another program shows, by the names that such menus are described with: "Control", "Shift",
/// "Q".
QStringList keyEquivalentNames(const kit::MenuItem::KeyEquivalent& equivalent);

}  // namespace tarnwell::host_qt
