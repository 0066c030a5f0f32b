#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "system/base/Descriptor.h"
#include "system/processes/Process.h"

namespace tarnwell::standin {

/// The program that shows a Dock, a child of this process. A Dock is ended and started anew at every change; the UI
/// stays, and its windows with it. It is told of each Dock over a socket, one record for each thing to tell, and ends
/// by itself once no process is left that could tell it of another one.
class UiProcess {
 public:
  /// Nothing where there is no display and, with a message on standard error, where it cannot be started.
  static std::unique_ptr<UiProcess> start();

  UiProcess(const UiProcess&) = delete;
  UiProcess& operator=(const UiProcess&) = delete;

  /// Ends it.
  ~UiProcess();

  /// False once it has ended.
  bool isRunning();

  /// The socket, which a Dock may inherit; closed on exec otherwise.
  int socket() const { return socket_.number(); }

  /// That the Dock has ended. A UI that has stopped listening is not waited for.
  void tellEnd() const;

 private:
  UiProcess(system::Process process, system::Descriptor socket)
      : process_(std::move(process)), socket_(std::move(socket)) {}

  system::Process process_;
  system::Descriptor socket_;
};

/// What is told: what a Dock goes by, as text, or that there is none. The socket's other end hears both.
inline constexpr std::string_view noDock = "-";

/// On behalf of a Dock: tells the UI what it goes by, and waits until the UI has ended.
void showOn(int socket, const std::string& behavior);

}  // namespace tarnwell::standin
