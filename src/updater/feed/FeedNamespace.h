#pragma once

#include <string_view>

namespace tarnwell::updater {

/// What the extensions of a feed are known by, whatever prefix a feed gives them.
inline constexpr std::string_view feedExtensions = "http://www.andymatuschak.org/xml-namespaces/sparkle";

}  // namespace tarnwell::updater
