#pragma once

#include <QtCore/QVariantAnimation>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>
#include <chrono>
#include <functional>
#include <optional>

#include "standin/dock/model/MeshPainter.h"
#include "standin/dock/model/Warp.h"
#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// The picture of a window on its way into the dock, or out of it.
class EffectOverlay final : public QWidget {
 public:
  struct Journey {
    MinimizeEffect effect = MinimizeEffect::genie;
    QRect window;
    QRect icon;
    QVariantAnimation::Direction direction = QVariantAnimation::Forward;  // into the dock; else out of it
    std::chrono::milliseconds duration{0};
  };

  explicit EffectOverlay(Surface& surface);

  /// Shows the first frame at once and sets off. `arrived` is called after the last one; the overlay shows it until
  /// it is hidden.
  void start(const QPixmap& picture, const Journey& journey, std::function<void()> arrived);

 private:
  void paintEvent(QPaintEvent* event) override;
  void draw();
  QRegion outline() const;

  Surface& surface_;
  Journey journey_;
  std::optional<Picture> picture_;
  Pixels canvas_;
  double ratio_ = 1;
  std::function<void()> arrived_;
  QVariantAnimation progress_;  // from the window, at 0, to the icon
};

}  // namespace tarnwell::standin
