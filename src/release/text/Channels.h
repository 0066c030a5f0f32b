#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::release {

/// Whether a channel can be called that: at most 50 letters, digits and characters of "-_.".
bool isChannelName(std::string_view name);

/// The names in a text, between blanks or commas. What cannot be a name is left out: no item is in such a channel.
std::vector<std::string> channelsIn(std::string_view text);

}  // namespace tarnwell::release
