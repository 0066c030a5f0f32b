#include "diagnostics/Console.h"

#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarnwell::diagnostics {
namespace {

void writeLine(int descriptor, std::string_view line) {
  std::string bytes(line);
  bytes += '\n';
  std::string_view rest = bytes;
  // One write does it, unless the line is longer than a pipe takes at once or a signal cuts it short.
  while (!rest.empty()) {
    const ssize_t written = ::write(descriptor, rest.data(), rest.size());
    if (written > 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0 || errno != EINTR) {
      return;
    }
  }
}

}  // namespace

void printLine(std::string_view line) { writeLine(STDOUT_FILENO, line); }

void printErrorLine(std::string_view line) { writeLine(STDERR_FILENO, line); }

}  // namespace tarnwell::diagnostics
