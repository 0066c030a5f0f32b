#pragma once

#include <QtCore/QTimer>
#include <chrono>

#include "kit/turn/Observers.h"

class QDBusPendingCallWatcher;

namespace tarnwell::host_qt {

/// What the desktop is asked when the application starts. The start waits for all of it at once; what comes
/// later is used when it comes.
class StartupBarrier final {
 public:
  /// The wait begins now and takes `longestWait` at most.
  explicit StartupBarrier(std::chrono::milliseconds longestWait);

  /// Waits for that one too. To be called once the asker has connected to it: what it says is then in use by the end.
  void await(const QDBusPendingCallWatcher& answer);

  /// Runs `action` from the event loop when the wait is over.
  [[nodiscard]] kit::Subscription whenOver(kit::Action action);

 private:
  bool isOpen() const { return open_ > 0 && deadline_.isActive(); }
  void end();

  QTimer deadline_;
  kit::Observers<> observers_;
  int open_ = 0;
};

}  // namespace tarnwell::host_qt
