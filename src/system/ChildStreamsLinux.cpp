#include <fcntl.h>
#include <unistd.h>

#include <string>

#include "system/ChildStreams.h"
#include "system/Fault.h"

namespace tarnwell::system {
namespace {

void requireStreams(int error) {
  if (error != 0) {
    fault("prepare a child's streams", error);
  }
}

}  // namespace

ChildStreams::ChildStreams(const Pipe& pipe, Reader reader) {
  requireStreams(::posix_spawn_file_actions_init(&actions_));
  requireStreams(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
  if (reader == Reader::thisProcess) {
    requireStreams(::posix_spawn_file_actions_adddup2(&actions_, pipe.writeEnd.number(), STDOUT_FILENO));
  } else {
    // Opened in the child, and for reading too.
    const std::string path = "/proc/self/fd/" + std::to_string(pipe.writeEnd.number());
    requireStreams(::posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, path.c_str(), O_RDWR, 0));
  }
  requireStreams(::posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO));
  // What this process inherited itself, or a library left open on exec, is nothing for the child either.
  requireStreams(::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1));
}

ChildStreams::~ChildStreams() { ::posix_spawn_file_actions_destroy(&actions_); }

}  // namespace tarnwell::system
