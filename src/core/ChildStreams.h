#pragma once

#include <spawn.h>

#include "core/Pipe.h"

namespace tarnwell::core {

/// What a child finds at its descriptors 0, 1 and 2, and that it finds nothing else. Standard input is the null device;
/// both outputs are one open file, so that they keep the order in which the child writes.
class ChildStreams {
 public:
  /// The output goes to the pipe's read end in this process.
  static ChildStreams readHere(const Pipe& pipe);

  /// The child is the reader of its own pipe: it never meets a closed one, whatever this process does with its ends.
  static ChildStreams readByNobody(const Pipe& pipe);

  ChildStreams(const ChildStreams&) = delete;
  ChildStreams& operator=(const ChildStreams&) = delete;
  ~ChildStreams();

  const posix_spawn_file_actions_t& actions() const { return actions_; }

 private:
  ChildStreams();

  posix_spawn_file_actions_t actions_ = {};
};

}  // namespace tarnwell::core
