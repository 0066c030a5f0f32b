// The engine of updates: does one job, and says on its standard output how that goes.
#include <unistd.h>

#include <cstdlib>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "release/protocol/Engine.h"
#include "updater/engine/Jobs.h"

namespace tarnwell::updater {
namespace {

// Without a reader there is nothing left to do.
void say(const release::Message& message) {
  if (!diagnostics::print(release::lineOf(message))) {
    ::_exit(EXIT_FAILURE);
  }
}

int run(const Job& job, const std::vector<std::string>& arguments) {
  const auto missing = job.confine(job.limit);
  say({release::engineWord, release::engineVersion});
  for (const std::string& fence : missing) {
    say({release::unfencedWord, fence});
  }
  if (const auto done = job.run(arguments, {}, say); !done) {
    say({release::failedWord, done.error().message});
    return EXIT_FAILURE;
  }
  say({release::doneWord, ""});
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tarnwell::updater

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): what is thrown past here is a fault
  using namespace tarnwell;
  diagnostics::prepareStandardStreams();
  const std::vector<std::string> words(argv + 1, argv + argc);
  const updater::Job* job = words.empty() ? nullptr : updater::jobCalled(words.front());
  if (job == nullptr || words.size() != job->parameters + 1) {
    diagnostics::reportError("the update engine is started by the application, and does nothing by itself");
    return EXIT_FAILURE;
  }
  // At once: what libraries do in their end may need what was given up.
  std::_Exit(updater::run(*job, {words.begin() + 1, words.end()}));
}
