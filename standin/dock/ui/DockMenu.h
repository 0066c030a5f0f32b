#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QMenu>

#include "standin/dock/ui/look/Look.h"
#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// A menu that looks like the shelf that it stands on.
class DockMenu final : public QMenu {
 public:
  DockMenu(Surface& surface, const Look& look);

  /// Opens it with the middle of its lower edge at a place on the surface, or near to it.
  void openAbove(QPoint place);

 private:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

  Surface& surface_;
  Look look_;
  QPixmap behind_;
  QPixmap blurred_;
};

}  // namespace tarnwell::standin
