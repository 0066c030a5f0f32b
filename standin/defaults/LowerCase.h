#pragma once

#include <string>
#include <string_view>

namespace tarnwell::standin {

/// `text` with the letters A to Z made small. The user's locale has no say in what a verb or a boolean is.
std::string lowerCase(std::string_view text);

}  // namespace tarnwell::standin
