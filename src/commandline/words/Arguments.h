#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "commandline/words/Command.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {

/// A command as it was typed.
struct Arguments {
  const Command* command = nullptr;
  std::vector<std::string> operands = {};
  /// Empty for those that take no value.
  std::map<OptionName, std::string> options = {};

  bool has(OptionName option) const { return options.contains(option); }
  std::optional<std::string> value(OptionName option) const;
};

/// `words` begins with the command. Options may stand anywhere behind it, up to "--"; none is abbreviated, and the last
/// of several counts. A failure is a sentence and a line on how to type it.
system::Result<Arguments> parseArguments(const std::string& program, std::span<const char* const> words);

}  // namespace tarnwell::commandline
