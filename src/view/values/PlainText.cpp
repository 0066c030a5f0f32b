#include "view/values/PlainText.h"

#include <array>
#include <charconv>

namespace tarnwell::view {

std::string plainText(double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value);
  return {buffer.begin(), end.ptr};
}

std::string alignmentName(kit::TextAlignment alignment) {
  switch (alignment) {
    case kit::TextAlignment::leading:
      return "leading";
    case kit::TextAlignment::center:
      return "centred";
    case kit::TextAlignment::trailing:
      return "trailing";
  }
  return "?";
}

}  // namespace tarnwell::view
