#pragma once

#include <memory>
#include <string>

#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_qt {

// Controls as the tests want them, in one line each.

inline std::unique_ptr<kit::Button> makeButton(const std::string& title, kit::Action action = {}) {
  auto button = std::make_unique<kit::Button>();
  button->setTitle(title);
  button->setAction(std::move(action));
  return button;
}

inline std::unique_ptr<kit::TextField> makeField(const std::string& text, kit::TextField::CommitAction action = {}) {
  auto field = std::make_unique<kit::TextField>();
  field->setText(text);
  field->setAction(std::move(action));
  return field;
}

inline std::unique_ptr<kit::Toggle> makeToggle(kit::Toggle::ToggleAction action = {}) {
  auto toggle = std::make_unique<kit::Toggle>();
  toggle->setAction(std::move(action));
  return toggle;
}

/// From 0 to 1.
inline std::unique_ptr<kit::Slider> makeSlider(double value, kit::Slider::SliderAction action = {}) {
  return std::make_unique<kit::Slider>(value, 0, 1, std::move(action));
}

inline std::unique_ptr<kit::Stepper> makeStepper(kit::Stepper::StepAction action = {}) {
  auto stepper = std::make_unique<kit::Stepper>();
  stepper->setAction(std::move(action));
  return stepper;
}

inline std::unique_ptr<kit::TextLabel> makeLabel(const std::string& text) {
  auto label = std::make_unique<kit::TextLabel>();
  label->setText(text);
  return label;
}

/// Genie, Scale, Suck; the first is chosen.
inline std::unique_ptr<kit::PopUpButton> makePopUpButton(kit::PopUpButton::ChooseAction action = {}) {
  auto button = std::make_unique<kit::PopUpButton>();
  button->setItems({{.title = "Genie", .symbol = "wand.and.stars.inverse"},
                    {.title = "Scale", .symbol = "square.resize.down"},
                    {.title = "Suck", .symbol = "tornado"}});
  button->setSelectedIndex(0);
  button->setAction(std::move(action));
  return button;
}

/// Dock and General; Dock is chosen.
inline std::unique_ptr<kit::TabBar> makeTabBar(kit::TabBar::ChooseAction action = {}) {
  auto bar = std::make_unique<kit::TabBar>();
  bar->setItems({{.title = "Dock", .symbol = "dock.rectangle"}, {.title = "General", .symbol = "gear"}});
  bar->setSelectedIndex(0);
  bar->setAction(std::move(action));
  return bar;
}

}  // namespace tarnwell::host_qt
