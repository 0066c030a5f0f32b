#include "release/text/Number.h"

#include <charconv>

namespace tarnwell::release {

std::optional<std::uint64_t> numberIn(std::string_view text) {
  std::uint64_t number = 0;
  const char* last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  return error == std::errc() && end == last ? std::optional(number) : std::nullopt;
}

}  // namespace tarnwell::release
