#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnwell::profile {

/// The candidate that was probably meant by a word that is none of them: the one that takes fewest changes of a letter,
/// two at most and fewer than a half of the word's. Empty where none is that close.
std::string_view closest(std::string_view word, std::span<const std::string_view> candidates);

/// The end of a sentence that refuses a word: "; did you mean CANDIDATE?", or `otherwise` where none is that close.
std::string suggestion(std::string_view word, std::span<const std::string_view> candidates,
                       std::string_view otherwise = ".");

}  // namespace tarnwell::profile
