#include "commandline/words/ShellQuotes.h"

namespace tarnwell::commandline {

std::string inSingleQuotes(std::string_view text) {
  std::string quoted = "'";
  for (const char letter : text) {
    quoted += letter == '\'' ? "'\\''" : std::string(1, letter);
  }
  return quoted + "'";
}

}  // namespace tarnwell::commandline
