#include "view/tree/ControlSummary.h"

#include <map>

#include "kit/controls/Control.h"
#include "view/values/PlainText.h"

namespace tarnwell::view {
namespace {

std::string kindOf(kit::AccessibleRole role) {
  using enum kit::AccessibleRole;
  static const std::map<kit::AccessibleRole, std::string> kinds = {
      {decoration, "Decoration"}, {group, "Group"},        {text, "Text"},     {image, "Image"},
      {button, "Button"},         {toggle, "Toggle"},      {slider, "Slider"}, {stepper, "Stepper"},
      {textField, "TextField"},   {popUpButton, "Picker"}, {tabBar, "TabBar"}};
  return kinds.at(role);
}

std::string valueOf(const kit::Accessible& told) {
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

}  // namespace

std::string describe(const kit::Control& control) {
  const kit::Accessible told = control.accessible();
  return kindOf(told.role) + (told.name.empty() ? "" : " \"" + told.name + "\"") +
         (control.accessibleParts().empty() ? valueOf(told) : "") + (told.isDefault ? " default" : "");
}

}  // namespace tarnwell::view
