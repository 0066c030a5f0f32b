#pragma once

#include <QtWidgets/QApplication>
#include <memory>
#include <string>

#include "host/qt/platform/QtHost.h"
#include "kit/turn/Subscription.h"
#include "system/processes/ChildReaper.h"

namespace tarnwell::host_qt {

/// The toolkit's application, its event loop and the host. The loop ends by `quit` alone, never because a window
/// closed. Constructing it sets the process's locale from the environment.
class QtApplication {
 public:
  /// Null where there is no display to show anything on; that has then been said on standard error. A display that is
  /// named but does not answer ends the process with status 1. `argv` must outlive the application.
  static std::unique_ptr<QtApplication> create(int argc, char** argv);
  ~QtApplication();

  QtHost& host() { return host_; }

  /// Runs `readable` from the event loop whenever `descriptor`, which stays the caller's, can be read, until the
  /// subscription ends.
  [[nodiscard]] kit::Subscription watch(int descriptor, kit::Action readable);

  /// Opens `address` in the user's browser, without waiting for it.
  void openUrl(const std::string& address);

  /// Until `quit`; returns its status.
  int run();
  void quit(int status = 0);
  /// The loop may handle some events more.
  bool isQuitting() const { return isQuitting_; }

 private:
  QtApplication(int argc, char** argv);

  int argc_;  // The toolkit keeps a reference to it.
  system::ChildReaper openers_;
  QApplication application_;
  kit::Subscription reaping_;
  QtHost host_;
  bool isQuitting_ = false;
};

}  // namespace tarnwell::host_qt
