#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <span>

namespace tarnwell::system {

/// The part of `seccomp_data` that the next comparison is about.
inline sock_filter loaded(std::size_t offset) {
  return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
}

/// From now on each call of this process goes through `program`. Whether the system has taken it.
inline bool filterCalls(std::span<sock_filter> program) {
  const sock_fprog filter = {.len = static_cast<unsigned short>(program.size()), .filter = program.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

/// From now on this call of this process has this answer of the kernel's filter instead.
inline bool answer(unsigned call, unsigned action) {
  std::array<sock_filter, 4> program = {
      loaded(offsetof(seccomp_data, nr)), BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, action), BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  return filterCalls(program);
}

/// From now on this call of this process fails, or does nothing and says that it is done where there is no error.
inline bool refuse(unsigned call, unsigned error = EIO) { return answer(call, SECCOMP_RET_ERRNO | error); }

}  // namespace tarnwell::system
