#pragma once

#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>
#include <chrono>
#include <functional>
#include <optional>

#include "standin/dock/model/MeshPainter.h"
#include "standin/dock/model/Warp.h"
#include "standin/dock/ui/Frames.h"
#include "standin/dock/ui/Surface.h"

namespace tarnwell::standin {

/// The picture of a window on its way into the dock, or out of it.
class EffectOverlay final : public QWidget {
 public:
  enum class Direction { intoDock, outOfDock };

  struct Journey {
    MinimizeEffect effect = MinimizeEffect::genie;
    QRect window;
    QRect icon;
    Direction direction = Direction::intoDock;
    std::chrono::milliseconds duration{0};
  };

  explicit EffectOverlay(Surface& surface);

  /// Shows the first frame at once and sets off. `arrived` is called after the last one; the overlay shows it until
  /// it is hidden.
  void start(const QPixmap& picture, const Journey& journey, std::function<void()> arrived);

 private:
  void paintEvent(QPaintEvent* event) override;
  Frames::Next frame();
  void draw(double progress);
  QRegion outline() const;

  Surface& surface_;
  Journey journey_;
  std::optional<Picture> picture_;
  Pixels canvas_;
  double ratio_ = 1;
  std::chrono::steady_clock::time_point began_;
  std::function<void()> arrived_;
  Frames frames_;
};

}  // namespace tarnwell::standin
