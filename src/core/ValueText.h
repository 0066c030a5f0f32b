#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::core {

/// A command's output without its line feeds, wherever they stand. Carriage returns and blanks stay.
std::string withoutLineFeeds(std::string text);

/// The number, if the whole text is one floating-point literal of the C locale. White space is no part of a literal.
/// The process's locale plays no role.
std::optional<double> parseNumber(std::string_view text);

/// The same, and 0.0 for every other text.
double parseFloat(std::string_view text);

/// True for "1" alone.
bool parseBool(std::string_view text);

/// "true" or "false".
std::string_view boolText(bool value);

}  // namespace tarnwell::core
