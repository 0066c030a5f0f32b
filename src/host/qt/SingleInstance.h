#pragma once

#include <memory>
#include <string>

#include "host/linux/InstanceSocket.h"
#include "host/qt/ApplicationService.h"

namespace tarnwell::host_qt {

class QtApplication;

/// One running program for each session: on the session bus, else by a lock and a socket.
class SingleInstance {
 public:
  /// This process as the one that runs; or null where another does, which has been asked to come to the front with
  /// `token`. Fails when the other one does not answer. Where neither way is open, this process runs all the same. The
  /// application is borrowed.
  static host_linux::Result<std::unique_ptr<SingleInstance>> claim(QtApplication& application,
                                                                   const std::string& token);

  /// What further starts and launchers ask for; before the event loop begins.
  void setAsked(ApplicationService::Asked asked);

 private:
  SingleInstance(std::unique_ptr<ApplicationService> service, std::unique_ptr<host_linux::InstanceSocket> socket)
      : service_(std::move(service)), socket_(std::move(socket)) {}

  static host_linux::Result<std::unique_ptr<SingleInstance>> claimOnSocket(QtApplication& application,
                                                                           const std::string& token);

  std::unique_ptr<ApplicationService> service_;
  std::unique_ptr<host_linux::InstanceSocket> socket_;
  ApplicationService::Asked asked_;
};

}  // namespace tarnwell::host_qt
