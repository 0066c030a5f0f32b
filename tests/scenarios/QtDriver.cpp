#include <gtest/gtest.h>

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <array>
#include <memory>
#include <stdexcept>

#include "core/DecimalText.h"
#include "host/qt/QtApplication.h"
#include "host/qt/WidgetPeer.h"
#include "kit/Button.h"
#include "kit/PopUpButton.h"
#include "kit/Slider.h"
#include "kit/Stepper.h"
#include "kit/TextField.h"
#include "kit/Toggle.h"
#include "kit/Window.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

// One for the program: the toolkit allows no second. It goes before the program takes the toolkit's globals apart.
class ApplicationEnvironment final : public testing::Environment {
 public:
  void SetUp() override { application_ = host_qt::QtApplication::create(1, arguments_.data()); }
  void TearDown() override { application_.reset(); }

  host_qt::QtApplication& application() { return *application_; }

 private:
  std::array<char, 9> name_ = {"scenario"};
  std::array<char*, 2> arguments_ = {name_.data(), nullptr};
  std::unique_ptr<host_qt::QtApplication> application_;
};

// Owned by the test framework.
ApplicationEnvironment& environment =
    static_cast<ApplicationEnvironment&>(*testing::AddGlobalTestEnvironment(new ApplicationEnvironment));

QWidget& widgetOf(const kit::Control& control) {
  QWidget* widget = host_qt::WidgetPeer::widgetOf(control);
  if (widget == nullptr) {
    throw std::logic_error("the control has no widget");
  }
  return *widget;
}

QWindow* windowOf(QWidget& widget) { return widget.window()->windowHandle(); }

QPoint inWindow(QWidget& widget, QPointF position) { return widget.mapTo(widget.window(), position.toPoint()); }

void clickAt(QWidget& widget, QPointF position) {
  QTest::mouseClick(windowOf(widget), Qt::LeftButton, Qt::NoModifier, inWindow(widget, position));
}

Qt::Key keyCode(Key key) {
  switch (key) {
    case Key::enter:
      return Qt::Key_Return;
    case Key::escape:
      return Qt::Key_Escape;
    case Key::tab:
      return Qt::Key_Tab;
    case Key::space:
      return Qt::Key_Space;
    case Key::left:
      return Qt::Key_Left;
    case Key::right:
      return Qt::Key_Right;
  }
  throw std::logic_error("no such key");
}

std::string valueOf(const kit::Control& control, QAccessibleInterface& seen) {
  if (dynamic_cast<const kit::Toggle*>(&control) != nullptr) {
    return seen.state().checked ? "on" : "off";
  }
  if (QAccessibleValueInterface* value = seen.valueInterface()) {
    return core::decimalText(value->currentValue().toDouble());
  }
  return seen.text(QAccessible::Value).toStdString();
}

class QtDriver final : public Driver {
 public:
  kit::Host& host() override { return environment.application().host(); }

  void click(kit::Control& control) override {
    QWidget& widget = widgetOf(control);
    clickAt(widget, QRectF(widget.rect()).center());
  }

  void drag(kit::Slider& slider, kit::Point to) override {
    QWidget& widget = widgetOf(slider);
    const kit::Point knob = kit::turnedAboutCentre({.x = slider.knobCentre(), .y = slider.bounds().height / 2},
                                                   slider.bounds(), slider.rotation());
    QWindow* window = windowOf(widget);
    const QPoint from = inWindow(widget, {knob.x, knob.y});
    const QPoint target = inWindow(widget, {to.x, to.y});
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(window, (from + target) / 2);
    QTest::mouseMove(window, target);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, target);
  }

  void type(kit::TextField& field, const std::string& text) override {
    QWidget& widget = widgetOf(field);
    clickAt(widget, QRectF(widget.rect()).center());
    QTest::keyClick(windowOf(widget), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(windowOf(widget), Qt::Key_Delete);
    for (const char letter : text) {
      QTest::keyClick(windowOf(widget), letter);
    }
  }

  void stepUp(kit::Stepper& stepper) override { clickAt(widgetOf(stepper), {8, 5}); }
  void stepDown(kit::Stepper& stepper) override { clickAt(widgetOf(stepper), {8, 16}); }

  void choose(kit::PopUpButton& button, int index) override {
    click(button);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) {
      throw std::logic_error("no menu opened");
    }
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(menu->actions().at(index)).center());
  }

  void pressKey(kit::Window& /*window*/, kit::Control& control, Key key) override {
    QWidget& widget = widgetOf(control);
    widget.setFocus(Qt::TabFocusReason);
    QTest::keyClick(windowOf(widget), keyCode(key));
  }

  Seen look(kit::Control& control) override {
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&widgetOf(control));
    return {.name = seen->text(QAccessible::Name).toStdString(),
            .value = valueOf(control, *seen),
            .enabled = !seen->state().disabled};
  }
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<QtDriver>(); }

}  // namespace tarnwell::scenarios
