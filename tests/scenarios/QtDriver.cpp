#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>
#include <stdexcept>

#include "core/DecimalText.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/TextField.h"
#include "kit/controls/Toggle.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_qt::driver;

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
  kit::Host& host() override { return host_qt::testApplication().host(); }

  void click(kit::Control& control) override { driver::click(control); }

  void drag(kit::Slider& slider, kit::Point to) override {
    const kit::Point knob = kit::turnedAboutCentre({.x = slider.knobCentre(), .y = slider.bounds().height / 2},
                                                   slider.bounds(), slider.rotation());
    driver::press(slider, knob);
    driver::moveTo(slider, {.x = (knob.x + to.x) / 2, .y = (knob.y + to.y) / 2});
    driver::moveTo(slider, to);
    driver::release(slider, to);
  }

  void setValue(kit::Slider& slider, double value) override {
    driver::seen(slider).valueInterface()->setCurrentValue(value);
  }

  void type(kit::TextField& field, const std::string& text) override { driver::type(field, text); }
  void stepUp(kit::Stepper& stepper) override { driver::clickAt(stepper, {.x = 8, .y = 5}); }
  void stepDown(kit::Stepper& stepper) override { driver::clickAt(stepper, {.x = 8, .y = 16}); }
  void choose(kit::PopUpButton& button, int index) override { driver::choose(button, index); }

  void chooseTab(kit::TabBar& bar, int index) override {
    const kit::Rect tab = bar.rectOfTab(index);
    driver::clickAt(bar, {.x = tab.x + tab.width / 2, .y = tab.y + tab.height / 2});
  }

  void pressKey(kit::Window& /*window*/, kit::Control& control, Key key) override {
    driver::keyAt(control, keyCode(key));
  }

  Seen look(kit::Control& control) override {
    QAccessibleInterface& seen = driver::seen(control);
    return {.name = seen.text(QAccessible::Name).toStdString(),
            .value = valueOf(control, seen),
            .enabled = !seen.state().disabled};
  }
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<QtDriver>(); }

}  // namespace tarnwell::scenarios
