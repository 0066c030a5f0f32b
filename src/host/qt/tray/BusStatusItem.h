#pragma once

#include "host/qt/bus/BusObject.h"
#include "host/qt/tray/BusMenu.h"
#include "kit/application/StatusItem.h"

namespace tarnwell::host_qt {

class StatusImage;

/// A status item that a panel shows (`org.kde.StatusNotifierItem`), with its menu.
class BusStatusItem final : public BusObject {
 public:
  /// What the panel reports goes to `item`. Item and image are borrowed.
  BusStatusItem(const QDBusConnection& bus, const QString& path, kit::StatusItem& item, const StatusImage& image);

  /// The image is new.
  void imageChanged() { emitSignal(QStringLiteral("NewIcon")); }

 private:
  void declareProperties();
  BusReply<> activate(int x, int y);
  BusReply<> contextMenu(int x, int y);
  BusReply<> secondaryActivate(int x, int y);
  BusReply<> scroll(int delta, const QString& orientation);
  BusReply<> takeToken(const QString& token);

  void released(kit::Event::Type button);

  kit::StatusItem& item_;
  const StatusImage& image_;
  std::unique_ptr<BusMenu> menu_;
  bool isPressed_ = false;
};

}  // namespace tarnwell::host_qt
