#include "release/text/Channels.h"

#include <algorithm>

namespace tarnwell::release {

bool isChannelName(std::string_view name) {
  constexpr std::size_t longest = 50;
  constexpr std::string_view characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.";
  return !name.empty() && name.size() <= longest && name.find_first_not_of(characters) == std::string_view::npos;
}

std::vector<std::string> channelsIn(std::string_view text) {
  constexpr std::string_view between = " \t\n,;";
  std::vector<std::string> names;
  while (!text.empty()) {
    const std::string_view name = text.substr(0, text.find_first_of(between));
    text.remove_prefix(std::min(name.size() + 1, text.size()));
    if (isChannelName(name)) {
      names.emplace_back(name);
    }
  }
  return names;
}

}  // namespace tarnwell::release
