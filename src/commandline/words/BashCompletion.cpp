#include <array>

#include "commandline/words/Completion.h"
#include "commandline/words/ShellQuotes.h"

namespace tarnwell::commandline {
namespace {

std::string commandWords() {
  std::vector<std::string> words;
  for (const Command& command : commands()) {
    words.emplace_back(command.word);
  }
  return joined(words) + " --help --version";
}

std::string bashBranch(const Command& command) {
  return "      " + std::string(command.word) + ")\n        options=" + inSingleQuotes(joined(optionWords(command))) +
         "\n        operands=" + inSingleQuotes(joined(candidates(command.operand))) + "\n" +
         (command.operand == Word::profile ? "        files=yes\n" : "") + "        ;;\n";
}

/// A branch for the options with such a value; none where there are none.
std::string bashValueBranch(Word value, const std::string& action) {
  const std::string pattern = optionPattern(value);
  return pattern.empty() ? "" : "      " + pattern + ") " + action + " ;;\n";
}

}  // namespace

std::string bashCompletion(const std::string& program) {
  const std::string function = "_" + program;
  std::string text = "# Completes the words of " + program + " in bash.\n" + function + R"(() {
  local line=${COMP_LINE:0:COMP_POINT} options='' operands='' files='' found='' before='' name=''
  local current=${line##*[[:blank:]]}
  local -a words
  read -ra words <<<"$line"
  local count=${#words[@]}
  [ -z "$current" ] || count=$((count - 1))
  if [ "$count" -lt 2 ]; then
    found=)" + inSingleQuotes(commandWords()) +
                     R"(
  else
    case ${words[1]} in
)";
  for (const Command& command : commands()) {
    text += bashBranch(command);
  }
  text += R"(    esac
    before=${words[count - 1]}
    case $current in
      --*=*) before=${current%%=*} name=$before= ;;
    esac
    case $before in
)";
  for (const Word word : {Word::format, Word::when}) {
    text += bashValueBranch(word, "found=" + inSingleQuotes(joined(candidates(word))) + " files=''");
  }
  text += bashValueBranch(Word::file, "files=yes") + bashValueBranch(Word::text, "files=''");
  text += R"(      *)
        name=''
        case $current in
          -?*) found=$options files='' ;;
          *) found=$operands ;;
        esac
        ;;
    esac
  fi
  mapfile -t COMPREPLY < <(compgen -P "$name" -W "$found" -- "${current#"$name"}")
  if [ -n "$files" ]; then
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -P "$name" -f -- "${current#"$name"}")
    compopt -o filenames 2>/dev/null
  fi
  case ${COMPREPLY[0]} in
    *=) compopt -o nospace 2>/dev/null ;;
  esac
  # Only what follows an equals sign is replaced.
  case $COMP_WORDBREAKS$current in
    *=*=*) COMPREPLY=("${COMPREPLY[@]#"${current%%=*}="}") ;;
  esac
}
complete -F )" +
          function + " " + program;
  return text;
}

}  // namespace tarnwell::commandline
