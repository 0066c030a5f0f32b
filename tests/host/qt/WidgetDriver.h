#pragma once

#include <QtCore/QPoint>
#include <QtCore/Qt>
#include <string>

#include "kit/host/Geometry.h"

class QAccessibleInterface;
class QWidget;

namespace tarnwell::kit {
class Control;
class PopUpButton;
class TextField;
class Window;
}  // namespace tarnwell::kit

/// The user's hands on widgets. Input goes in where the display's would, at the toolkit's windows: what is hit, whether
/// it is enabled and where the focus goes is decided on the way.
namespace tarnwell::host_qt::driver {

/// The widget that shows `control`; a fault where there is none.
QWidget& widget(const kit::Control& control);
QWidget& widget(const kit::Window& window);

/// What screen readers see of the widget that shows `control`.
QAccessibleInterface& seen(const kit::Control& control);

void click(const kit::Control& control);
/// At a point of the control's frame.
void clickAt(const kit::Control& control, kit::Point at);

/// Where no control is.
void clickGround(const kit::Window& window, kit::Point at);

void press(const kit::Control& control, kit::Point at);
void moveTo(const kit::Control& control, kit::Point at);
void release(const kit::Control& control, kit::Point at);
/// When the control that was pressed is gone.
void releaseAnywhere(const kit::Window& window);

/// Puts the text in the place of what the field holds, and leaves it there, not committed.
void type(const kit::TextField& field, const std::string& text);

/// To whatever has the keyboard in the window.
void key(const kit::Window& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// To an open menu.
void keyTo(const QWidget& topLevel, Qt::Key key);
/// Gives the keyboard to `control` first, as Tab does.
void keyAt(const kit::Control& control, Qt::Key key);

/// Opens the menu and clicks the row.
void choose(const kit::PopUpButton& button, int index);

void turnWheel(const kit::Control& control, int notches);

/// Lets everything that waits run, deletions included.
void settle();

}  // namespace tarnwell::host_qt::driver
