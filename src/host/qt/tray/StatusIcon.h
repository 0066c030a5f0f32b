#pragma once

#include <QtCore/QObject>
#include <memory>
#include <optional>

#include "host/qt/tray/BusStatusItem.h"
#include "host/qt/tray/StatusImage.h"
#include "kit/application/StatusItem.h"

class QSystemTrayIcon;

namespace tarnwell::host_qt {

class Theme;
class TrayWatch;

/// A status item in whatever tray the desktop has at the moment; in none it waits for one.
class StatusIcon final : public QObject, public kit::StatusItemPeer {
 public:
  /// All are borrowed.
  StatusIcon(kit::StatusItem& item, TrayWatch& watch, const Theme& theme);
  ~StatusIcon() override;

  void popUp(kit::Menu& menu) override;

  bool eventFilter(QObject* object, QEvent* event) noexcept override;

 private:
  void follow();
  void showOnBus();
  void showInPanel();
  void imageChanged();
  QPoint menuPosition() const;

  kit::StatusItem& item_;
  TrayWatch& watch_;
  const Theme& theme_;
  StatusImage image_;
  std::unique_ptr<BusStatusItem> onBus_;
  std::unique_ptr<QSystemTrayIcon> inPanel_;
  std::optional<kit::Event::Type> heldButton_;  // Over the icon in the panel; what its release is to the item.
  kit::Subscription imageChanges_;
  kit::Subscription trayChanges_;
};

}  // namespace tarnwell::host_qt
