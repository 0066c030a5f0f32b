#include <cstdlib>

#include "host/headless/HeadlessHost.h"
#include "host/painted/SliderGeometry.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

class HeadlessDriver final : public Driver {
 public:
  kit::Host& host() override { return host_; }

  void click(kit::Control& control) override {
    const bool turns = control.accessible().role == kit::AccessibleRole::toggle;
    kit::perform(control, {.action = turns ? kit::AccessibleAction::toggle : kit::AccessibleAction::press});
  }

  void drag(kit::Slider& slider, double place) override {
    leaveField(slider);
    const host_painted::SliderGeometry geometry(slider);
    slider.choose(geometry.valueAt({.x = geometry.centreAt(place)}));
  }

  void nudge(kit::Slider& slider, int steps) override {
    leaveField(slider);
    const char* arrow = steps < 0 ? kit::leftArrowKey : kit::rightArrowKey;
    for (int i = 0; i < std::abs(steps); ++i) {
      slider.keyDown({.charactersIgnoringModifiers = arrow});
    }
  }

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
    window.setFocusedControl(&control);
    pressKey(window, key);
  }

  void pressKey(kit::Window& window, Key key) override {
    if (key == Key::enter) {
      window.keyDown({.charactersIgnoringModifiers = kit::returnKey});
    } else if (key == Key::escape) {
      window.keyDown({.charactersIgnoringModifiers = kit::escapeKey});
    } else if (key == Key::tab) {
      window.endEditing();
    } else if (window.focusedControl() != nullptr) {
      click(*window.focusedControl());
    }
  }

  kit::Accessible look(kit::Control& control) override { return control.accessible(); }

  std::vector<kit::AccessiblePart> parts(kit::Control& control) override { return control.accessibleParts(); }

  void perform(kit::Control& control, const kit::AccessibleRequest& request) override {
    kit::perform(control, request);
  }

 private:
  // What goes to another control than the field that is being typed into ends the editing first.
  static void leaveField(const kit::Control& next) { next.window()->endEditing(&next); }

  host_headless::HeadlessHost host_;
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<HeadlessDriver>(); }

}  // namespace tarnwell::scenarios
