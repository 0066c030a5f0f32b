#include "commandline/words/Usage.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "profile/exports/Targets.h"

namespace tarnwell::commandline {
namespace {

constexpr std::size_t indent = 2;
constexpr std::size_t gap = 2;

/// Two columns, the first as wide as `width`.
std::string row(std::string_view left, std::string_view right, std::size_t width) {
  std::string line(indent, ' ');
  line.append(left).append(width - std::min(width, left.size()) + gap, ' ').append(right);
  return line + "\n";
}

std::string withValue(std::string name, const Option& option, std::string_view between) {
  return option.takesValue() ? name.append(between).append(placeholder(option.value)) : name;
}

std::string shortUsage(const Option& option) {
  const std::string name =
      option.letter == ' ' ? "--" + std::string(option.longName) : std::string("-") + option.letter;
  return withValue(name, option, " ");
}

std::string inColumn(const Option& option) {
  const std::string letter = option.letter == ' ' ? "    " : std::string("-") + option.letter + ", ";
  return withValue(letter + "--" + std::string(option.longName), option, "=");
}

std::string typed(const Command& command) {
  return std::string(command.word) + (command.operands.empty() ? "" : " ") + std::string(command.operands);
}

using Rows = std::vector<std::pair<std::string, std::string_view>>;

std::string columns(const Rows& pairs) {
  std::size_t width = 0;
  for (const auto& [left, right] : pairs) {
    width = std::max(width, left.size());
  }
  std::string text;
  for (const auto& [left, right] : pairs) {
    text += row(left, right, width);
  }
  return text;
}

Rows formatRows() {
  Rows formats;
  for (const profile::Target& target : profile::targets) {
    formats.emplace_back(target.name, target.purpose);
  }
  return formats;
}

}  // namespace

std::string usageLine(const std::string& program) {
  return "usage: " + program + " [--help | --version | COMMAND ...]";
}

std::string usageLine(const std::string& program, const Command& command) {
  std::string line = "usage: " + program + " " + typed(command);
  for (const Option& option : options) {
    if (std::ranges::count(command.options, option.name) != 0 && option.name != OptionName::all) {
      line += " [" + shortUsage(option) + "]";
    }
  }
  return line;
}

std::string helpText(const std::string& program, const std::string& summary) {
  Rows commandRows;
  for (const Command& command : commands()) {
    commandRows.emplace_back(typed(command), command.help);
  }
  return summary + ".\nUsage: " + program + " [OPTIONS]\n       " + program +
         " COMMAND [WORD...]\n\n"
         "Without a command the window opens.\n\nCommands:\n" +
         columns(commandRows) +
         "\nKEY is the Dock's own name of a setting; list prints them. PROFILE is a file, or - for standard input.\n" +
         program + " COMMAND --help says what a command takes.\n\nOptions:\n" +
         "  --help     Print this text and exit\n"
         "  --version  Display program version information and exit";
}

std::string helpText(const std::string& program, const Command& command) {
  Rows optionRows;
  for (const Option& option : options) {
    if (takes(command, option.name)) {
      optionRows.emplace_back(inColumn(option), option.help);
    }
  }
  std::string text =
      std::string(command.help) + ".\n" + usageLine(program, command) + "\n\nOptions:\n" + columns(optionRows);
  if (takes(command, OptionName::to)) {
    text += "\nFormats:\n" + columns(formatRows());
  }
  text.pop_back();
  return text;
}

}  // namespace tarnwell::commandline
