#pragma once

#include <string>

class QWidget;

namespace tarnwell::host_qt {

/// The desktop's permission to come to the front, which the launcher was given for this process; empty for none.
/// Read before the toolkit starts, which uses it up.
std::string givenActivationToken();

/// Keeps such a permission, perhaps another process's, for the next window that comes to the front.
void useActivationToken(const std::string& token);

/// Puts the window in front of all others and asks for the keyboard, with the permission that is kept if there is one;
/// for a window that does not stand yet, when it does.
void bringToFront(QWidget& window);

}  // namespace tarnwell::host_qt
