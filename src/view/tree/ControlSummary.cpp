#include "view/tree/ControlSummary.h"

#include "view/values/PlainText.h"

namespace tarnwell::view {
std::string describe(const kit::Button& button) {
  std::string line = button.bezelStyle() == kit::Button::BezelStyle::help ? "Help button" : "Button";
  line += " \"" + button.title() + "\"";
  line += button.role() == kit::Button::Role::destructive ? " destructive" : "";
  line += button.isDefault() ? " default" : "";
  return line;
}

std::string describe(const kit::Slider& slider) {
  return "Slider " + plainText(slider.doubleValue()) + " of " + plainText(slider.minValue()) + " to " +
         plainText(slider.maxValue()) + ", " + std::to_string(slider.numberOfTickMarks()) + " ticks" +
         (slider.isUpsideDown() ? ", upside down" : "");
}

std::string describe(const kit::Pane& /*pane*/) { return "Hosting view"; }

}  // namespace tarnwell::view
