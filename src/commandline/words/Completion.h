#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commandline/words/Command.h"

namespace tarnwell::commandline {

/// What can stand at a place: "mineffect=genie" for a setting, and "autohide-delay=" where a value follows that is no
/// choice. Empty where anything can.
std::vector<std::string> candidates(Word word);

/// What completes the words of `program` in a shell, in that shell's language.
std::string bashCompletion(const std::string& program);
std::string zshCompletion(const std::string& program);
std::string fishCompletion(const std::string& program);

/// Of bash, zsh or fish.
std::string completion(const std::string& program, std::string_view shell);

// What their texts have in common.

std::string joined(const std::vector<std::string>& words);
/// The command's options as they are typed, with the values that are choices.
std::vector<std::string> optionWords(const Command& command);
/// "--output | -o" of those whose value is of that kind, "|" between them; empty where there is none.
std::string optionPattern(Word value);

}  // namespace tarnwell::commandline
