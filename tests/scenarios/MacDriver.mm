#include <cstdlib>
#include <stdexcept>

#include "host/macos/MacHost.h"
#include "host/macos/SeenView.h"
#include "host/macos/Toolkit.h"
#include "host/macos/ViewDriver.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_macos::driver;

NSString* charactersOf(Key key) {
  switch (key) {
    case Key::enter:
      return @"\r";
    case Key::escape:
      return @"\x1b";
    case Key::tab:
      return @"\t";
    case Key::space:
      return @" ";
  }
  throw std::logic_error("no such key");
}

class MacDriver final : public Driver {
 public:
  MacDriver() { host_macos::startToolkit(); }

  kit::Host& host() override { return host_; }

  void click(kit::Control& control) override { driver::click(control); }
  void drag(kit::Slider& slider, double place) override { driver::drag(slider, place); }

  void nudge(kit::Slider& slider, int steps) override {
    driver::focus(slider);
    NSString* arrow = host_macos::toNSString(steps < 0 ? kit::leftArrowKey : kit::rightArrowKey);
    for (int i = 0; i < std::abs(steps); ++i) {
      driver::key(*slider.window(), arrow);
    }
  }

  void type(kit::TextField& field, const std::string& text) override { driver::type(field, text); }
  void stepUp(kit::Stepper& stepper) override { driver::clickAt(stepper, 0.5, 0.25); }
  void stepDown(kit::Stepper& stepper) override { driver::clickAt(stepper, 0.5, 0.75); }
  void choose(kit::PopUpButton& button, int index) override { driver::choose(button, index); }
  void chooseTab(kit::TabBar& bar, int index) override { driver::choose(bar, index); }

  void pressKey(kit::Window& window, kit::Control& control, Key key) override {
    driver::focus(control);
    pressKey(window, key);
  }
  void pressKey(kit::Window& window, Key key) override { driver::key(window, charactersOf(key)); }

  kit::Accessible look(kit::Control& control) override {
    if (dynamic_cast<kit::TabBar*>(&control) != nullptr) {
      return host_macos::lookAt([driver::window(*control.window()) toolbar]);
    }
    return host_macos::lookAt(driver::view(control));
  }

  std::vector<kit::AccessiblePart> parts(kit::Control& control) override {
    if (dynamic_cast<kit::TabBar*>(&control) != nullptr) {
      return host_macos::tabsOf([driver::window(*control.window()) toolbar]);
    }
    return host_macos::partsOf(driver::view(control));
  }

  void perform(kit::Control& control, const kit::AccessibleRequest& request) override {
    if (auto* bar = dynamic_cast<kit::TabBar*>(&control)) {
      driver::choose(*bar, request.part);
    } else if (request.action != kit::AccessibleAction::choosePart) {
      host_macos::performOn(driver::view(control), request);
    } else if (auto* button = dynamic_cast<kit::PopUpButton*>(&control)) {
      driver::choose(*button, request.part);
    } else {
      host_macos::follow(static_cast<NSTextView*>(driver::view(control)), request.part);
    }
  }
  bool tellsSteps() override { return false; }

 private:
  host_macos::MacHost host_;
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<MacDriver>(); }

}  // namespace tarnwell::scenarios
