#include "updater/package/PackageOpener.h"

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "host/linux/StartProgram.h"
#include "system/Descriptor.h"
#include "system/Fault.h"
#include "system/ProcessDescriptor.h"

namespace tarnwell::updater {
namespace {

constexpr const char* watching = "watch an installation";

}  // namespace

PackageOpener::PackageOpener(std::chrono::milliseconds patience)
    : patience_(patience),
      events_(system::requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), watching)),
      timer_(system::requiredDescriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK), watching)) {
  watch(timer_.number());
}

std::optional<system::Failure> PackageOpener::open(const std::filesystem::path& file, Opened opened) {
  const auto started = host_linux::startProgram({"xdg-open", file.string()});
  if (!started) {
    return system::Failure{"The package could not be opened: " + started.error().message +
                           ". Install the program, which is in the package xdg-utils, and try again."};
  }
  const pid_t process = *started;
  system::Descriptor child = system::processDescriptor(process);
  if (!child) {
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    return system::Failure{"It cannot be told whether the package was opened. Try again."};
  }
  opened_ = std::move(opened);
  awaited_ = child.number();
  watch(awaited_);
  children_.emplace(awaited_, std::move(child));
  setTimer(patience_);
  return std::nullopt;
}

void PackageOpener::stopWaiting() {
  awaited_ = -1;
  opened_ = nullptr;
  setTimer({});
}

void PackageOpener::dispatch() {
  std::array<epoll_event, 4> events{};
  const int count = ::epoll_wait(events_.number(), events.data(), static_cast<int>(events.size()), 0);
  bool isTold = false;
  std::optional<system::Failure> outcome;
  for (int index = 0; index < count; ++index) {
    const int number = events.at(static_cast<std::size_t>(index)).data.fd;
    const bool isAwaited = number == awaited_;
    if (number == timer_.number()) {
      isTold = true;
    } else if (auto failure = endOf(number); isAwaited) {
      isTold = true;
      outcome = std::move(failure);
    }
  }
  // Last, since it may end this object.
  if (isTold) {
    tell(std::move(outcome));
  }
}

// Zero disarms the timer, and takes back that it went off.
void PackageOpener::setTimer(std::chrono::milliseconds time) const {
  const auto whole = std::chrono::floor<std::chrono::seconds>(time);
  const itimerspec due = {
      .it_interval = {},
      .it_value = {.tv_sec = whole.count(), .tv_nsec = std::chrono::nanoseconds(time - whole).count()}};
  ::timerfd_settime(timer_.number(), 0, &due, nullptr);
}

std::optional<system::Failure> PackageOpener::endOf(int child) {
  siginfo_t info = {};
  const bool isSeen = ::waitid(P_PIDFD, static_cast<id_t>(child), &info, WEXITED | WNOHANG) == 0;
  // Out of the set before it is closed: a set keeps what is still open elsewhere, and would report it for ever.
  ::epoll_ctl(events_.number(), EPOLL_CTL_DEL, child, nullptr);
  children_.erase(child);
  // It has ended and nobody can tell how: the package stays, since somebody may be reading it.
  if (!isSeen) {
    return std::nullopt;
  }
  if (info.si_code == CLD_EXITED && info.si_status == 0) {
    return std::nullopt;
  }
  return system::Failure{"No program on this system opens Debian packages. Install one that does, and try again."};
}

void PackageOpener::watch(int number) const {
  epoll_event event = {.events = EPOLLIN, .data = {.fd = number}};
  if (::epoll_ctl(events_.number(), EPOLL_CTL_ADD, number, &event) != 0) {
    system::fault(watching, errno);
  }
}

void PackageOpener::tell(std::optional<system::Failure> failure) {
  const Opened opened = std::exchange(opened_, nullptr);
  stopWaiting();
  if (opened) {
    opened(std::move(failure));
  }
}

}  // namespace tarnwell::updater
