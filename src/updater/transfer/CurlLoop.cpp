#include "updater/transfer/CurlLoop.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "diagnostics/Fault.h"
#include "system/Descriptor.h"
#include "system/Fault.h"

namespace tarnwell::updater {
namespace {

constexpr long millisecondsPerSecond = 1000;
constexpr long nanosecondsPerMillisecond = 1'000'000;

std::set<int> openDescriptors() {
  std::set<int> numbers;
  std::error_code error;
  for (std::filesystem::directory_iterator entry("/proc/self/fd", error), end; !error && entry != end;
       entry.increment(error)) {
    numbers.insert(std::stoi(entry->path().filename().string()));
  }
  // The one that the folder was read through is among them.
  std::erase_if(numbers, [](int number) { return ::fcntl(number, F_GETFD) < 0; });
  return numbers;
}

// The library makes a pair of sockets for waking it up, and would leave it open in the programs that we start.
CURLM* newClosedMulti(const CurlLibrary& curl) {
  const std::set<int> before = openDescriptors();
  CURLM* multi = curl.multiInit();
  for (const int number : openDescriptors()) {
    if (!before.contains(number)) {
      ::fcntl(number, F_SETFD, FD_CLOEXEC);
    }
  }
  return multi;
}

// Once for the process; the library keeps nothing that is worth giving back at the end.
CURLM* newMulti(const CurlLibrary& curl) {
  static const CURLcode ready = curl.globalInit(CURL_GLOBAL_DEFAULT);
  CURLM* multi = ready == CURLE_OK ? newClosedMulti(curl) : nullptr;
  if (multi == nullptr) {
    diagnostics::fault("the network library does not start");
  }
  return multi;
}

std::uint32_t eventsFor(int wanted) {
  const bool reads = wanted == CURL_POLL_IN || wanted == CURL_POLL_INOUT;
  const bool writes = wanted == CURL_POLL_OUT || wanted == CURL_POLL_INOUT;
  return (reads ? std::uint32_t{EPOLLIN} : 0U) | (writes ? std::uint32_t{EPOLLOUT} : 0U);
}

int conditionsOf(std::uint32_t events) {
  const bool reads = (events & (EPOLLIN | EPOLLHUP)) != 0;
  return (reads ? CURL_CSELECT_IN : 0) | ((events & EPOLLOUT) != 0 ? CURL_CSELECT_OUT : 0) |
         ((events & EPOLLERR) != 0 ? CURL_CSELECT_ERR : 0);
}

}  // namespace

CurlLoop::CurlLoop(std::string libraryName)
    : events_(system::requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), "watch connections")),
      timer_(system::requiredDescriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK), "make a timer")),
      libraryName_(std::move(libraryName)) {
  watch(timer_.number(), CURL_POLL_IN);
}

CurlLoop::~CurlLoop() {
  if (multi_ != nullptr) {
    library_.multiCleanup(multi_);
  }
}

std::optional<system::Failure> CurlLoop::start() {
  if (multi_ != nullptr) {
    return std::nullopt;
  }
  auto opened = CurlLibrary::open(libraryName_);
  if (!opened) {
    return opened.error();
  }
  library_ = *opened;
  multi_ = newMulti(library_);
  library_.multiSetopt(multi_, CURLMOPT_SOCKETFUNCTION, &CurlLoop::socketChanged);
  library_.multiSetopt(multi_, CURLMOPT_SOCKETDATA, this);
  library_.multiSetopt(multi_, CURLMOPT_TIMERFUNCTION, &CurlLoop::timerChanged);
  library_.multiSetopt(multi_, CURLMOPT_TIMERDATA, this);
  return std::nullopt;
}

