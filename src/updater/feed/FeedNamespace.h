#pragma once

#include <string_view>

namespace tarnwell::updater {

/// What the extensions of a feed are known by, whatever prefix a feed gives them.
inline constexpr std::string_view feedExtensions = "http://www.andymatuschak.org/xml-namespaces/sparkle";

/// What our own extensions are known by.
inline constexpr std::string_view ownExtensions = "urn:tarnwell:updates";

}  // namespace tarnwell::updater
