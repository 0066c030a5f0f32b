#include "host/qt/BusStatusItem.h"

#include <QtDBus/QDBusObjectPath>

#include "host/qt/ActivationToken.h"
#include "host/qt/Conversions.h"
#include "host/qt/RunLater.h"
#include "host/qt/StatusImage.h"
#include "kit/ApplicationId.h"

namespace tarnwell::host_qt {
namespace {

// The path by which panels know that there is no menu.
const QString noMenu = QStringLiteral("/NO_DBUSMENU");

const QString itemInterfaceName = QStringLiteral("org.kde.StatusNotifierItem");
const QString itemDescription = QStringLiteral(R"xml(<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="Activate">
    <arg type="i" name="x" direction="in"/>
    <arg type="i" name="y" direction="in"/>
  </method>
  <method name="ContextMenu">
    <arg type="i" name="x" direction="in"/>
    <arg type="i" name="y" direction="in"/>
  </method>
  <method name="SecondaryActivate">
    <arg type="i" name="x" direction="in"/>
    <arg type="i" name="y" direction="in"/>
  </method>
  <method name="Scroll">
    <arg type="i" name="delta" direction="in"/>
    <arg type="s" name="orientation" direction="in"/>
  </method>
  <method name="ProvideXdgActivationToken">
    <arg type="s" name="token" direction="in"/>
  </method>
  <signal name="NewIcon"/>
</interface>)xml");

}  // namespace

BusStatusItem::BusStatusItem(const QDBusConnection& bus, const QString& path, kit::StatusItem& item,
                             const StatusImage& image)
    : BusObject(bus, path, itemInterfaceName, itemDescription), item_(item), image_(image) {
  registerBusTypes();
  if (item_.menu()) {
    menu_ = std::make_unique<BusMenu>(bus, path + "/Menu", item_.application(), item_.menu());
  }
}

std::optional<QVariantList> BusStatusItem::call(const QString& method, const QVariantList& arguments) {
  if (method == QLatin1String("Activate")) {
    released(kit::Event::Type::leftMouseUp);
  } else if (method == QLatin1String("ContextMenu")) {
    released(kit::Event::Type::rightMouseUp);
  } else if (method == QLatin1String("ProvideXdgActivationToken")) {
    useActivationToken(arguments.value(0).toString().toStdString());
  } else if (method != QLatin1String("SecondaryActivate") && method != QLatin1String("Scroll")) {
    return std::nullopt;
  }
  return QVariantList{};
}

QVariantMap BusStatusItem::properties() const {
  const QString title = toQString(item_.title());
  return {{"Category", "ApplicationStatus"},
          {"Id", kit::applicationId},
          {"Title", title},
          {"Status", "Active"},
          {"WindowId", 0},
          {"IconName", QString()},
          {"IconPixmap", QVariant::fromValue(image_.forBus())},
          {"ToolTip", QVariant::fromValue(BusToolTip{.title = title})},
          {"ItemIsMenu", menu_ != nullptr},
          {"Menu", QVariant::fromValue(QDBusObjectPath(menu_ ? menu_->path() : noMenu))}};
}

void BusStatusItem::released(kit::Event::Type button) {
  // After the answer: a menu stays open until it is left.
  runLater(*this, [this, button] { item_.mouseUp(button); });
}

}  // namespace tarnwell::host_qt
