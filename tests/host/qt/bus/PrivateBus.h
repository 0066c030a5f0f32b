#pragma once

#include <sys/types.h>

#include <string>

namespace tarnwell::host_qt {

/// A session bus of a test's own. The process is told its address before the toolkit asks for one.
class PrivateBus {
 public:
  PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus();

  const std::string& address() const { return address_; }

  /// It takes in connections and messages and answers nothing, until `thaw`.
  void freeze() const;
  void thaw() const;
  /// It is killed, and another one is there in its place.
  void restart();

 private:
  void start();
  void end(int signal);

  std::string place_;  // The address without what is another one for each daemon.
  std::string address_;
  pid_t process_ = 0;
};

}  // namespace tarnwell::host_qt
