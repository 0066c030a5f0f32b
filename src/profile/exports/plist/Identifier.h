#pragma once

#include <string>
#include <string_view>

namespace tarnwell::profile {

/// Whether the text is a name in reverse-DNS form: two parts or more of letters, digits and dashes, with points
/// between.
bool isIdentifier(std::string_view text);

/// A UUID of version 8 that is always the same for the same name.
std::string uuidOf(std::string_view name);

}  // namespace tarnwell::profile
