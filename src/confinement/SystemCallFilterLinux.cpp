#include <fcntl.h>
#include <linux/netlink.h>
#include <linux/sockios.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "confinement/Fences.h"

namespace tarnwell::confinement {
namespace {

/// What none of our work asks for. A list of what is refused, not of what is let through: the libraries that do the
/// work differ between systems in harmless calls.
constexpr std::array alwaysRefused = {
    // other processes
    SCMP_SYS(kill), SCMP_SYS(tkill), SCMP_SYS(ptrace), SCMP_SYS(process_vm_readv), SCMP_SYS(process_vm_writev),
    SCMP_SYS(process_madvise), SCMP_SYS(pidfd_open), SCMP_SYS(pidfd_getfd), SCMP_SYS(pidfd_send_signal), SCMP_SYS(kcmp),
    SCMP_SYS(rt_sigqueueinfo), SCMP_SYS(rt_tgsigqueueinfo), SCMP_SYS(setpriority), SCMP_SYS(ioprio_set),
    SCMP_SYS(sched_setaffinity), SCMP_SYS(sched_setattr), SCMP_SYS(sched_setparam), SCMP_SYS(sched_setscheduler),
    // rooms of one's own, and what is mounted
    SCMP_SYS(unshare), SCMP_SYS(setns), SCMP_SYS(chroot), SCMP_SYS(pivot_root), SCMP_SYS(mount), SCMP_SYS(umount2),
    SCMP_SYS(move_mount), SCMP_SYS(open_tree), SCMP_SYS(fsopen), SCMP_SYS(fsconfig), SCMP_SYS(fsmount),
    SCMP_SYS(fspick), SCMP_SYS(mount_setattr), SCMP_SYS(open_by_handle_at), SCMP_SYS(name_to_handle_at),
    SCMP_SYS(truncate),
    // what a file says of itself: no fence around files covers it
    SCMP_SYS(chmod), SCMP_SYS(fchmodat), SCMP_SYS(chown), SCMP_SYS(lchown), SCMP_SYS(fchownat), SCMP_SYS(setxattr),
    SCMP_SYS(lsetxattr), SCMP_SYS(removexattr), SCMP_SYS(lremovexattr), SCMP_SYS(utime), SCMP_SYS(utimes),
    SCMP_SYS(futimesat), SCMP_SYS(utimensat),
    // programs that no file system has, as a fence around files does not see them
    SCMP_SYS(memfd_create), SCMP_SYS(execveat),
    // out of the time limit, and out of the session that is killed
    SCMP_SYS(timer_settime), SCMP_SYS(timer_delete), SCMP_SYS(setsid), SCMP_SYS(setpgid),
    // the kernel itself
    SCMP_SYS(bpf), SCMP_SYS(perf_event_open), SCMP_SYS(userfaultfd), SCMP_SYS(io_uring_setup), SCMP_SYS(io_uring_enter),
    SCMP_SYS(io_uring_register), SCMP_SYS(keyctl), SCMP_SYS(add_key), SCMP_SYS(request_key), SCMP_SYS(init_module),
    SCMP_SYS(finit_module), SCMP_SYS(delete_module), SCMP_SYS(kexec_load), SCMP_SYS(kexec_file_load), SCMP_SYS(reboot),
    SCMP_SYS(swapon), SCMP_SYS(swapoff), SCMP_SYS(acct), SCMP_SYS(quotactl), SCMP_SYS(syslog), SCMP_SYS(personality),
    SCMP_SYS(settimeofday), SCMP_SYS(clock_settime), SCMP_SYS(adjtimex), SCMP_SYS(clock_adjtime), SCMP_SYS(sethostname),
    SCMP_SYS(setdomainname), SCMP_SYS(mq_open), SCMP_SYS(shmget), SCMP_SYS(semget), SCMP_SYS(msgget)};

/// Newer than the library's own list: `fchmodat2`, the same on every machine.
constexpr int newerChangeMode = 452;

/// What makes signals come to a process when something happens to a descriptor.
constexpr std::array signallingControls = {F_SETOWN, F_SETSIG, F_SETOWN_EX};
constexpr std::array signallingRequests = {FIOSETOWN, SIOCSPGRP};

constexpr std::array namespaceFlags = {CLONE_NEWUSER, CLONE_NEWNS,  CLONE_NEWPID,   CLONE_NEWNET,
                                       CLONE_NEWIPC,  CLONE_NEWUTS, CLONE_NEWCGROUP};

constexpr scmp_datum_t whole = 0xffffffffU;  // Of an argument of the kernel's type int.

constexpr std::array startingCalls = {SCMP_SYS(execve), SCMP_SYS(fork), SCMP_SYS(vfork)};
constexpr std::array socketCalls = {SCMP_SYS(socket), SCMP_SYS(socketpair), SCMP_SYS(connect), SCMP_SYS(bind),
                                    SCMP_SYS(listen), SCMP_SYS(accept),     SCMP_SYS(accept4)};

/// Netlink tells the resolver which addresses this machine has.
constexpr std::array internetFamilies = {AF_INET, AF_INET6, AF_NETLINK};

/// The library's own macros for this are C.
scmp_arg_cmp argument(unsigned index, scmp_compare comparison, scmp_datum_t first, scmp_datum_t second = 0) {
  return {.arg = index, .op = comparison, .datum_a = first, .datum_b = second};
}

class Filter {
 public:
  Filter() : context_(::seccomp_init(SCMP_ACT_ALLOW), &::seccomp_release) {}

