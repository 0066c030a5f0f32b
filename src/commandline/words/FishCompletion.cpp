#include "commandline/words/Completion.h"
#include "commandline/words/ShellQuotes.h"

namespace tarnwell::commandline {
namespace {

std::string described(std::string_view text) { return " -d " + inSingleQuotes(text) + "\n"; }

std::string optionLine(const std::string& beginning, const Option& option) {
  std::string line = beginning + " -l " + std::string(option.longName);
  if (option.letter != ' ') {
    line += std::string(" -s ") + option.letter;
  }
  if (option.value == Word::file) {
    line += " -r -F";
  } else if (option.takesValue()) {
    line += " -x -a " + inSingleQuotes(joined(candidates(option.value)));
  }
  return line + described(option.help);
}

std::string operandLine(const std::string& beginning, Word word) {
  const std::string words = joined(candidates(word));
  return word == Word::profile ? beginning + " -F\n"
         : words.empty()       ? ""
                               : beginning + " -a " + inSingleQuotes(words) + "\n";
}

}  // namespace

std::string fishCompletion(const std::string& program) {
  const std::string complete = "complete -c " + program;
  const std::string first = complete + " -n __fish_use_subcommand";
  std::string text = "# Completes the words of " + program + " in fish.\n" + complete + " -f\n" + first +
                     " -l help -d 'Print what can be typed'\n" + first + " -l version -d 'Print the version'\n";
  for (const Command& command : commands()) {
    const std::string behind = complete + " -n '__fish_seen_subcommand_from " + std::string(command.word) + "'";
    text += first + " -a " + std::string(command.word) + described(command.help);
    for (const Option& option : options) {
      text += takes(command, option.name) ? optionLine(behind, option) : "";
    }
    text += operandLine(behind, command.operand);
  }
  text.pop_back();
  return text;
}

}  // namespace tarnwell::commandline
