#include "host/qt/session/RunLater.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <utility>

namespace tarnwell::host_qt {
namespace {

/// Waits for its one event; a child of the context, with which it goes.
class Waiting final : public QObject {
 public:
  Waiting(QObject& context, kit::Action action) : QObject(&context), action_(std::move(action)) {}

  bool event(QEvent* event) noexcept override {
    if (event->type() != QEvent::User) {
      return QObject::event(event);
    }
    deleteLater();
    // A copy: what it does may end the context.
    const kit::Action action = std::move(action_);
    action();
    return true;
  }

 private:
  kit::Action action_;
};

}  // namespace

void runLater(QObject& context, kit::Action action) {
  QCoreApplication::postEvent(new Waiting(context, std::move(action)), new QEvent(QEvent::User));
}

}  // namespace tarnwell::host_qt
