#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

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

}  // namespace tarnwell::system
