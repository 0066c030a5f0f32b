#pragma once

#include <csignal>

namespace tarnwell::system {

/// Holds back every signal while it stands, around the start of a process: no handler of this one runs in the new one,
/// which has its memory or a copy of it.
class SignalPause {
 public:
  SignalPause() {
    sigset_t all;
    sigfillset(&all);  // a macro on some systems
    ::pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  SignalPause(const SignalPause&) = delete;
  SignalPause& operator=(const SignalPause&) = delete;
  ~SignalPause() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_ = {};
};

}  // namespace tarnwell::system
