#include "core/ShellCommandRunner.h"

#include <cerrno>
#include <utility>

#include "diagnostics/Fault.h"
#include "system/base/Fault.h"
#include "system/base/Utf8.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

namespace tarnwell::core {

namespace {

/// Both outputs are one open file, so that they keep the order in which the child writes.
system::Process launch(const std::string& commandLine, const system::Descriptor& output,
                       const system::Descriptor& extra = {}) {
  auto shell = system::Process::start({.words = {"/bin/zsh", "-c", commandLine},
                                       .output = output.number(),
                                       .errors = output.number(),
                                       .extra = extra.number()});
  if (!shell) {
    system::fault("launch /bin/zsh", shell.error().error);
  }
  return *std::move(shell);
}

}  // namespace

void ShellCommandRunner::runDetached(const std::string& commandLine) {
  auto pipe = system::UnreadPipe::create();
  system::Process child = launch(commandLine, pipe.output, pipe.otherEnd);
  // Before the child is watched, so that there are descriptors left to watch it with.
  pipe = {};
  reaper_.watch(std::move(child));
}

std::string ShellCommandRunner::runCaptured(const std::string& commandLine) {
  system::Pipe pipe = system::Pipe::create();
  system::Process child = launch(commandLine, pipe.writeEnd);
  pipe.writeEnd.close();
  reaper_.watch(std::move(child));
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
