#pragma once

#include <string>
#include <string_view>

namespace tarnwell::profile {

/// What a profile may be called: nothing, or up to 60 characters of one line. So that it can stand in a comment of any
/// target, it has no controls, no line ends of any alphabet, and nothing that turns the direction of writing.
bool isProfileName(std::string_view text);

/// A stranger's text as it may be shown within a line, with a mark for each character that no name may have.
std::string visible(std::string_view text);

/// The same between quotes, and cut off where it is longer than a name.
std::string inQuotes(std::string_view text);

/// A name or a key as a string of TOML and of JSON: neither has a character that takes another escape.
std::string stringLiteral(std::string_view name);

}  // namespace tarnwell::profile
