#include "core/ValueText.h"

#include <cstdlib>

#include "system/base/CNumericLocale.h"

namespace tarnwell::core {

std::string withoutLineFeeds(std::string text) {
  std::erase(text, '\n');
  return text;
}

std::optional<double> parseNumber(std::string_view text) {
  // strtod skips white space in front of a number by itself.
  constexpr std::string_view whiteSpace = " \t\n\v\f\r";
  if (text.empty() || whiteSpace.find(text.front()) != std::string_view::npos) {
    return std::nullopt;
  }
  const std::string terminated(text);
  const system::CNumericLocale locale;
  char* end = nullptr;
  const double value = std::strtod(terminated.c_str(), &end);
  // A NUL inside the text ends the conversion before the end of the text.
  return end == terminated.c_str() + terminated.size() ? std::optional(value) : std::nullopt;
}

double parseFloat(std::string_view text) { return parseNumber(text).value_or(0.0); }

bool parseBool(std::string_view text) { return text == "1"; }

std::string_view boolText(bool value) { return value ? "true" : "false"; }

}  // namespace tarnwell::core
