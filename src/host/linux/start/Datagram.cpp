#include "host/linux/start/Datagram.h"

#include <cstring>
#include <string>

namespace tarnwell::host_linux {

system::Descriptor openDatagramSocket() {
  return system::Descriptor(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

std::optional<sockaddr_un> socketAddress(const std::filesystem::path& path) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  const std::string text = path.string();
  if (text.size() >= sizeof(address.sun_path)) {
    return std::nullopt;
  }
  std::memcpy(&address.sun_path[0], text.c_str(), text.size() + 1);
  return address;
}

bool leaveDatagram(const sockaddr_un& address, std::string_view bytes) {
  const system::Descriptor socket = openDatagramSocket();
  return ::sendto(socket.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL, plain(address), sizeof(address)) >= 0;
}

}  // namespace tarnwell::host_linux
