#include "host/qt/session/StartupBarrier.h"

#include <QtDBus/QDBusPendingCallWatcher>
#include <utility>

#include "host/qt/session/RunLater.h"

namespace tarnwell::host_qt {

StartupBarrier::StartupBarrier(std::chrono::milliseconds longestWait) {
  QObject::connect(&deadline_, &QTimer::timeout, &deadline_, [this]() noexcept { end(); });
  deadline_.setSingleShot(true);
  deadline_.setTimerType(Qt::PreciseTimer);
  deadline_.start(longestWait);
}

void StartupBarrier::await(const QDBusPendingCallWatcher& answer) {
  ++open_;
  QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &deadline_, [this]() noexcept {
    --open_;
    if (!isOpen()) {
      end();
    }
  });
}

kit::Subscription StartupBarrier::whenOver(kit::Action action) {
  if (!isOpen()) {
    end();
  }
  return observers_.add(std::move(action));
}

void StartupBarrier::end() {
  deadline_.stop();
  // Behind what waits already: a status icon goes by the answers first.
  runLater(deadline_, [this] { std::exchange(observers_, {}).tell(); });
}

}  // namespace tarnwell::host_qt
