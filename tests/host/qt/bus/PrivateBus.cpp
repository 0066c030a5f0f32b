#include "host/qt/bus/PrivateBus.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace tarnwell::host_qt {
namespace {

// The child's part: the daemon ends with this process, however that ends.
[[noreturn]] void becomeDaemon(int output, const std::string& place) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  ::dup2(output, STDOUT_FILENO);
  const std::string address = "--address=" + place;
  ::execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--print-address=1", address.c_str(), nullptr);
  ::_exit(EXIT_FAILURE);
}

std::string lineFrom(int descriptor) {
  std::string line;
  for (char byte = 0; ::read(descriptor, &byte, 1) == 1 && byte != '\n';) {
    line += byte;
  }
  return line;
}

}  // namespace

PrivateBus::PrivateBus() : place_("unix:tmpdir=/tmp") { start(); }

void PrivateBus::start() {
  std::array<int, 2> ends = {};
  if (::pipe(ends.data()) != 0) {
    throw std::runtime_error("no pipe");
  }
  process_ = ::fork();
  if (process_ == 0) {
    becomeDaemon(ends[1], place_);
  }
  ::close(ends[1]);
  address_ = lineFrom(ends[0]);
  ::close(ends[0]);
  if (address_.empty()) {
    throw std::runtime_error("dbus-daemon did not start");
  }
  place_ = address_.substr(0, address_.find(','));
  ::setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), 1);
}

PrivateBus::~PrivateBus() {
  thaw();
  end(SIGTERM);
}

void PrivateBus::freeze() const { ::kill(process_, SIGSTOP); }

void PrivateBus::thaw() const { ::kill(process_, SIGCONT); }

void PrivateBus::restart() {
  end(SIGKILL);
  start();
}

void PrivateBus::end(int signal) {
  ::kill(process_, signal);
  ::waitpid(process_, nullptr, 0);
}

}  // namespace tarnwell::host_qt
