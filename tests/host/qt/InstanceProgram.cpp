// A program of which one runs in a session. It says on standard output what becomes of it and what it is asked, and
// ends when its standard input does. With an argument it is busy first, until it can read a byte there.
#include <unistd.h>

#include <memory>
#include <string>

#include "diagnostics/Console.h"
#include "host/qt/ActivationToken.h"
#include "host/qt/QtApplication.h"
#include "host/qt/SingleInstance.h"

int main(int argc, char** argv) {
  using tarnwell::diagnostics::printLine;
  using tarnwell::host_qt::ApplicationService;
  using tarnwell::host_qt::SingleInstance;
  const std::string token = tarnwell::host_qt::givenActivationToken();
  const auto instance = SingleInstance::claim(token);
  const auto application = instance ? tarnwell::host_qt::QtApplication::create(argc, argv) : nullptr;
  if (!instance || !instance->listen(*application)) {
    printLine("handed over");
    return 0;
  }
  instance->setAsked([](const ApplicationService::Request& request) {
    printLine("asked \"" + request.action + "\" with \"" + request.token + "\"");
  });
  printLine("first");
  char byte = 0;
  if (argc > 1 && ::read(STDIN_FILENO, &byte, 1) != 1) {
    return 1;
  }
  application->watch(STDIN_FILENO, [&application] { application->quit(); });
  return application->run();
}
