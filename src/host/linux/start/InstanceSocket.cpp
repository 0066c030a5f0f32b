#include "host/linux/start/InstanceSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/linux/start/Datagram.h"
#include "system/files/PrivateFolder.h"

namespace tarnwell::host_linux {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto lockPatience = std::chrono::seconds(2);
constexpr auto pause = std::chrono::milliseconds(20);
constexpr std::size_t longestMessage = 4096;
constexpr mode_t othersMay = 0077;

// The reader takes whole messages, so none is ever cut. A queue that is full has enough of them for the program to come
// to the front.
bool leaveMessage(const sockaddr_un& address, const std::string& message) {
  return leaveDatagram(address, std::string_view(message).substr(0, longestMessage)) || errno == EAGAIN;
}

/// Bound to the address, in the place of what a process that is gone has left there; none where that failed.
system::Descriptor listenAt(const sockaddr_un& address) {
  system::Descriptor socket = openDatagramSocket();
  ::unlink(&address.sun_path[0]);
  const bool isBound = socket && ::bind(socket.number(), plain(address), sizeof(address)) == 0;
  return isBound ? std::move(socket) : system::Descriptor();
}

bool isOursAlone(const std::filesystem::path& folder) {
  struct stat status = {};
  return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
         (status.st_mode & othersMay) == 0;
}

}  // namespace

system::Result<std::unique_ptr<InstanceSocket>> InstanceSocket::claim(const std::filesystem::path& folder,
                                                                      const std::string& program,
                                                                      const std::string& message) {
  const std::filesystem::path path = folder / (program + ".socket");
  const auto address = socketAddress(path);
  if (!address) {
    return system::Failure{path.string() + " is too long for a socket"};
  }
  const auto deadline = Clock::now() + lockPatience;
  auto lock = system::FileLock::take(folder / (program + ".lock"), {});
  while (!lock && lock.error().error == EWOULDBLOCK) {
    if (leaveMessage(*address, message)) {
      return nullptr;
    }
    if (Clock::now() > deadline) {
      return system::systemFailure(path.string() + " does not answer");
    }
    // It may just be starting, or ending.
    lock = system::FileLock::take(folder / (program + ".lock"), pause);
  }
  if (!lock) {
    return system::Failure{path.string() + ": " + std::generic_category().message(lock.error().error)};
  }
  system::Descriptor socket = listenAt(*address);
  if (!socket) {
    return system::systemFailure(path.string());
  }
  return std::unique_ptr<InstanceSocket>(new InstanceSocket(*std::move(lock), std::move(socket), path));
}

system::Result<std::unique_ptr<InstanceSocket>> InstanceSocket::claim(const std::string& program,
                                                                      const std::string& message) {
  const auto used = folder(program);
  if (!used) {
    return used.error();
  }
  return claim(*used, program, message);
}

InstanceSocket::~InstanceSocket() { ::unlink(path_.c_str()); }

std::optional<std::string> InstanceSocket::receive() const {
  std::array<char, longestMessage> buffer = {};
  const ssize_t count = ::recv(descriptor(), buffer.data(), buffer.size(), 0);
  return count >= 0 ? std::optional(std::string(buffer.data(), static_cast<std::size_t>(count))) : std::nullopt;
}

std::optional<std::string> InstanceSocket::stopListening() const {
  ::unlink(path_.c_str());
  std::optional<std::string> newest;
  while (auto message = receive()) {
    newest = std::move(message);
  }
  return newest;
}

system::Result<std::filesystem::path> InstanceSocket::folder(const std::string& program) {
  const char* given = std::getenv("XDG_RUNTIME_DIR");
  if (given != nullptr && std::filesystem::path(given).is_absolute() && isOursAlone(given)) {
    return std::filesystem::path(given);
  }
  std::error_code error;
  const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
  if (error) {
    return system::Failure{"no folder for temporary files: " + error.message()};
  }
  const auto own = system::PrivateFolder::make(temporary / (program + "-" + std::to_string(::geteuid())));
  return own ? system::Result<std::filesystem::path>(own->path()) : own.error();
}

}  // namespace tarnwell::host_linux
