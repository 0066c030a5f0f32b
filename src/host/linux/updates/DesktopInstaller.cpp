#include "host/linux/updates/DesktopInstaller.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <utility>

#include "core/SystemFault.h"
#include "host/linux/StartProgram.h"
#include "host/linux/updates/PackageKind.h"

namespace tarnwell::host_linux::updates {
namespace {

constexpr const char* packageName = "tarnwell-update.deb";
constexpr std::chrono::nanoseconds atOnce = std::chrono::nanoseconds(1);

core::Descriptor needed(int number) {
  auto descriptor = core::aboveStandardStreams(core::Descriptor(number));
  if (descriptor.isEmpty()) {
    core::systemFault("watch an installation", errno);
  }
  return descriptor;
}

/// The C library's own declaration is missing in older versions and unusable from C++ in others.
core::Descriptor watchOn(pid_t child) {
  return core::aboveStandardStreams(core::Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, child, 0))));
}

// A child that the system does not know any more has ended, nobody knows how.
bool endedWell(int child) {
  siginfo_t info = {};
  if (::waitid(P_PIDFD, static_cast<id_t>(child), &info, WEXITED | WNOHANG) != 0) {
    return true;
  }
  return info.si_code == CLD_EXITED && info.si_status == 0;
}

}  // namespace

DesktopInstaller::DesktopInstaller(Settings settings)
    : settings_(std::move(settings)),
      events_(needed(::epoll_create1(EPOLL_CLOEXEC))),
      timer_(needed(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))) {
  watch(timer_.number());
}

void DesktopInstaller::install(const FeedItem& /*item*/, PackageFile& package, Handed handed) {
  handed_ = std::move(handed);
  switch (packageKind(package.descriptor())) {
    case PackageKind::debian:
      open(package);
      break;
    case PackageKind::appImage:
      replace(package);
      break;
    case PackageKind::other:
      end(Failure{"The update is of a kind that cannot be installed on this system."});
      break;
  }
}

void DesktopInstaller::dispatch() {
  std::array<epoll_event, 4> events{};
  const int count = ::epoll_wait(events_.number(), events.data(), static_cast<int>(events.size()), 0);
  bool isTime = false;
  for (int index = 0; index < count; ++index) {
    const int number = events.at(static_cast<std::size_t>(index)).data.fd;
    if (number == timer_.number()) {
      isTime = true;
    } else {
      childHasEnded(number);
    }
  }
  // Last, since it may end this object.
  if (isTime) {
    timeHasCome();
  }
}

void DesktopInstaller::open(PackageFile& package) {
  const auto named = package.giveName(packageName);
  if (const auto* failure = std::get_if<Failure>(&named)) {
    return end(*failure);
  }
  named_ = std::get<std::filesystem::path>(named);
  const auto child = startProgram({"xdg-open", named_.string()});
  if (const auto* failure = std::get_if<Failure>(&child)) {
    return end(Failure{"The package could not be opened: " + failure->message + "."});
  }
  core::Descriptor ended = watchOn(std::get<pid_t>(child));
  if (ended.isEmpty()) {
    return end(std::nullopt);
  }
  opener_ = ended.number();
  watch(opener_);
  children_.emplace(opener_, std::move(ended));
  wakeAfter(settings_.patience);
}

void DesktopInstaller::replace(const PackageFile& package) {
  if (!settings_.appImage) {
    return end(Failure{"The update is an AppImage, but Tarnwell does not run from one."});
  }
  auto begun = FileReplacement::begin(
      core::Descriptor(::fcntl(package.descriptor(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1)), *settings_.appImage);
  if (const auto* failure = std::get_if<Failure>(&begun)) {
    return end(*failure);
  }
  replacement_.emplace(std::get<FileReplacement>(std::move(begun)));
  wakeAfter(atOnce);
}

void DesktopInstaller::wakeAfter(std::chrono::nanoseconds time) const {
  const auto whole = std::chrono::floor<std::chrono::seconds>(time);
  const itimerspec due = {.it_interval = {}, .it_value = {.tv_sec = whole.count(), .tv_nsec = (time - whole).count()}};
  ::timerfd_settime(timer_.number(), 0, &due, nullptr);
}

void DesktopInstaller::timeHasCome() {
  std::uint64_t expirations = 0;
  if (::read(timer_.number(), &expirations, sizeof expirations) < 0) {
    return;
  }
  if (replacement_) {
    const auto progress = replacement_->step();
    const auto* failure = std::get_if<Failure>(&progress);
    if (failure == nullptr && std::get<FileReplacement::Progress>(progress) == FileReplacement::Progress::more) {
      return wakeAfter(atOnce);
    }
    outcome_ = failure != nullptr ? std::optional(*failure) : std::nullopt;
    replacement_.reset();
  }
  opener_ = -1;
  const std::optional<Failure> outcome = std::exchange(outcome_, std::nullopt).value_or(std::nullopt);
  if (outcome && !named_.empty()) {
    ::unlink(named_.c_str());
  }
  if (const Handed handed = std::exchange(handed_, nullptr)) {
    handed(outcome);
  }
}

void DesktopInstaller::childHasEnded(int number) {
  const bool well = endedWell(number);
  // Out of the set before it is closed: a set keeps what is still open elsewhere, and would report it for ever.
  ::epoll_ctl(events_.number(), EPOLL_CTL_DEL, number, nullptr);
  children_.erase(number);
  if (number == opener_) {
    end(well ? std::nullopt : std::optional(Failure{"No program on this system opens packages."}));
  }
}

void DesktopInstaller::watch(int number) const {
  epoll_event event = {.events = EPOLLIN, .data = {.fd = number}};
  if (::epoll_ctl(events_.number(), EPOLL_CTL_ADD, number, &event) != 0) {
    core::systemFault("watch an installation", errno);
  }
}

void DesktopInstaller::end(std::optional<Failure> failure) {
  outcome_ = std::move(failure);
  wakeAfter(atOnce);
}

}  // namespace tarnwell::host_linux::updates
