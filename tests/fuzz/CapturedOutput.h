#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "fuzz/Require.h"
#include "system/base/Descriptor.h"

namespace tarnwell::fuzz {

/// Keeps what this process writes on standard output, for as long as this lives.
class CapturedOutput {
 public:
  CapturedOutput() { require(file_ && before_ && ::dup2(file_.number(), STDOUT_FILENO) == STDOUT_FILENO); }
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;
  ~CapturedOutput() { ::dup2(before_.number(), STDOUT_FILENO); }

  std::string text() const {
    require(::lseek(file_.number(), 0, SEEK_SET) == 0);
    return file_.readAll().value();
  }

 private:
  system::Descriptor file_{::memfd_create("output", MFD_CLOEXEC)};
  system::Descriptor before_{::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)};
};

}  // namespace tarnwell::fuzz
