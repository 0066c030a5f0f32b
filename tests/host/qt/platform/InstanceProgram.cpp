// A program of which one runs in a session. It says on standard output what becomes of it and what it is asked, and
// ends when its standard input does. With "busy" it first waits until it can read a byte there; with "ending" it does
// that too, and then hears of nothing more, as between the event loop and the end.
#include <unistd.h>

#include <memory>
#include <string>
#include <string_view>

#include "diagnostics/Console.h"
#include "host/qt/platform/QtApplication.h"
#include "host/qt/platform/SingleInstance.h"

int main(int argc, char** argv) {
  using tarnwell::diagnostics::printLine;
  using tarnwell::host_qt::ApplicationService;
  using tarnwell::host_qt::SingleInstance;
  const auto instance =
      SingleInstance::claim({.name = "Tarnwell", .program = "tarnwell", .identifier = "example.tarnwell.Tarnwell"});
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
  int status = 0;
  if (argc < 2 || std::string_view(argv[1]) != "ending") {
    const auto ending = application->watch(STDIN_FILENO, [&application] { application->quit(); });
    status = application->run();
  }
  if (const auto late = instance->release()) {
    printLine("too late for \"" + *late + "\"");
  }
  while (::read(STDIN_FILENO, &byte, 1) > 0) {
  }
  return status;
}
