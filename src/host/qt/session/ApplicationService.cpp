#include "host/qt/session/ApplicationService.h"

#include <QtDBus/QDBusError>
#include <QtDBus/QDBusMessage>

#include "host/qt/bus/BusValue.h"
#include "host/qt/look/Conversions.h"

namespace tarnwell::host_qt {
namespace {

constexpr int patience = 2000;

// Of the bus: neither take the name from another nor wait until it is free.
constexpr uint doNotQueue = 4;
constexpr uint primaryOwner = 1;
constexpr uint alreadyOwner = 4;

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString interfaceName = QStringLiteral("org.freedesktop.Application");

// The identifier with slashes for dots, as the interface wants it.
QString objectPath(const std::string& identifier) { return '/' + toQString(identifier).replace('.', '/'); }

// The bus itself answers so for a program that leaves it meanwhile.
bool hasNoAnswer(const QDBusMessage& answer) {
  const auto error = QDBusError(answer).type();
  return error == QDBusError::NoReply || error == QDBusError::Timeout || error == QDBusError::TimedOut ||
         error == QDBusError::Disconnected;
}

std::string tokenOf(const BusDictionary& platformData) {
  const auto text = [&platformData](const char* key) {
    return busValue<QString>(platformData.items.value(key).variant()).value_or(QString());
  };
  const QString token = text("activation-token");
  return (token.isEmpty() ? text("desktop-startup-id") : token).toStdString();
}

}  // namespace

ApplicationService::ApplicationService(const QDBusConnection& bus, const std::string& identifier)
    : BusObject(bus, objectPath(identifier), interfaceName), name_(toQString(identifier)) {
  addMethod("Activate", {"platform_data"}, &ApplicationService::activate);
  addMethod("Open", {"uris", "platform_data"}, &ApplicationService::open);
  addMethod("ActivateAction", {"action_name", "parameter", "platform_data"}, &ApplicationService::activateAction);
}

ApplicationService::Claim ApplicationService::claimName() const {
  const auto answer = busArguments<uint>(askBus(QStringLiteral("RequestName"), {name_, doNotQueue}));
  if (!answer) {
    return Claim::unavailable;
  }
  const auto [given] = *answer;
  return given == primaryOwner || given == alreadyOwner ? Claim::ours : Claim::others;
}

bool ApplicationService::activateOther(const std::string& token) const {
  QDBusMessage message = QDBusMessage::createMethodCall(name_, path(), interfaceName, QStringLiteral("Activate"));
  QVariantMap platformData;
  if (!token.empty()) {
    const QString given = QString::fromStdString(token);
    platformData = {{"activation-token", given}, {"desktop-startup-id", given}};
  }
  message.setArguments({platformData});
  message.setAutoStartService(false);
  const QString asked = ownerOfName();
  const QDBusMessage answer = bus().call(message, QDBus::Block, patience);
  if (hasNoAnswer(answer)) {
    // One that is busy still has the name, and the request.
    return !asked.isEmpty() && ownerOfName() == asked;
  }
  return answer.type() == QDBusMessage::ReplyMessage;
}

void ApplicationService::releaseName() const { askBus(QStringLiteral("ReleaseName"), {name_}); }

QDBusMessage ApplicationService::askBus(const QString& method, const QVariantList& arguments) const {
  QDBusMessage message = QDBusMessage::createMethodCall(busService, "/org/freedesktop/DBus", busService, method);
  message.setArguments(arguments);
  return bus().call(message, QDBus::Block, patience);
}

QString ApplicationService::ownerOfName() const {
  const auto answer = busArguments<QString>(askBus(QStringLiteral("GetNameOwner"), {name_}));
  return answer ? std::get<QString>(*answer) : QString();
}

BusReply<> ApplicationService::activate(const BusDictionary& platformData) {
  return activateAction({}, {}, platformData);
}

// There are no documents: a file that is opened opens the application.
BusReply<> ApplicationService::open(const QStringList& /*uris*/, const BusDictionary& platformData) {
  return activate(platformData);
}

BusReply<> ApplicationService::activateAction(const QString& action, const BusList<QDBusVariant>& /*parameter*/,
                                              const BusDictionary& platformData) {
  if (asked_) {
    asked_({.action = action.toStdString(), .token = tokenOf(platformData)});
  }
  return {};
}

}  // namespace tarnwell::host_qt