void CurlLoop::dispatch() {
  // The bound keeps a fast connection from holding up the host's loop.
  std::array<epoll_event, 8> events{};
  const int count = ::epoll_wait(events_.number(), events.data(), static_cast<int>(events.size()), 0);
  for (int index = 0; index < count; ++index) {
    const epoll_event& event = events.at(static_cast<std::size_t>(index));
    if (event.data.fd == timer_.number()) {
      std::uint64_t expirations = 0;
      if (::read(timer_.number(), &expirations, sizeof expirations) > 0) {
        act(CURL_SOCKET_TIMEOUT, 0);
      }
    } else {
      act(event.data.fd, conditionsOf(event.events));
    }
  }
  tellEnded();
  runLater();
}

void CurlLoop::later(std::function<void()> action) {
  later_.push_back(std::move(action));
  setTimer(0);
}

void CurlLoop::add(CURL* handle, std::function<void(CURLcode)> ended) {
  ended_.insert_or_assign(handle, std::move(ended));
  if (library_.multiAddHandle(multi_, handle) != CURLM_OK) {
    diagnostics::fault("the network library takes no transfer");
  }
}

void CurlLoop::remove(CurlHandle handle) {
  ended_.erase(handle.get());
  if (isInside_) {
    removed_.push_back(std::move(handle));
  } else {
    end(std::move(handle));
  }
}

int CurlLoop::socketChanged(CURL* /*handle*/, curl_socket_t socket, int wanted, void* loop, void* /*known*/) {
  static_cast<CurlLoop*>(loop)->watch(socket, wanted);
  return 0;
}

int CurlLoop::timerChanged(CURLM* /*multi*/, long milliseconds, void* loop) {
  static_cast<CurlLoop*>(loop)->setTimer(milliseconds);
  return 0;
}

void CurlLoop::watch(curl_socket_t socket, int wanted) const {
  if (wanted == CURL_POLL_REMOVE) {
    ::epoll_ctl(events_.number(), EPOLL_CTL_DEL, socket, nullptr);
    return;
  }
  epoll_event event = {.events = eventsFor(wanted), .data = {.fd = socket}};
  if (::epoll_ctl(events_.number(), EPOLL_CTL_MOD, socket, &event) != 0 &&
      ::epoll_ctl(events_.number(), EPOLL_CTL_ADD, socket, &event) != 0) {
    system::fault("watch a connection", errno);
  }
}

// Negative for no timer; zero is as soon as possible, but from the event loop.
void CurlLoop::setTimer(long milliseconds) const {
  itimerspec due = {};
  if (milliseconds == 0) {
    due.it_value.tv_nsec = 1;
  } else if (milliseconds > 0) {
    due.it_value.tv_sec = milliseconds / millisecondsPerSecond;
    due.it_value.tv_nsec = milliseconds % millisecondsPerSecond * nanosecondsPerMillisecond;
  }
  ::timerfd_settime(timer_.number(), 0, &due, nullptr);
}

void CurlLoop::act(curl_socket_t socket, int what) {
  if (multi_ == nullptr) {
    return;
  }
  int running = 0;
  isInside_ = true;
  library_.multiSocketAction(multi_, socket, what, &running);
  isInside_ = false;
  for (CurlHandle& handle : std::exchange(removed_, {})) {
    end(std::move(handle));
  }
}

void CurlLoop::tellEnded() {
  if (multi_ == nullptr) {
    return;
  }
  int left = 0;
  while (const CURLMsg* message = library_.multiInfoRead(multi_, &left)) {
    const auto found = ended_.find(message->easy_handle);
    if (message->msg == CURLMSG_DONE && found != ended_.end()) {
      const CURLcode code = message->data.result;
      const auto ended = std::move(found->second);
      ended_.erase(found);
      ended(code);
    }
  }
}

void CurlLoop::runLater() {
  for (const auto& action : std::exchange(later_, {})) {
    action();
  }
}

void CurlLoop::end(CurlHandle handle) {
  library_.multiRemoveHandle(multi_, handle.get());
  handle.reset();
}

}  // namespace tarnwell::updater
