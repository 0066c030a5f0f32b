#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"

namespace tarnwell::updater {

/// A server of updates in a process of its own, with certificates that it makes; see the script loopback-server for
/// what it answers. It ends with this object.
class LoopbackServer {
 public:
  LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer();

  /// `certificate` is one of "good", "expired", "elsewhere" and "unknown"; "plain" is without one.
  std::string address(const std::string& path, const std::string& certificate = "good") const;
  /// What its good certificate is signed with.
  std::filesystem::path authority() const { return folder_ / "ca.pem"; }
  void serve(const std::string& name, const std::string& content) const { folder_.write("www/" + name, content); }
  /// What was asked for so far, lines of certificate and path.
  std::string requests() const { return folder_.read("requests"); }

 private:
  fixtures::Sandbox folder_;
  fixtures::EnvironmentScope noProxy_;
  pid_t process_ = -1;
  int input_ = -1;
};

}  // namespace tarnwell::updater
