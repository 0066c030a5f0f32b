#include "host/qt/tray/BusStatusItem.h"

#include <QtCore/QPointer>
#include <QtDBus/QDBusObjectPath>

#include "host/qt/look/Conversions.h"
#include "host/qt/session/ActivationToken.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/tray/StatusImage.h"
#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::host_qt {
namespace {

// The path by which panels know that there is no menu.
const QString noMenu = QStringLiteral("/NO_DBUSMENU");

const QString itemInterfaceName = QStringLiteral("org.kde.StatusNotifierItem");

}  // namespace

BusStatusItem::BusStatusItem(const QDBusConnection& bus, const QString& path, kit::StatusItem& item,
                             const StatusImage& image)
    : BusObject(bus, path, itemInterfaceName), item_(item), image_(image) {
  declareProperties();
  addMethod("Activate", {"x", "y"}, &BusStatusItem::activate);
  addMethod("ContextMenu", {"x", "y"}, &BusStatusItem::contextMenu);
  addMethod("SecondaryActivate", {"x", "y"}, &BusStatusItem::secondaryActivate);
  addMethod("Scroll", {"delta", "orientation"}, &BusStatusItem::scroll);
  addMethod("ProvideXdgActivationToken", {"token"}, &BusStatusItem::takeToken);
  interface().addSignal("NewIcon");
  if (item_.menu()) {
    menu_ = std::make_unique<BusMenu>(bus, path + "/Menu", item_.application(), item_.menu());
  }
}

void BusStatusItem::declareProperties() {
  const auto title = [this] { return toQString(item_.title()); };
  interface().addProperty("Category", [] { return QStringLiteral("ApplicationStatus"); });
  interface().addProperty("Id", [this] { return toQString(item_.application().platform().product().identifier); });
  interface().addProperty("Title", title);
  interface().addProperty("Status", [] { return QStringLiteral("Active"); });
  interface().addProperty("WindowId", [] { return 0; });
  interface().addProperty("IconName", [] { return QString(); });
  interface().addProperty("IconPixmap", [this] { return image_.forBus(); });
  interface().addProperty("ToolTip", [title] { return BusToolTip{.title = title()}; });
  interface().addProperty("ItemIsMenu", [this] { return menu_ != nullptr; });
  interface().addProperty("Menu", [this] { return QDBusObjectPath(menu_ ? menu_->path() : noMenu); });
}

BusReply<> BusStatusItem::activate(int /*x*/, int /*y*/) {
  released(kit::Event::Type::leftMouseUp);
  return {};
}

BusReply<> BusStatusItem::contextMenu(int /*x*/, int /*y*/) {
  released(kit::Event::Type::rightMouseUp);
  return {};
}

BusReply<> BusStatusItem::secondaryActivate(int /*x*/, int /*y*/) { return {}; }

BusReply<> BusStatusItem::scroll(int /*delta*/, const QString& /*orientation*/) { return {}; }

BusReply<> BusStatusItem::takeToken(const QString& token) {
  useActivationToken(token.toStdString());
  return {};
}

void BusStatusItem::released(kit::Event::Type button) {
  // After the answer: a menu stays open until it is left, and what is pressed meanwhile opens no other in front of it.
  runLater(*this, [this, button] {
    if (isPressed_) {
      return;
    }
    isPressed_ = true;
    const QPointer<BusStatusItem> self(this);
    item_.mouseUp(button);
    if (self) {
      isPressed_ = false;
    }
  });
}

}  // namespace tarnwell::host_qt
