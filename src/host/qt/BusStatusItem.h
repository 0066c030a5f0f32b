#pragma once

#include "host/qt/BusMenu.h"
#include "host/qt/BusObject.h"
#include "kit/StatusItem.h"

namespace tarnwell::host_qt {

class StatusImage;

/// A status item that a panel shows (`org.kde.StatusNotifierItem`), with its menu.
class BusStatusItem final : public BusObject {
 public:
  /// What the panel reports goes to `item`. Item and image are borrowed.
  BusStatusItem(const QDBusConnection& bus, const QString& path, kit::StatusItem& item, const StatusImage& image);

  /// The image is new.
  void imageChanged() { emitSignal(QStringLiteral("NewIcon")); }

 protected:
  std::optional<QVariantList> call(const QString& method, const QVariantList& arguments) override;
  QVariantMap properties() const override;

 private:
  void released(kit::Event::Type button);

  kit::StatusItem& item_;
  const StatusImage& image_;
  std::unique_ptr<BusMenu> menu_;
};

}  // namespace tarnwell::host_qt
