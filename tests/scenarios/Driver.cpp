#include "scenarios/Driver.h"

#include "core/DecimalText.h"

namespace tarnwell::scenarios {

std::string inWords(const kit::AccessibleValue& value) {
  if (const bool* on = std::get_if<bool>(&value)) {
    return *on ? "on" : "off";
  }
  if (const double* number = std::get_if<double>(&value)) {
    return core::decimalText(*number);
  }
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? *text : std::string();
}

}  // namespace tarnwell::scenarios
