#include "host/qt/tray/TrayWatch.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <utility>

#include "host/qt/bus/BusValue.h"
#include "host/qt/bus/SessionBus.h"
#include "host/qt/session/StartupBarrier.h"

namespace tarnwell::host_qt {
namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString watcherInterface = QStringLiteral("org.kde.StatusNotifierWatcher");

bool saysThereIsNone(const QDBusError& error) {
  return error.type() == QDBusError::ServiceUnknown || error.name() == "org.freedesktop.DBus.Error.NameHasNoOwner";
}

}  // namespace

TrayWatch::TrayWatch(std::optional<QDBusConnection> bus, StartupBarrier& startup)
    : bus_(std::move(bus)), startup_(startup), xEmbed_(XEmbedTray::create([this] { observers_.tell(); })) {
  listen();
}

TrayWatch::~TrayWatch() = default;

TrayWatch::Tray TrayWatch::tray() const {
  switch (answer_) {
    case Answer::none:
      return Tray::unknown;
    case Answer::noHost:
      return Tray::watcher;
    case Answer::host:
      return Tray::notifier;
    case Answer::noWatcher:
      break;
  }
  return xEmbed_ && xEmbed_->exists() ? Tray::xEmbed : Tray::none;
}

void TrayWatch::announce(const QString& path) {
  QDBusMessage message = QDBusMessage::createMethodCall(watcherService, watcherPath, watcherInterface,
                                                        QStringLiteral("RegisterStatusNotifierItem"));
  message.setArguments({path});
  message.setAutoStartService(false);
  if (const auto bus = sessionBus()) {
    bus->asyncCall(message);
  }
}

void TrayWatch::listen() {
  if (!bus_) {
    tell(Answer::noWatcher);
    return;
  }
  owner_ = std::make_unique<BusNameOwner>(*bus_, watcherService, [this] { ask(); });
  // From whatever sender: naming one would ask the bus who that is, and wait for the answer.
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus_->connect(QString(), watcherPath, watcherInterface, QString::fromLatin1(signal), this,
                  SLOT(hostsChanged(QDBusMessage)));
  }
  ask();
}

void TrayWatch::hostsChanged(const QDBusMessage& signal) {
  if (owner_->hasSent(signal)) {
    ask();
  }
}

void TrayWatch::ask() {
  if (!bus_ || !bus_->isConnected()) {
    tell(Answer::noWatcher);
    return;
  }
  QDBusMessage message = QDBusMessage::createMethodCall(
      watcherService, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  message.setArguments({watcherInterface, QStringLiteral("IsStatusNotifierHostRegistered")});
  message.setAutoStartService(false);
  auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(message), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) noexcept {
    take(*finished);
    finished->deleteLater();
  });
  startup_.await(*answer);
}

void TrayWatch::take(const QDBusPendingCallWatcher& finished) {
  if (finished.isError() && saysThereIsNone(finished.error())) {
    tell(Answer::noWatcher);
    return;
  }
  const auto answer = busArguments<QDBusVariant>(finished.reply());
  // One that does not say it is taken to show what it takes in.
  tell(!answer || busValue<bool>(std::get<QDBusVariant>(*answer).variant()).value_or(true) ? Answer::host
                                                                                           : Answer::noHost);
}

void TrayWatch::tell(Answer answer) {
  answer_ = answer;
  observers_.tell();
}

}  // namespace tarnwell::host_qt
