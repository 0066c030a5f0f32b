#include "host/qt/ApplicationService.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusError>
#include <QtDBus/QDBusMessage>

#include "host/qt/RunLater.h"
#include "kit/ApplicationId.h"

namespace tarnwell::host_qt {
namespace {

constexpr int namePatience = 2000;
constexpr int answerPatience = 5000;

// Of the bus: neither take the name from another nor wait until it is free.
constexpr uint doNotQueue = 4;
constexpr uint primaryOwner = 1;
constexpr uint alreadyOwner = 4;

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString interfaceName = QStringLiteral("org.freedesktop.Application");
const QString description = QStringLiteral(R"xml(<interface name="org.freedesktop.Application">
  <method name="Activate">
    <arg type="a{sv}" name="platform_data" direction="in"/>
  </method>
  <method name="Open">
    <arg type="as" name="uris" direction="in"/>
    <arg type="a{sv}" name="platform_data" direction="in"/>
  </method>
  <method name="ActivateAction">
    <arg type="s" name="action_name" direction="in"/>
    <arg type="av" name="parameter" direction="in"/>
    <arg type="a{sv}" name="platform_data" direction="in"/>
  </method>
</interface>)xml");

// The identifier with slashes for dots, as the interface wants it.
QString objectPath() { return '/' + QString(kit::applicationId).replace('.', '/'); }

std::string tokenOf(const QVariantMap& platformData) {
  const QString token = platformData.value("activation-token").toString();
  return (token.isEmpty() ? platformData.value("desktop-startup-id").toString() : token).toStdString();
}

}  // namespace

ApplicationService::ApplicationService(const QDBusConnection& bus)
    : BusObject(bus, objectPath(), interfaceName, description) {}

ApplicationService::Claim ApplicationService::claimName() const {
  QDBusMessage message =
      QDBusMessage::createMethodCall(busService, "/org/freedesktop/DBus", busService, QStringLiteral("RequestName"));
  message.setArguments({QString(kit::applicationId), doNotQueue});
  const QDBusMessage answer = bus().call(message, QDBus::Block, namePatience);
  if (answer.type() != QDBusMessage::ReplyMessage) {
    return Claim::unavailable;
  }
  const uint given = answer.arguments().value(0).toUInt();
  return given == primaryOwner || given == alreadyOwner ? Claim::ours : Claim::others;
}

ApplicationService::Answer ApplicationService::activateOther(const std::string& token) const {
  QDBusMessage message =
      QDBusMessage::createMethodCall(kit::applicationId, path(), interfaceName, QStringLiteral("Activate"));
  QVariantMap platformData;
  if (!token.empty()) {
    const QString given = QString::fromStdString(token);
    platformData = {{"activation-token", given}, {"desktop-startup-id", given}};
  }
  message.setArguments({platformData});
  message.setAutoStartService(false);
  const QDBusMessage answer = bus().call(message, QDBus::Block, answerPatience);
  if (answer.type() == QDBusMessage::ReplyMessage) {
    return Answer::given;
  }
  return QDBusError(answer).type() == QDBusError::ServiceUnknown ? Answer::gone : Answer::none;
}

std::optional<QVariantList> ApplicationService::call(const QString& method, const QVariantList& arguments) {
  if (method == QLatin1String("Activate")) {
    ask({}, arguments.value(0));
  } else if (method == QLatin1String("Open")) {
    // There are no documents: a file that is opened opens the application.
    ask({}, arguments.value(1));
  } else if (method == QLatin1String("ActivateAction")) {
    ask(arguments.value(0).toString(), arguments.value(2));
  } else {
    return std::nullopt;
  }
  return QVariantList{};
}

void ApplicationService::ask(const QString& action, const QVariant& platformData) {
  const Request request = {.action = action.toStdString(), .token = tokenOf(qdbus_cast<QVariantMap>(platformData))};
  // After the answer, for which another start waits.
  runLater(*this, [this, request] {
    if (asked_) {
      asked_(request);
    }
  });
}

}  // namespace tarnwell::host_qt
