#pragma once

#include <map>
#include <memory>

#include "host/qt/BusObject.h"
#include "host/qt/BusTypes.h"
#include "kit/Menu.h"

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

 protected:
  std::optional<QVariantList> call(const QString& method, const QVariantList& arguments) override;
  QVariantMap properties() const override;

 private:
  using Item = std::shared_ptr<kit::MenuItem>;

  void follow();
  void number(const kit::Menu& menu, std::map<int, Item>& numbered);
  int numberOf(const Item& item) const;

  QVariantList layout(int id, int depth) const;
  BusMenuLayout layoutOf(int id, const kit::Menu* submenu, int depth) const;
  QVariantMap propertiesOf(int id) const;
  QVariantList groupProperties(const QVariant& ids) const;
  QVariantList itemProperty(int id, const QString& name) const;
  bool aboutToShow();
  void handle(const BusMenuEvent& event);

  kit::Application& application_;
  std::shared_ptr<kit::Menu> menu_;
  std::map<int, Item> items_;
  int nextId_ = 1;
  uint revision_ = 1;
  kit::Subscription changes_;
};

}  // namespace tarnwell::host_qt
