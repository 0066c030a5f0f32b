#pragma once

#include <cstddef>
#include <string_view>

#include "release/protocol/ReleaseNotes.h"

namespace tarnwell::updater {

/// How much of the notes people get to see, in bytes of text.
inline constexpr std::size_t longestNotes = 16UL * 1024;

/// Reads plain text, or HTML: paragraphs, headings, lists, quotes, code, emphasis, links to web pages; of everything
/// else the text alone, and of scripts and the like nothing. What notes name is never loaded.
release::ReleaseNotes readNotes(std::string_view notes);

}  // namespace tarnwell::updater
