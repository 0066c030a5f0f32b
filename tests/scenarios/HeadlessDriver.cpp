#include "host/headless/HeadlessHost.h"
#include "kit/Button.h"
#include "kit/PopUpButton.h"
#include "kit/Slider.h"
#include "kit/Stepper.h"
#include "kit/TextField.h"
#include "kit/Toggle.h"
#include "kit/Window.h"
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
    endEditingBefore(control);
    if (auto* button = dynamic_cast<kit::Button*>(&control)) {
      button->click();
    } else if (auto* toggle = dynamic_cast<kit::Toggle*>(&control)) {
      toggle->press();
    }
  }

  void drag(kit::Slider& slider, kit::Point to) override { slider.dragTo(to); }

  void type(kit::TextField& field, const std::string& text) override {
    field.type(text);
    typedInto_ = &field;
  }

  void stepUp(kit::Stepper& stepper) override { stepper.increment(); }
  void stepDown(kit::Stepper& stepper) override { stepper.decrement(); }
  void choose(kit::PopUpButton& button, int index) override { button.choose(index); }

  void pressKey(kit::Window& window, kit::Control& control, Key key) override {
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
      slider->nudge(key == Key::right ? 0.01 : -0.01);
    }
  }

  Seen look(kit::Control& control) override {
    return {.name = control.accessibleName(), .value = valueOf(control), .enabled = control.isEnabled()};
  }

 private:
  // A press elsewhere commits what is being typed before it is delivered.
  void endEditingBefore(const kit::Control& pressed) {
    if (typedInto_ != nullptr && typedInto_ != &pressed) {
      typedInto_->commit();
      typedInto_ = nullptr;
    }
  }

  host_headless::HeadlessHost host_;
  kit::TextField* typedInto_ = nullptr;
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<HeadlessDriver>(); }

}  // namespace tarnwell::scenarios
