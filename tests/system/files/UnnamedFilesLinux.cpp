#include <fcntl.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>

#include "system/FilterLinux.h"
#include "system/files/UnnamedFiles.h"

namespace tarnwell::system {

bool refuseUnnamedFiles() {
  constexpr unsigned unnamed = O_TMPFILE & ~O_DIRECTORY;
  std::array<sock_filter, 6> program = {loaded(offsetof(seccomp_data, nr)),
                                        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_openat, 0, 3),
                                        loaded(offsetof(seccomp_data, args[2])),
                                        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, unnamed, 0, 1),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  return filterCalls(program);
}

}  // namespace tarnwell::system
