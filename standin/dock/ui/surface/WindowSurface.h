#pragma once

#include <QtWidgets/QWidget>

#include "standin/dock/model/LowerEdge.h"
#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// One ordinary window that plays the screen, for desktops where programs may not place their windows. It says so.
class WindowSurface final : public Surface, private QWidget {
 public:
  WindowSurface();

  QRect area() const override { return rect(); }
  void adopt(QWidget& widget, Role role) override;
  bool blends() const override { return true; }
  QPixmap picture(const QRect& part) const override;
  void raiseDock() override {}
  void setEdgeHeight(int /*points*/) override {}
  void setScheme(Scheme scheme) override;
  void watchEscape(bool isWatched) override { isEscapeWatched_ = isWatched; }

 private:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  Size extent() const;

  Look look_ = Look::of(Scheme::light);
  QWidget* floor_;  // below the dock, with all that could take the pointer from it
  LowerEdge edge_;
  bool isEscapeWatched_ = false;
};

}  // namespace tarnwell::standin
