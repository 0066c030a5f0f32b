#include "commandline/words/Completion.h"
#include "commandline/words/ShellQuotes.h"

namespace tarnwell::commandline {
namespace {

std::string describedCommands() {
  std::string text;
  for (const Command& command : commands()) {
    text += "    " + inSingleQuotes(std::string(command.word) + ":" + std::string(command.help)) + "\n";
  }
  return text;
}

std::string zshBranch(const Command& command) {
  return "    " + std::string(command.word) + ")\n      options=(" + joined(optionWords(command)) +
         ")\n      operands=(" + joined(candidates(command.operand)) + ")\n" +
         (command.operand == Word::profile ? "      files=yes\n" : "") + "      ;;\n";
}

std::string zshValueBranch(Word value, const std::string& action) {
  const std::string pattern = optionPattern(value);
  return pattern.empty() ? "" : "    " + pattern + ") compset -P 1 '--*='; " + action + "return ;;\n";
}

}  // namespace

std::string zshCompletion(const std::string& program) {
  const std::string function = "_" + program;
  std::string text = "#compdef " + program + "\n# Completes the words of " + program + " in zsh.\n" + function + R"(() {
  local files=
  local -a commands options operands
  commands=(
)" + describedCommands() +
                     R"(  )
  if (( CURRENT == 2 )); then
    _describe command commands
    compadd -- --help --version
    return
  fi
  case $words[2] in
)";
  for (const Command& command : commands()) {
    text += zshBranch(command);
  }
  text += R"(  esac
  local before=$words[CURRENT-1]
  [[ $PREFIX != --*=* ]] || before=${PREFIX%%=*}
  case $before in
)";
  for (const Word word : {Word::format, Word::when}) {
    text += zshValueBranch(word, "compadd -- " + joined(candidates(word)) + "; ");
  }
  text += zshValueBranch(Word::file, "_files; ") + zshValueBranch(Word::text, "");
  text += R"(  esac
  if [[ $words[CURRENT] == -?* ]]; then
    compadd -- $options
    return
  fi
  compadd -- ${operands:#*=}
  compadd -S '' -- ${(M)operands:#*=}
  [[ -z $files ]] || _files
}
# Read from a file of that name, this is the function itself.
if [[ ${funcstack[1]} == )" +
          function +
          R"( ]]; then
  )" + function +
          R"( "$@"
else
  compdef )" +
          function + " " + program + "\nfi";
  return text;
}

}  // namespace tarnwell::commandline
