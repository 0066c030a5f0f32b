#include "host/qt/session/RunLater.h"

#include <QtCore/QObject>
#include <utility>

namespace tarnwell::host_qt {

void runLater(QObject& context, kit::Action action) {
  const auto run = [action = std::move(action)]() noexcept { action(); };
  QMetaObject::invokeMethod(&context, run, Qt::QueuedConnection);
}

}  // namespace tarnwell::host_qt
