#include "updater/package/PackageOpener.h"

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

#include "host/linux/StartProgram.h"
#include "system/Descriptor.h"
#include "system/Fault.h"

namespace tarnwell::updater {
namespace {

constexpr const char* watching = "watch an installation";

// Where it cannot be told how it ended, the package stays, since it may be being read.
std::optional<system::Failure> outcomeOf(const system::ProcessEnd& end) {
  if (end.isSuccess() || end.how == system::ProcessEnd::How::unknown) {
    return std::nullopt;
  }
  return system::Failure{"No program on this system opens Debian packages. Install one that does, and try again."};
}

}  // namespace

PackageOpener::PackageOpener(std::chrono::milliseconds patience)
    : patience_(patience),
      events_(system::requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), watching)),
      timer_(system::requiredDescriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK), watching)) {
  watch(timer_.number());
  watch(openers_.descriptor());
}

std::optional<system::Failure> PackageOpener::open(const std::filesystem::path& file, Opened opened) {
  auto started = host_linux::startProgram({"xdg-open", file.string()});
  if (!started) {
    return system::Failure{"The package could not be opened: " + started.error().message +
                           ". Install the program, which is in the package xdg-utils, and try again."};
  }
  if (!started->endDescriptor()) {
    started->send(SIGKILL);
    started->wait();
    return system::Failure{"It cannot be told whether the package was opened. Try again."};
  }
  opened_ = std::move(opened);
  awaited_ = started->number();
  openers_.watch(*std::move(started), [this, opener = awaited_](const system::ProcessEnd& end) {
    if (opener == awaited_) {
      tell(outcomeOf(end));
    }
  });
  setTimer(patience_);
  return std::nullopt;
}

void PackageOpener::stopWaiting() {
  awaited_ = -1;
  opened_ = nullptr;
  setTimer({});
}

void PackageOpener::dispatch() {
  std::uint64_t expirations = 0;
  const bool isOver = ::read(timer_.number(), &expirations, sizeof expirations) > 0;
  // Either may end this object.
  if (isOver) {
    tell(std::nullopt);
  } else {
    openers_.reap();
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
