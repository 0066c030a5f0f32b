#include "host/qt/tray/FakePanel.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCall>
#include <cstdlib>

#include "host/qt/Desktop.h"

namespace tarnwell::host_qt {
namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString iconInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

QDBusConnection connectionOfPanel() {
  static int count = 0;
  return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                       QStringLiteral("panel %1").arg(++count));
}

std::string keysOf(const QVariantMap& properties) {
  const auto shortcuts = qdbus_cast<QList<QStringList>>(properties.value("shortcut"));
  return shortcuts.isEmpty() ? "" : " [" + shortcuts.first().join(' ').toStdString() + "]";
}

std::string lineOf(const QVariantMap& properties) {
  if (properties.value("type") == "separator") {
    return "-";
  }
  const std::string line = properties.value("label").toString().toStdString() + keysOf(properties);
  return properties.value("enabled").toBool() ? line : "(" + line + ")";
}

}  // namespace

/// What programs make their icons known to.
class FakePanel::Watcher final : public BusObject {
  Q_OBJECT

 public:
  Watcher(const QDBusConnection& bus, Shows shows)
      : BusObject(bus, "/StatusNotifierWatcher", watcherName), shows_(shows) {
    addMethod("RegisterStatusNotifierItem", {"service"}, &Watcher::add);
    interface().addProperty("IsStatusNotifierHostRegistered", [this] {
      ++questions;
      return shows_ == Shows::icons;
    });
  }

  void beginToShow() {
    shows_ = Shows::icons;
    emitSignal("StatusNotifierHostRegistered");
  }

  QStringList icons;
  QString program;
  int menuChanges = 0;
  int questions = 0;

 public Q_SLOTS:  // NOLINT(readability-redundant-access-specifiers): they are public to the toolkit as well
  void menuChanged(uint /*revision*/, int /*parent*/) { ++menuChanges; }

 private:
  BusReply<> add(const QString& icon) {
    icons += icon;
    return {};
  }

  Shows shows_;
};

FakePanel::FakePanel(Shows shows)
    : connection_(connectionOfPanel()), watcher_(std::make_unique<Watcher>(connection_, shows)) {
  registerBusTypes();
  watcher_->program = QDBusConnection::sessionBus().baseService();
  connection_.connect(watcher_->program, QString(), menuInterface, "LayoutUpdated", watcher_.get(),
                      SLOT(menuChanged(uint, int)));
  connection_.registerService(watcherName);
}

FakePanel::~FakePanel() {
  watcher_.reset();
  QDBusConnection::disconnectFromBus(connection_.name());
}

void FakePanel::beginToShow() { watcher_->beginToShow(); }

bool FakePanel::hasIcon() const {
  return becomes([this] { return !watcher_->icons.isEmpty(); });
}

QVariantMap FakePanel::icon() const {
  const QVariantList all = ask(watcher_->icons.last(), propertiesInterface, "GetAll", {iconInterface});
  return qdbus_cast<QVariantMap>(all.value(0));
}

std::vector<std::string> FakePanel::openMenu() const {
  const QString path = menuPath();
  ask(path, menuInterface, "AboutToShow", {0});
  const QVariantList answer = ask(path, menuInterface, "GetLayout", {0, -1, QStringList()});
  std::vector<std::string> lines;
  for (const QVariant& child : qdbus_cast<BusMenuLayout>(answer.value(1)).children) {
    lines.push_back(lineOf(qdbus_cast<BusMenuLayout>(child).properties));
  }
  return lines;
}

void FakePanel::choose(const std::string& title) const {
  const QVariantList answer = ask(menuPath(), menuInterface, "GetLayout", {0, -1, QStringList()});
  for (const QVariant& child : qdbus_cast<BusMenuLayout>(answer.value(1)).children) {
    const auto entry = qdbus_cast<BusMenuLayout>(child);
    if (entry.properties.value("label").toString().toStdString() == title) {
      ask(menuPath(), menuInterface, "Event",
          {entry.id, "clicked", QVariant::fromValue(QDBusVariant(QString())), uint{0}});
    }
  }
}

void FakePanel::press(const QString& method) const { ask(watcher_->icons.last(), iconInterface, method, {0, 0}); }

int FakePanel::questions() const { return watcher_->questions; }

int FakePanel::menuChanges() const { return watcher_->menuChanges; }

QVariantList FakePanel::ask(const QString& path, const QString& interface, const QString& method,
                            const QVariantList& arguments) const {
  QDBusMessage message = QDBusMessage::createMethodCall(watcher_->program, path, interface, method);
  message.setArguments(arguments);
  const QDBusPendingCall pending = connection_.asyncCall(message);
  if (!becomes([&pending] { return pending.isFinished(); })) {
    return {};
  }
  return pending.reply().arguments();
}

QString FakePanel::menuPath() const { return qdbus_cast<QDBusObjectPath>(icon().value("Menu")).path(); }

}  // namespace tarnwell::host_qt

#include "FakePanel.moc"
