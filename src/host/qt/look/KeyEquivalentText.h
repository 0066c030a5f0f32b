#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <string_view>

#include "kit/menus/MenuItem.h"

namespace tarnwell::host_qt {

/// A key without its modifiers as menus show it here: a letter in upper case, as on the key.
QString keyShownInMenus(std::string_view key);

/// A key equivalent as menus show it here: "Ctrl+," for a comma with Command, "Ctrl+Q" for a "q" and for a "Q". Shift
/// is shown where the equivalent names it. Empty for none.
QString keyEquivalentText(const kit::MenuItem::KeyEquivalent& equivalent);

/// The same for a menu that another program shows, by the names that such menus are described with: "Control",
/// "Q".
QStringList keyEquivalentNames(const kit::MenuItem::KeyEquivalent& equivalent);

}  // namespace tarnwell::host_qt
