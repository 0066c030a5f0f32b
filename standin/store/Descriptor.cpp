#include "standin/store/Descriptor.h"

#include <unistd.h>

#include <array>
#include <cerrno>

namespace tarnwell::standin {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

Descriptor::~Descriptor() { close(); }

bool Descriptor::close() {
  const int number = std::exchange(number_, -1);
  return number < 0 || ::close(number) == 0;
}

bool Descriptor::readAll(std::string& bytes) const {
  std::array<char, 16384> buffer;
  for (;;) {
    const ssize_t count = ::read(number_, buffer.data(), buffer.size());
    if (count > 0) {
      bytes.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
      return true;
    } else if (errno != EINTR) {
      return false;
    }
  }
}

bool Descriptor::writeAll(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = ::write(number_, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace tarnwell::standin
