#pragma once

#include <string>

#include "kit/controls/buttons/Button.h"
#include "kit/controls/choices/ChoiceControl.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextLabel.h"
#include "view/values/PlainText.h"

namespace tarnwell::view {

inline std::string kindOf(kit::AccessibleRole role) {
  switch (role) {
    case kit::AccessibleRole::decoration:
    case kit::AccessibleRole::image:
      return "Symbol";
    case kit::AccessibleRole::group:
      return "Group";
    case kit::AccessibleRole::text:
      return "Text";
    case kit::AccessibleRole::document:
      return "RichText";
    case kit::AccessibleRole::button:
      return "Button";
    case kit::AccessibleRole::toggle:
      return "Toggle";
    case kit::AccessibleRole::slider:
      return "Slider";
    case kit::AccessibleRole::stepper:
      return "Stepper";
    case kit::AccessibleRole::textField:
      return "TextField";
    case kit::AccessibleRole::popUpButton:
      return "Picker";
    case kit::AccessibleRole::progressBar:
      return "ProgressBar";
    case kit::AccessibleRole::tabBar:
      return "TabBar";
  }
  return "?";
}

inline std::string valueOf(const kit::Accessible& told) {
  if (const auto* on = std::get_if<bool>(&told.value)) {
    return *on ? ": on" : ": off";
  }
  if (const auto* text = std::get_if<std::string>(&told.value)) {
    return ": \"" + *text + "\"";
  }
  if (!told.range) {
    return {};
  }
  return ": " + plainText(std::get<double>(told.value)) + " of " + plainText(told.range->least) + " to " +
         plainText(told.range->most) + " by " + plainText(told.range->step);
}

inline std::string itemsOf(const kit::ChoiceControl& control) {
  std::string items;
  for (std::size_t i = 0; i < control.items().size(); ++i) {
    const bool chosen = static_cast<int>(i) == control.selectedIndex();
    items += std::string(chosen ? " *" : " ") + "\"" + control.items()[i].title + "\" " + control.items()[i].symbol;
  }
  return items;
}

inline std::string styleOf(const kit::TextLabel& label) {
  const kit::FontRole font = label.style().font;
  const std::string note = font == kit::FontRole::caption ? " caption" : "";
  return (font == kit::FontRole::subheadline ? " subheadline" : note) +
         (label.style().color == kit::ColorRole::secondary ? " secondary" : "");
}

/// What is seen of a control, though it is not told.
inline std::string looksOf(const kit::Control& control) {
  if (const auto* button = dynamic_cast<const kit::Button*>(&control)) {
    return button->role() == kit::Button::Role::destructive ? " destructive" : "";
  }
  if (const auto* choice = dynamic_cast<const kit::ChoiceControl*>(&control)) {
    return itemsOf(*choice);
  }
  if (const auto* slider = dynamic_cast<const kit::Slider*>(&control)) {
    return slider->isUpsideDown() ? " upside down" : "";
  }
  if (const auto* symbol = dynamic_cast<const kit::SymbolView*>(&control)) {
    return " " + symbol->symbol() + (symbol->color() == kit::ColorRole::secondary ? " secondary" : "");
  }
  const auto* label = dynamic_cast<const kit::TextLabel*>(&control);
  return label != nullptr ? styleOf(*label) : "";
}

/// A button by what stands on it, which may be less than the name that its row gives it.
inline std::string nameOf(const kit::Control& control, const kit::Accessible& told) {
  const auto* button = dynamic_cast<const kit::Button*>(&control);
  const std::string name = button != nullptr && !button->title().empty() ? button->title() : told.name;
  return name.empty() ? "" : " \"" + name + "\"";
}

/// A control in one line: what it tells of itself, then how it looks.
inline std::string lineOf(const kit::Control& control) {
  const kit::Accessible told = control.accessible();
  return kindOf(told.role) + nameOf(control, told) + (control.accessibleParts().empty() ? valueOf(told) : "") +
         looksOf(control) + (told.isDefault ? " default" : "") + (told.isEnabled ? "" : " disabled");
}

}  // namespace tarnwell::view
