#include "core/ShellCommandRunner.h"

#include <cerrno>
#include <utility>

#include "diagnostics/Fault.h"
#include "system/ChildStreams.h"
#include "system/Fault.h"
#include "system/Pipe.h"
#include "system/Utf8.h"

namespace tarnwell::core {

void ShellCommandRunner::runDetached(const std::string& commandLine) {
  system::Pipe pipe = system::Pipe::create();
  pipe.grow();
  const pid_t child = launcher_.launch(commandLine, system::ChildStreams(pipe, system::Reader::nobody));
  // Before the child is watched, so that there are descriptors left to watch it with.
  pipe = {};
  reaper_.watch(child);
}

std::string ShellCommandRunner::runCaptured(const std::string& commandLine) {
  system::Pipe pipe = system::Pipe::create();
  const pid_t child = launcher_.launch(commandLine, system::ChildStreams(pipe, system::Reader::thisProcess));
  pipe.writeEnd.close();
  reaper_.watch(child);
  auto output = pipe.readEnd.readAll();
  if (!output) {
    system::fault("read a command's output", errno);
  }
  if (!system::isUtf8(*output)) {
    diagnostics::fault("the output of \"" + commandLine + "\" is not UTF-8");
  }
  return *std::move(output);
}

}  // namespace tarnwell::core
