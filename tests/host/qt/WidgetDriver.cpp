#include "host/qt/WidgetDriver.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "diagnostics/Fault.h"
#include "host/qt/control/WidgetPeer.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/window/WindowPeer.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_qt::driver {
namespace {

constexpr int unitsPerNotch = 120;

kit::Point centre(const kit::Control& control) {
  return {.x = control.bounds().width / 2, .y = control.bounds().height / 2};
}

struct Spot {
  QWindow* window = nullptr;
  QPoint position = {};
};

Spot spotOf(const kit::Control& control, kit::Point at) {
  const QWidget& target = widget(control);
  return {.window = target.window()->windowHandle(),
          .position = target.mapTo(target.window(), toQPointF(at).toPoint())};
}

// The press may end the window.
void pressAndRelease(const QPointer<QWindow>& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyPress(window, key, modifiers);
  if (window) {
    QTest::keyRelease(window, key, modifiers);
  }
}

}  // namespace

QWidget& widget(const kit::Control& control) {
  QWidget* found = WidgetPeer::widgetOf(control);
  if (found == nullptr) {
    diagnostics::fault("the control has no widget");
  }
  return *found;
}

QWidget& widget(const kit::Window& window) {
  const auto* peer = dynamic_cast<const WindowPeer*>(window.peer());
  if (peer == nullptr || peer->widget() == nullptr) {
    diagnostics::fault("the window has no widget");
  }
  return *peer->widget();
}

QAccessibleInterface& seen(const kit::Control& control) {
  return *QAccessible::queryAccessibleInterface(&widget(control));
}

void click(const kit::Control& control) { clickAt(control, centre(control)); }

void clickAt(const kit::Control& control, kit::Point at) {
  const Spot spot = spotOf(control, at);
  QTest::mouseClick(spot.window, Qt::LeftButton, {}, spot.position);
}

void clickGround(const kit::Window& window, kit::Point at) {
  QTest::mouseClick(widget(window).windowHandle(), Qt::LeftButton, {}, toQPointF(at).toPoint());
}

void press(const kit::Control& control, kit::Point at) {
  const Spot spot = spotOf(control, at);
  QTest::mousePress(spot.window, Qt::LeftButton, {}, spot.position);
}

void moveTo(const kit::Control& control, kit::Point at) {
  const Spot spot = spotOf(control, at);
  QTest::mouseMove(spot.window, spot.position);
}

void release(const kit::Control& control, kit::Point at) {
  const Spot spot = spotOf(control, at);
  QTest::mouseRelease(spot.window, Qt::LeftButton, {}, spot.position);
}

void releaseAnywhere(const kit::Window& window) {
  QTest::mouseRelease(widget(window).windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
}

void type(const kit::TextField& field, const std::string& text) {
  click(field);
  QWindow* window = widget(field).window()->windowHandle();
  QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(window, Qt::Key_Delete);
  QTest::keyClicks(&widget(field), toQString(text));
}

void key(const kit::Window& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  pressAndRelease(widget(window).windowHandle(), key, modifiers);
}

void keyTo(const QWidget& topLevel, Qt::Key key) { pressAndRelease(topLevel.windowHandle(), key, Qt::NoModifier); }

void keyAt(const kit::Control& control, Qt::Key key) {
  widget(control).setFocus(Qt::TabFocusReason);
  pressAndRelease(widget(control).window()->windowHandle(), key, Qt::NoModifier);
}

void choose(const kit::PopUpButton& button, int index) {
  click(button);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr) {
    diagnostics::fault("the pop-up button opened no menu");
  }
  const QRect row = menu->actionGeometry(menu->actions().at(index));
  QTest::mouseMove(menu->windowHandle(), row.center());
  QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, row.center());
}

void turnWheel(const kit::Control& control, int notches) {
  const Spot spot = spotOf(control, centre(control));
  QWheelEvent event(spot.position, spot.window->mapToGlobal(spot.position), {}, {0, notches * unitsPerNotch},
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  // Only what comes from the display is passed on to parents.
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&widget(control), &event);
}

void settle() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace tarnwell::host_qt::driver
