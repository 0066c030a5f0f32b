#pragma once

#include <QtCore/QRect>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "standin/dock/model/Geometry.h"
#include "standin/dock/motion/Easing.h"
#include "standin/dock/motion/ScrollGesture.h"
#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// All windows of an application side by side on a dimmed screen, to choose one of. Escape, scrolling up, a click
/// beside them or close() end it.
class SpreadOverlay final : public QWidget {
 public:
  struct Window {
    QRect place;  // where it stands
    QPixmap picture;
    QString title;
  };

  SpreadOverlay(Surface& surface, ScrollGesture& scrolling);

  /// `behind` is what can be seen without it; `chosen` is called once it has gone, with the window that was clicked, if
  /// one was. While it is still closing, it opens anew at once.
  void open(std::vector<Window> windows, const QPixmap& behind, std::function<void(std::optional<std::size_t>)> chosen);
  void close();
  bool isOpen() const { return isVisible() && spreading_.direction() == QVariantAnimation::Forward; }

  /// What can be seen without it, as long as it has not gone.
  const QPixmap& behind() const { return behind_; }

  /// What it shows behind the windows, in a part of its surface.
  QPixmap backdrop(const QRect& part) const;

 private:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

  double share() const { return smooth(spreading_.currentValue().toDouble()); }
  void arrange();
  void finish();
  void tellChoice();
  QRectF placeOf(std::size_t window) const;
  std::optional<std::size_t> windowAt(QPointF place) const;
  void paintWindow(QPainter& painter, std::size_t window) const;

  Surface& surface_;
  ScrollGesture& scrolling_;
  std::vector<Window> windows_;
  std::vector<Rectangle> spread_;
  QPixmap behind_;
  QPixmap backdrop_;
  std::function<void(std::optional<std::size_t>)> chosen_;
  std::optional<std::size_t> choice_;
  std::optional<std::size_t> hovered_;
  bool isPressed_ = false;
  QVariantAnimation spreading_;  // forwards as it opens, backwards as it closes
};

}  // namespace tarnwell::standin
