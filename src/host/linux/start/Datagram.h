#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "system/base/Descriptor.h"

namespace tarnwell::host_linux {

/// One that never blocks and is closed on exec; none, with errno set, where there are no more descriptors.
system::Descriptor openDatagramSocket();

/// None where the path is too long for one.
std::optional<sockaddr_un> socketAddress(const std::filesystem::path& path);

/// The same, as the system's calls take it.
inline const sockaddr* plain(const sockaddr_un& address) { return reinterpret_cast<const sockaddr*>(&address); }

/// Leaves the bytes at another process's socket without waiting for it to read. False with errno set where that failed:
/// to EAGAIN where more are waiting there than the system keeps.
bool leaveDatagram(const sockaddr_un& address, std::string_view bytes);

}  // namespace tarnwell::host_linux
