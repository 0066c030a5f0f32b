#include "host/qt/tray/PanelThread.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>
#include <QtDBus/QDBusVirtualObject>
#include <utility>
#include <vector>

namespace tarnwell::host_qt {
namespace {

const QString servedName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString servedPath = QStringLiteral("/StatusNotifierWatcher");
const QString connectionName = QStringLiteral("panel of its own");

}  // namespace

class PanelThread::Watcher final : public QDBusVirtualObject {
 public:
  explicit Watcher(Answers answers)
      : answers_(answers),
        connection_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), connectionName)) {
    connection_.registerVirtualObject(servedPath, this);
    connection_.registerService(servedName);
  }

  void answer() {
    answers_ = Answers::inTime;
    for (const QDBusMessage& question : std::exchange(heldBack_, {})) {
      say(question, QVariant::fromValue(QDBusVariant(true)));
    }
  }

  QString introspect(const QString& /*path*/) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override {
    if (message.member() == "RegisterStatusNotifierItem") {
      ++icons_;
    } else if (message.member() == "CountIcons") {
      say(message, icons_);
    } else if (answers_ == Answers::inTime) {
      say(message, QVariant::fromValue(QDBusVariant(true)));
    } else {
      message.setDelayedReply(true);
      heldBack_.push_back(message);
    }
    return true;
  }

 private:
  void say(const QDBusMessage& question, const QVariant& value) { connection_.send(question.createReply(value)); }

  Answers answers_;
  QDBusConnection connection_;
  std::vector<QDBusMessage> heldBack_;
  int icons_ = 0;
};

PanelThread::PanelThread(Answers answers) : watcher_(std::make_unique<Watcher>(answers)) {
  watcher_->moveToThread(&thread_);
  thread_.start();
}

PanelThread::~PanelThread() {
  thread_.quit();
  thread_.wait();
  watcher_.reset();
  QDBusConnection::disconnectFromBus(connectionName);
}

int PanelThread::icons() const {
  // Behind what this program has sent: the bus keeps the order.
  const QDBusMessage answer = QDBusConnection::sessionBus().call(
      QDBusMessage::createMethodCall(servedName, servedPath, servedName, "CountIcons"));
  return answer.arguments().value(0).toInt();
}

void PanelThread::answer() {
  QMetaObject::invokeMethod(watcher_.get(), [watcher = watcher_.get()] { watcher->answer(); });
}

}  // namespace tarnwell::host_qt
