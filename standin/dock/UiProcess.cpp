#include "standin/dock/UiProcess.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "diagnostics/Console.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell::standin {
namespace {

bool mayHaveDisplay() {
  return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY"}, [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  });
}

}  // namespace

std::unique_ptr<UiProcess> UiProcess::start() {
  std::array<int, 2> ends{};
  if (!mayHaveDisplay() || ::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return nullptr;
  }
  system::Descriptor told(ends[0]);
  const system::Descriptor heard(ends[1]);
  const auto own = system::runningExecutable();
  auto process =
      own ? system::Process::start({.words = {own->parent_path() / "dock-ui"}, .input = heard.number()}) : own.error();
  if (!process) {
    diagnostics::printErrorLine("Dock: " + process.error().message);
    return nullptr;
  }
  return std::unique_ptr<UiProcess>(new UiProcess(*std::move(process), std::move(told)));
}

UiProcess::~UiProcess() {
  if (isRunning()) {
    process_.send(SIGKILL);
    process_.wait();
  }
}

bool UiProcess::isRunning() { return process_.number() > 0 && !process_.end(); }

void UiProcess::tellEnd() const { ::send(socket(), noDock.data(), noDock.size(), MSG_NOSIGNAL | MSG_DONTWAIT); }

void showOn(int socket, const std::string& behavior) {
  ::send(socket, behavior.data(), behavior.size(), MSG_NOSIGNAL);
  pollfd ending{.fd = socket, .events = 0, .revents = 0};
  while (::poll(&ending, 1, -1) < 0 && errno == EINTR) {
  }
}

}  // namespace tarnwell::standin
