#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"
#include "system/files/FileLock.h"

namespace tarnwell::host_linux {

/// Keeps a second start from becoming a second program: a lock, and a socket on which the program that holds it hears
/// of further starts. Both end with the process, whatever ends it.
class InstanceSocket {
 public:
  /// The lock of `program` in `folder`, which must be the user's alone; or null where another process holds it, which
  /// has then been left `message`, to be read once it comes to that. Waits two seconds at most, for one that has the
  /// lock but no socket yet.
  static system::Result<std::unique_ptr<InstanceSocket>> claim(const std::filesystem::path& folder,
                                                               const std::string& program, const std::string& message);

  /// The same in the folder of this session.
  static system::Result<std::unique_ptr<InstanceSocket>> claim(const std::string& program, const std::string& message);

  InstanceSocket(const InstanceSocket&) = delete;
  InstanceSocket& operator=(const InstanceSocket&) = delete;
  ~InstanceSocket();

  /// Can be read when another start has left a message.
  int descriptor() const { return socket_.number(); }
  /// The oldest message, if there is one.
  std::optional<std::string> receive() const;

  /// Takes no further messages: a start waits for the lock instead. Of those that have not been received the newest.
  std::optional<std::string> stopListening() const;

  /// XDG_RUNTIME_DIR or, where there is none, a folder of the user's own below TMPDIR or /tmp.
  static system::Result<std::filesystem::path> folder(const std::string& program);

 private:
  InstanceSocket(system::FileLock lock, system::Descriptor socket, std::filesystem::path path)
      : lock_(std::move(lock)), socket_(std::move(socket)), path_(std::move(path)) {}

  // The last to go, since it lets the next one in.
  system::FileLock lock_;
  system::Descriptor socket_;
  std::filesystem::path path_;
};

}  // namespace tarnwell::host_linux
