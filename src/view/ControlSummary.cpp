#include "view/ControlSummary.h"

#include <array>
#include <charconv>

namespace tarnwell::view {
namespace {

std::string plain(double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value);
  return {buffer.begin(), end.ptr};
}

}  // namespace

std::string describe(const kit::Button& button) {
  std::string line = button.bezelStyle() == kit::Button::BezelStyle::help ? "Help button" : "Button";
  line += " \"" + button.title() + "\"";
  line += button.role() == kit::Button::Role::destructive ? " destructive" : "";
  line += button.isDefault() ? " default" : "";
  return line;
}

std::string describe(const kit::Slider& slider) {
  return "Slider " + plain(slider.doubleValue()) + " of " + plain(slider.minValue()) + " to " +
         plain(slider.maxValue()) + ", " + std::to_string(slider.numberOfTickMarks()) + " ticks";
}

}  // namespace tarnwell::view
