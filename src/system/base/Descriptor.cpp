#include "system/base/Descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "system/base/Fault.h"

namespace tarnwell::system {
namespace {

/// A call that gives a count of bytes, made again when a signal has interrupted it.
template <class Call>
ssize_t uninterrupted(Call call) {
  for (;;) {
    const ssize_t count = call();
    if (count >= 0 || errno != EINTR) {
      return count;
    }
  }
}

}  // namespace

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  Descriptor taken(std::move(other));
  std::swap(number_, taken.number_);
  return *this;
}

bool Descriptor::close() {
  // An interrupted close has closed all the same; a second try could hit the descriptor of something else.
  const int number = std::exchange(number_, -1);
  return number < 0 || ::close(number) == 0;
}

std::optional<std::string> Descriptor::readAll(std::size_t most) const {
  std::array<char, 16384> part;
  std::string bytes;
  while (bytes.size() <= most) {
    const ssize_t count = uninterrupted([&] { return ::read(number_, part.data(), part.size()); });
    if (count < 0) {
      return std::nullopt;
    }
    if (count == 0) {
      break;
    }
    bytes.append(part.data(), static_cast<std::size_t>(count));
  }
  bytes.resize(std::min(bytes.size(), most == std::string::npos ? most : most + 1));
  return bytes;
}

std::optional<std::string> Descriptor::readPart() const {
  std::array<char, 65536> part;
  const ssize_t count = uninterrupted([&] { return ::read(number_, part.data(), part.size()); });
  return count < 0 ? std::nullopt : std::optional(std::string(part.data(), static_cast<std::size_t>(count)));
}

bool Descriptor::waitUntilReadable(std::chrono::steady_clock::time_point end) const {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd state = {.fd = number_, .events = POLLIN, .revents = 0};
    const int ready = ::poll(&state, 1, static_cast<int>(std::max(left, std::chrono::milliseconds::zero()).count()));
    if (ready >= 0 || errno != EINTR) {
      return ready > 0;
    }
  }
}

bool Descriptor::writeAll(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = uninterrupted([&] { return ::write(number_, bytes.data(), bytes.size()); });
    if (count == -1) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool Descriptor::copyFrom(int source) const {
  static std::array<char, 262144> part;
  for (off_t place = 0;;) {
    const ssize_t count = uninterrupted([&] { return ::pread(source, part.data(), part.size(), place); });
    if (count < 0 || !writeAll({part.data(), static_cast<std::size_t>(count)})) {
      return false;
    }
    if (count == 0) {
      return true;
    }
    place += count;
  }
}

Descriptor aboveStandardStreams(Descriptor descriptor) {
  if (!descriptor || descriptor.number() > STDERR_FILENO) {
    return descriptor;
  }
  return Descriptor(::fcntl(descriptor.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

Descriptor requiredDescriptor(int number, std::string_view action) {
  Descriptor descriptor = aboveStandardStreams(Descriptor(number));
  if (!descriptor) {
    fault(action, errno);
  }
  return descriptor;
}

}  // namespace tarnwell::system
