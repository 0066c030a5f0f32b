#include "core/ShellCommandRunner.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "diagnostics/Fault.h"
#include "system/ChildStreams.h"
#include "system/Pipe.h"
#include "system/SystemFault.h"
#include "system/Utf8.h"

namespace tarnwell::core {
namespace {

std::string readToEnd(const system::Descriptor& source) {
  std::string bytes;
  std::array<char, 4096> chunk{};
  for (;;) {
    const ssize_t count = ::read(source.number(), chunk.data(), chunk.size());
    if (count == 0) {
      return bytes;
    }
    if (count > 0) {
      bytes.append(chunk.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      system::systemFault("read a command's output", errno);
    }
  }
}

}  // namespace

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
  std::string output = readToEnd(pipe.readEnd);
  if (!system::isUtf8(output)) {
    diagnostics::fault("the output of \"" + commandLine + "\" is not UTF-8");
  }
  return output;
}

}  // namespace tarnwell::core
