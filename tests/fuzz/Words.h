#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::fuzz {

/// The words in a text, each ended by a NUL or the end, as the system hands over arguments and environments.
inline std::vector<std::string> wordsIn(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    words.emplace_back(text.substr(0, text.find('\0')));
    text.remove_prefix(words.back().size() == text.size() ? text.size() : words.back().size() + 1);
  }
  return words;
}

}  // namespace tarnwell::fuzz
