#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/linux/start/InstanceSocket.h"
#include "host/qt/session/ApplicationService.h"
#include "kit/application/Product.h"
#include "kit/turn/Subscription.h"

namespace tarnwell::host_qt {

class QtApplication;

/// One running program for each user: by a lock, and a socket where further starts leave a message for the program that
/// holds it, whatever that is doing. The name on the session bus is for launchers; it also decides between programs
/// that have no lock in common. What is asked is done after what was pressed before: where that quits, the start is one
/// that came too late.
class SingleInstance {
 public:
  /// This process as the one that runs; or null where another does, which has been left the message to come to the
  /// front with this process's activation token. Before the toolkit starts, which uses that up, and so that a further
  /// start depends on neither display nor bus.
  static std::unique_ptr<SingleInstance> claim(const kit::Product& product);

  /// What further starts and launchers ask for; before the event loop begins.
  void setAsked(ApplicationService::Asked asked) { asked_ = std::move(asked); }

  /// Hears of them from the event loop on. False where another program has the name on the bus; it has then been asked
  /// to come to the front. The application is borrowed.
  bool listen(QtApplication& application);

  /// Has `release` ask for a start, as one that came too late would.
  void startAgainAtEnd() { waiting_.emplace(); }

  /// When the event loop has ended: lets the next start run. The token of one that has left its message too late for
  /// the loop, and has ended; the program is to be started for it.
  std::optional<std::string> release();

 private:
  SingleInstance(std::string identifier, std::string token, std::unique_ptr<host_linux::InstanceSocket> socket)
      : identifier_(std::move(identifier)), token_(std::move(token)), socket_(std::move(socket)) {}

  void ask(const ApplicationService::Request& request);
  void passOn();
  bool takeName();

  std::string identifier_;
  std::string token_;
  std::unique_ptr<host_linux::InstanceSocket> socket_;
  kit::Subscription hearing_;
  std::unique_ptr<ApplicationService> service_;
  ApplicationService::Asked asked_;
  QtApplication* application_ = nullptr;
  std::optional<ApplicationService::Request> waiting_;
};

}  // namespace tarnwell::host_qt