  template <class... Comparison>
  void refuse(int call, Comparison... comparison) {
    add(SCMP_ACT_ERRNO(EPERM), call, comparison...);
  }

  template <class... Comparison>
  void add(std::uint32_t action, int call, Comparison... comparison) {
    // The library passes over a call that this machine does not have.
    isGood_ = isGood_ && ::seccomp_rule_add(context_.get(), action, call, sizeof...(comparison), comparison...) == 0;
  }

  /// The library has one number for whatever the kernel says; errno keeps the kernel's.
  bool raise() const { return isGood_ && ::seccomp_load(context_.get()) == 0; }

 private:
  std::unique_ptr<void, decltype(&::seccomp_release)> context_;
  bool isGood_ = true;
};

// The flags of the newer calls cannot be seen by a filter; where the kernel is said not to have them, the older ones
// are taken.
void refuseUnseen(Filter& filter) {
  filter.add(SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3));
  filter.add(SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(openat2));
}

void refuseReachingOthers(Filter& filter) {
  filter.refuse(SCMP_SYS(tgkill), argument(0, SCMP_CMP_NE, static_cast<scmp_datum_t>(::getpid())));
  filter.refuse(SCMP_SYS(prlimit64), argument(0, SCMP_CMP_NE, 0));
  for (const int control : signallingControls) {
    filter.refuse(SCMP_SYS(fcntl), argument(1, SCMP_CMP_MASKED_EQ, whole, static_cast<scmp_datum_t>(control)));
  }
  for (const int request : signallingRequests) {
    filter.refuse(SCMP_SYS(ioctl), argument(1, SCMP_CMP_MASKED_EQ, whole, static_cast<scmp_datum_t>(request)));
  }
  // What is typed into the terminal of the program that started this.
  filter.refuse(SCMP_SYS(ioctl), argument(1, SCMP_CMP_MASKED_EQ, whole, TIOCSTI));
  for (const int flag : namespaceFlags) {
    filter.refuse(SCMP_SYS(clone),
                  argument(0, SCMP_CMP_MASKED_EQ, static_cast<scmp_datum_t>(flag), static_cast<scmp_datum_t>(flag)));
  }
}

// Ways to empty a file that a fence around files lets be read, or does not see: without a right to write, or with the
// access mode that is for neither.
void refuseEmptying(Filter& filter) {
  constexpr scmp_datum_t noMode = O_ACCMODE;
  filter.refuse(SCMP_SYS(open), argument(1, SCMP_CMP_MASKED_EQ, O_ACCMODE, noMode));
  filter.refuse(SCMP_SYS(openat), argument(2, SCMP_CMP_MASKED_EQ, O_ACCMODE, noMode));
  filter.refuse(SCMP_SYS(open), argument(1, SCMP_CMP_MASKED_EQ, O_ACCMODE | O_TRUNC, O_TRUNC));
  filter.refuse(SCMP_SYS(openat), argument(2, SCMP_CMP_MASKED_EQ, O_ACCMODE | O_TRUNC, O_TRUNC));
}

// Threads stay possible: a name is looked up by one.
void refuseStarting(Filter& filter) {
  for (const int call : startingCalls) {
    filter.refuse(call);
  }
  filter.refuse(SCMP_SYS(clone), argument(0, SCMP_CMP_MASKED_EQ, CLONE_THREAD, 0));
}

void refuseOtherSockets(Filter& filter) {
  for (int family = 0; family < AF_MAX; ++family) {
    if (std::find(internetFamilies.begin(), internetFamilies.end(), family) == internetFamilies.end()) {
      filter.refuse(SCMP_SYS(socket), argument(0, SCMP_CMP_EQ, static_cast<scmp_datum_t>(family)));
    }
  }
  filter.refuse(SCMP_SYS(socket), argument(0, SCMP_CMP_GE, AF_MAX));
  filter.refuse(SCMP_SYS(socket), argument(0, SCMP_CMP_EQ, AF_NETLINK), argument(2, SCMP_CMP_NE, NETLINK_ROUTE));
  // Of a pair that is no stream, either end could send to any socket of this machine's.
  constexpr scmp_datum_t types = 0xf;
  for (scmp_datum_t type = 0; type <= types; ++type) {
    if (type != SOCK_STREAM) {
      filter.refuse(SCMP_SYS(socketpair), argument(1, SCMP_CMP_MASKED_EQ, types, type));
    }
  }
  for (const int call : {SCMP_SYS(listen), SCMP_SYS(accept), SCMP_SYS(accept4)}) {
    filter.refuse(call);
  }
}

void refuseSockets(Filter& filter) {
  for (const int call : socketCalls) {
    filter.refuse(call);
  }
}

}  // namespace

bool filterSystemCalls(const Rights& rights) {
  Filter filter;
  for (const int call : alwaysRefused) {
    filter.refuse(call);
  }
  filter.refuse(newerChangeMode);
  refuseUnseen(filter);
  refuseReachingOthers(filter);
  refuseEmptying(filter);
  if (rights.programs.empty()) {
    refuseStarting(filter);
  }
  if (rights.usesNetwork) {
    refuseOtherSockets(filter);
  } else {
    refuseSockets(filter);
  }
  return filter.raise();
}

}  // namespace tarnwell::confinement
