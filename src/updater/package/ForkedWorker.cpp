#include "updater/package/ForkedWorker.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <string>
#include <string_view>
#include <utility>

#include "system/Descriptor.h"
#include "system/Fault.h"
#include "system/Pipe.h"
#include "system/SignalPause.h"

namespace tarnwell::updater {
namespace {

using Clock = std::chrono::steady_clock;

// How a copy begins what it says. Nothing at all means that it did not get that far.
constexpr char doneMark = '+';
constexpr char failedMark = '-';

/// So short that it is written at once or not at all.
constexpr std::size_t longestWord = PIPE_BUF;

// A process that was killed is usually gone within one.
constexpr std::chrono::milliseconds stopPatience(50);
constexpr std::chrono::milliseconds endPatience(1000);

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
  Copy(ForkedWorker& worker, system::Descriptor reading, system::Process process, Ended ended)
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
  system::Process process_;
  Ended ended_;
};

ForkedWorker::ForkedWorker() : events_(system::requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), "watch work")) {
  watch(stopped_.descriptor());
}

ForkedWorker::~ForkedWorker() {
  const auto end = Clock::now() + endPatience;
  while (!stopped_.isIdle() && stopped_.waitForEnd(end)) {
    stopped_.reap();
  }
}

std::unique_ptr<Worker::Job> ForkedWorker::begin(Work work, Ended ended) {
  system::Pipe pipe = system::Pipe::create("begin work");
  const pid_t original = ::getpid();
  pid_t process = -1;
  {
    const system::SignalPause pause;
    process = ::fork();
    if (process == 0) {
      workAsCopy(work, pipe.writeEnd.number(), original);
    }
  }
  // Where there is no copy, the pipe has no writer left: it ends without a word.
  auto copy = std::make_unique<Copy>(*this, std::move(pipe.readEnd), system::Process(process), std::move(ended));
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
      stopped_.reap();
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
  copy.process_.send(SIGKILL);
  bury(std::move(copy.process_));
}

// Usually it is gone at once, and what it was at can be cleared away. Only a disk that does not answer holds it longer.
void ForkedWorker::bury(system::Process process) {
  const system::Descriptor end = process.endDescriptor();
  if (process.number() > 0 && !(end.waitUntilReadable(Clock::now() + stopPatience) && process.end())) {
    stopped_.watch(std::move(process));
  }
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
