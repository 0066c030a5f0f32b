#pragma once

#include <spawn.h>

#include "system/Pipe.h"

namespace tarnwell::system {

/// Who reads what a child prints.
enum class Reader {
  thisProcess,
  /// Nobody does. The child holds both sides of its pipe, so it never meets a broken one, whatever this process does
  /// with its ends.
  nobody,
};

/// What a child finds at its descriptors 0, 1 and 2, and that it finds nothing else. Standard input is the null device;
/// both outputs are one open file, so that they keep the order in which the child writes.
class ChildStreams {
 public:
  ChildStreams(const Pipe& pipe, Reader reader);
  ChildStreams(const ChildStreams&) = delete;
  ChildStreams& operator=(const ChildStreams&) = delete;
  ~ChildStreams();

  const posix_spawn_file_actions_t& actions() const { return actions_; }

 private:
  posix_spawn_file_actions_t actions_ = {};
};

}  // namespace tarnwell::system
