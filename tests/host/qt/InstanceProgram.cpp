// A program of which one runs in a session. It says on standard output what becomes of it and what it is asked, and
// ends when its standard input does.
#include <unistd.h>

#include <memory>
#include <string>
#include <variant>

#include "diagnostics/Console.h"
#include "host/qt/ActivationToken.h"
#include "host/qt/QtApplication.h"
#include "host/qt/SingleInstance.h"

int main(int argc, char** argv) {
  using tarnwell::diagnostics::printLine;
  using tarnwell::host_qt::ApplicationService;
  using tarnwell::host_qt::SingleInstance;
  const std::string token = tarnwell::host_qt::givenActivationToken();
  const auto application = tarnwell::host_qt::QtApplication::create(argc, argv);
  const auto claimed = SingleInstance::claim(*application, token);
  if (const auto* failure = std::get_if<tarnwell::host_linux::Failure>(&claimed)) {
    printLine("failed: " + failure->message);
    return 1;
  }
  const auto& instance = std::get<std::unique_ptr<SingleInstance>>(claimed);
  if (!instance) {
    printLine("handed over");
    return 0;
  }
  instance->setAsked([](const ApplicationService::Request& request) {
    printLine("asked \"" + request.action + "\" with \"" + request.token + "\"");
  });
  application->watch(STDIN_FILENO, [&application] { application->quit(); });
  printLine("first");
  return application->run();
}
