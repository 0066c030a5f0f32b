// The program that users start: it does what they ask for, or goes on as the window's program.
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "commandline/CommandLine.h"
#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "installation/WindowStart.h"
#include "system/base/WordPointers.h"
#include "system/processes/BecomeProgram.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell {
namespace {

constexpr int wrongUsage = 2;

int failed(const std::string& message, int status) {
  diagnostics::reportError(message);
  return status;
}

int showWindow(const std::string& program, const std::vector<std::string>& words) {
  const auto own = system::runningExecutable();
  if (!own) {
    return failed(own.error().message, EXIT_FAILURE);
  }
  const auto window = installation::windowStart(*own, program, words);
  if (!window) {
    return failed(window.error().message, wrongUsage);
  }
  return failed(system::becomeProgram(window->program, system::wordPointers(window->words).data()).message,
                EXIT_FAILURE);
}

}  // namespace
}  // namespace tarnwell

int main(int argc, char** argv) {
  using namespace tarnwell;
  diagnostics::prepareStandardStreams();
  const commandline::Product product = {
      .program = "tarnwell", .version = TARNWELL_VERSION, .summary = TARNWELL_SUMMARY};
  const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
  const auto status = commandline::run(product, words.subspan(words.empty() ? 0 : 1));
  if (status) {
    return *status;
  }
  return showWindow(product.program, {words.begin(), words.end()});
}
