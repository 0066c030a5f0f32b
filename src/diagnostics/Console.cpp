#include "diagnostics/Console.h"

#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarnwell::diagnostics {
namespace {

// One write does it, unless the text is longer than a pipe takes at once or a signal cuts it short.
bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written != -1) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool print(std::string_view text) { return writeAll(STDOUT_FILENO, text); }

void printError(std::string_view text) { writeAll(STDERR_FILENO, text); }

void printLine(std::string_view line) { print(std::string(line) + "\n"); }

void printErrorLine(std::string_view line) { printError(std::string(line) + "\n"); }

void reportError(std::string_view message) { printErrorLine("tarnwell: " + std::string(message)); }

}  // namespace tarnwell::diagnostics
