#pragma once

#include <map>
#include <memory>

#include "host/qt/bus/BusObject.h"
#include "host/qt/bus/BusTypes.h"
#include "kit/menus/Menu.h"

namespace tarnwell::kit {
class Application;
}

namespace tarnwell::host_qt {

/// A menu that another program shows, a panel for one (`com.canonical.dbusmenu`).
class BusMenu final : public BusObject {
 public:
  /// The application is borrowed.
  BusMenu(const QDBusConnection& bus, const QString& path, kit::Application& application,
          std::shared_ptr<kit::Menu> menu);

 private:
  using Item = std::shared_ptr<kit::MenuItem>;

  void follow();
  void number(const kit::Menu& menu, std::map<int, Item>& numbered);
  int numberOf(const Item& item) const;

  bool has(int id) const;

  void declare();
  BusReply<uint, BusMenuLayout> layout(int id, int depth, const QStringList& names);
  BusReply<QList<BusMenuItem>> groupProperties(const BusList<int>& ids, const QStringList& names);
  BusReply<QDBusVariant> itemProperty(int id, const QString& name);
  BusReply<> eventOn(int id, const QString& kind, const QDBusVariant& data, uint timestamp);
  BusReply<QList<int>> eventGroup(const BusList<BusMenuEvent>& events);
  BusReply<bool> aboutToShow(int id);
  BusReply<QList<int>, QList<int>> aboutToShowGroup(const BusList<int>& ids);

  BusMenuLayout layoutOf(int id, const kit::Menu* submenu, int depth) const;
  QVariantMap propertiesOf(int id) const;
  bool updateToShow();
  /// Whether there is such an entry.
  bool handle(int id, const QString& kind);

  kit::Application& application_;
  std::shared_ptr<kit::Menu> menu_;
  std::map<int, Item> items_;
  int nextId_ = 1;
  uint revision_ = 1;
  kit::Subscription changes_;
};

}  // namespace tarnwell::host_qt
