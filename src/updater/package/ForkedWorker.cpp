#include "updater/package/ForkedWorker.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <string>
#include <string_view>
#include <utility>

#include "system/Descriptor.h"
#include "system/Fault.h"
#include "system/ProcessDescriptor.h"

namespace tarnwell::updater {
namespace {

// How a copy begins what it says. Nothing at all means that it did not get that far.
constexpr char doneMark = '+';
constexpr char failedMark = '-';

/// So short that it is written at once or not at all.
constexpr std::size_t longestWord = PIPE_BUF;

// Milliseconds; a process that was killed is usually gone within one.
constexpr int stopPatience = 50;
constexpr int endPatience = 1000;

struct WordPipe {
  system::Descriptor reading;
  system::Descriptor writing;
};

WordPipe makeWordPipe() {
  std::array<int, 2> ends = {};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return {};
  }
  return {.reading = system::aboveStandardStreams(system::Descriptor(ends[0])),
          .writing = system::aboveStandardStreams(system::Descriptor(ends[1]))};
}

bool ends(int process, int milliseconds) {
  pollfd state = {.fd = process, .events = POLLIN, .revents = 0};
  return ::poll(&state, 1, milliseconds) > 0;
}

// The C library's own declaration is missing in older versions and unusable from C++ in others.
void kill(int process) { ::syscall(SYS_pidfd_send_signal, process, SIGKILL, nullptr, 0); }

/// Keeps signals from reaching the handlers of this process in its copy.
class SignalPause {
 public:
  SignalPause() {
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  SignalPause(const SignalPause&) = delete;
  SignalPause& operator=(const SignalPause&) = delete;
  ~SignalPause() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_ = {};
};

void takeDefaultSignals() {
  for (int number = 1; number < NSIG; ++number) {
    ::signal(number, SIG_DFL);
  }
  sigset_t none;
  ::sigemptyset(&none);
  ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void workAsCopy(const Worker::Work& work, int writing, pid_t original) noexcept {
  takeDefaultSignals();
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // The original may have ended before that was said.
  if (::getppid() != original) {
    ::_exit(EXIT_FAILURE);
  }
  if (const auto failure = work()) {
    const std::string word = (failedMark + failure->message).substr(0, longestWord);
    (void)!::write(writing, word.data(), word.size());
    ::_exit(EXIT_FAILURE);
  }
  const bool isSaid = ::write(writing, &doneMark, 1) == 1;
  ::_exit(isSaid ? EXIT_SUCCESS : EXIT_FAILURE);
}

std::optional<system::Failure> outcomeOf(int reading) {
  std::array<char, longestWord> bytes = {};
  const ssize_t count = ::read(reading, bytes.data(), bytes.size());
  const std::string_view word(bytes.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  if (word == std::string_view(&doneMark, 1)) {
    return std::nullopt;
  }
  return system::Failure{word.starts_with(failedMark)
                             ? std::string(word.substr(1))
                             : "The work on the update was interrupted before it was done. Try again."};
}

}  // namespace

class ForkedWorker::Copy final : public Worker::Job {
 public:
  Copy(ForkedWorker& worker, system::Descriptor reading, system::Descriptor process, Ended ended)
      : worker_(worker), reading_(std::move(reading)), process_(std::move(process)), ended_(std::move(ended)) {}
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;
  ~Copy() override {
    if (reading_) {
      worker_.stop(*this);
    }
  }

 private:
  friend class ForkedWorker;

  ForkedWorker& worker_;
  system::Descriptor reading_;
  system::Descriptor process_;
  Ended ended_;
};

ForkedWorker::ForkedWorker() : events_(system::requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), "watch work")) {}

ForkedWorker::~ForkedWorker() {
  while (!buried_.empty()) {
    const int process = buried_.begin()->first;
    if (!ends(process, endPatience)) {
      break;
    }
    reap(process);
  }
}

std::unique_ptr<Worker::Job> ForkedWorker::begin(Work work, Ended ended) {
  WordPipe pipe = makeWordPipe();
  if (!pipe.reading || !pipe.writing) {
    system::fault("begin work", errno);
  }
  const pid_t original = ::getpid();
  pid_t process = -1;
  {
    const SignalPause pause;
    process = ::fork();
    if (process == 0) {
      workAsCopy(work, pipe.writing.number(), original);
    }
  }
  // Where there is no copy, nobody is left who could write: it ends without a word.
  system::Descriptor descriptor = process > 0 ? system::processDescriptor(process) : system::Descriptor();
  if (process > 0 && !descriptor) {
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
  }
  auto copy = std::make_unique<Copy>(*this, std::move(pipe.reading), std::move(descriptor), std::move(ended));
  watch(copy->reading_.number());
  copies_.emplace(copy->reading_.number(), copy.get());
  return copy;
}

void ForkedWorker::dispatch() {
  std::array<epoll_event, 8> events{};
  const int count = ::epoll_wait(events_.number(), events.data(), static_cast<int>(events.size()), 0);
  Copy* told = nullptr;
  for (int index = 0; index < count; ++index) {
    const int number = events.at(static_cast<std::size_t>(index)).data.fd;
    if (const auto found = copies_.find(number); found != copies_.end()) {
      told = found->second;
    } else {
      reap(number);
    }
  }
  // Last, and one at a time, since it may end this object. The others keep the descriptor readable.
  if (told != nullptr) {
    finish(*told);
  }
}

void ForkedWorker::finish(Copy& copy) {
  auto outcome = outcomeOf(copy.reading_.number());
  const Ended ended = std::move(copy.ended_);
  stop(copy);
  ended(std::move(outcome));
}

void ForkedWorker::stop(Copy& copy) {
  forget(copy.reading_.number());
  copies_.erase(copy.reading_.number());
  copy.reading_.close();
  if (copy.process_) {
    kill(copy.process_.number());
    bury(std::move(copy.process_));
  }
}

// Usually it is gone at once, and whoever stopped it can clear away what it was at. Only a disk that does not answer
// holds it longer.
void ForkedWorker::bury(system::Descriptor process) {
  const int number = process.number();
  watch(number);
  buried_.emplace(number, std::move(process));
  if (ends(number, stopPatience)) {
    reap(number);
  }
}

void ForkedWorker::reap(int process) {
  siginfo_t info = {};
  ::waitid(P_PIDFD, static_cast<id_t>(process), &info, WEXITED | WNOHANG);
  forget(process);
  buried_.erase(process);
}

void ForkedWorker::watch(int number) const {
  epoll_event event = {.events = EPOLLIN, .data = {.fd = number}};
  if (::epoll_ctl(events_.number(), EPOLL_CTL_ADD, number, &event) != 0) {
    system::fault("watch work", errno);
  }
}

// Before it is closed: a set keeps what is still open elsewhere, as in a copy, and would report it for ever.
void ForkedWorker::forget(int number) const { ::epoll_ctl(events_.number(), EPOLL_CTL_DEL, number, nullptr); }

}  // namespace tarnwell::updater
