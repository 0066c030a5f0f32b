#include "host/headless/HeadlessHost.h"
#include "kit/controls/Button.h"
#include "kit/controls/PopUpButton.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/TextField.h"
#include "kit/controls/Toggle.h"
#include "kit/controls/Window.h"
#include "scenarios/Driver.h"

#include "core/DecimalText.h"

namespace tarnwell::scenarios {
namespace {

std::string valueOf(kit::Control& control) {
  if (const auto* slider = dynamic_cast<kit::Slider*>(&control)) {
    return core::decimalText(slider->doubleValue());
  }
  if (const auto* stepper = dynamic_cast<kit::Stepper*>(&control)) {
    return core::decimalText(stepper->value());
  }
  if (const auto* field = dynamic_cast<kit::TextField*>(&control)) {
    return field->shownText();
  }
  if (const auto* toggle = dynamic_cast<kit::Toggle*>(&control)) {
    return toggle->isOn() ? "on" : "off";
  }
  if (const auto* popUp = dynamic_cast<kit::PopUpButton*>(&control)) {
    return popUp->selectedIndex() < 0 ? "" : popUp->items()[static_cast<std::size_t>(popUp->selectedIndex())].title;
  }
  return {};
}

class HeadlessDriver final : public Driver {
 public:
  kit::Host& host() override { return host_; }

  void click(kit::Control& control) override {
    leaveField(control);
    if (auto* button = dynamic_cast<kit::Button*>(&control)) {
      button->click();
    } else if (auto* toggle = dynamic_cast<kit::Toggle*>(&control)) {
      toggle->press();
    }
  }

  void drag(kit::Slider& slider, kit::Point to) override {
    leaveField(slider);
    slider.dragTo(to);
  }

  void setValue(kit::Slider& slider, double value) override { slider.choose(value); }

  void type(kit::TextField& field, const std::string& text) override {
    leaveField(field);
    field.type(text);
  }

  void stepUp(kit::Stepper& stepper) override {
    leaveField(stepper);
    stepper.increment();
  }

  void stepDown(kit::Stepper& stepper) override {
    leaveField(stepper);
    stepper.decrement();
  }

  void choose(kit::PopUpButton& button, int index) override {
    leaveField(button);
    button.choose(index);
  }

  void chooseTab(kit::TabBar& bar, int index) override {
    leaveField(bar);
    bar.choose(index);
  }

  void pressKey(kit::Window& window, kit::Control& control, Key key) override {
    leaveField(control);
    auto* slider = dynamic_cast<kit::Slider*>(&control);
    if (key == Key::enter) {
      window.keyDown({.charactersIgnoringModifiers = kit::returnKey});
    } else if (key == Key::escape) {
      window.keyDown({.charactersIgnoringModifiers = kit::escapeKey});
    } else if (key == Key::space) {
      click(control);
    } else if (key == Key::tab) {
      window.endEditing();
    } else if (slider != nullptr) {
      slider->nudge(key == Key::right ? kit::Slider::arrowStep : -kit::Slider::arrowStep);
    }
  }

  Seen look(kit::Control& control) override {
    return {.name = control.accessibleName(), .value = valueOf(control), .enabled = control.isEnabled()};
  }

 private:
  // What goes to another control than the field that is being typed into ends the editing first.
  static void leaveField(const kit::Control& next) {
    const auto* field = dynamic_cast<const kit::TextField*>(&next);
    if (field == nullptr || !field->isEditing()) {
      next.window()->endEditing();
    }
  }

  host_headless::HeadlessHost host_;
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<HeadlessDriver>(); }

}  // namespace tarnwell::scenarios
