#include "commandline/words/Screen.h"

#include <unistd.h>

#include <cstdlib>

#include "diagnostics/Console.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {
namespace {

std::string_view variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool areShown() { return variable("NO_COLOR").empty() && variable("TERM") != "dumb" && ::isatty(STDOUT_FILENO) == 1; }

}  // namespace

Screen::Screen(Colors colors) : isColored_(colors == Colors::always || (colors == Colors::whereShown && areShown())) {}

bool Screen::show() {
  if (diagnostics::print(text_)) {
    return true;
  }
  say(system::systemFailure("cannot print").message);
  return false;
}

void Screen::say(std::string_view message) const { diagnostics::reportError(message); }

std::string Screen::styled(std::string_view code, std::string_view text) const {
  return isColored_ ? "\x1B[" + std::string(code) + "m" + std::string(text) + "\x1B[0m" : std::string(text);
}

}  // namespace tarnwell::commandline
