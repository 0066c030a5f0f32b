#pragma once

#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "standin/dock/model/ShelfLayout.h"
#include "standin/dock/motion/Reveal.h"
#include "standin/dock/motion/ScrollGesture.h"
#include "standin/dock/ui/look/ShelfPainter.h"
#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// What takes the pointer for an item, and tells a screen reader of it. The dock paints them all, since they grow.
class DockTile final : public QAbstractButton {
 public:
  DockTile(QWidget& dock, std::size_t item);

  std::size_t item() const { return item_; }

 private:
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* /*event*/) override {}

  std::size_t item_;
};

/// The dock itself, at the lower edge of its surface: comes and goes with the pointer, grows below it, and tells what
/// was done to its items.
class DockWidget final : public QWidget {
 public:
  /// What to do about the item of a number.
  struct Actions {
    std::function<void(std::size_t item)> click;
    std::function<void(std::size_t item)> menu;
    std::function<void(std::size_t item)> scrollUp;
  };

  DockWidget(Surface& surface, const Reveal& reveal, ScrollGesture& scrolling, Actions actions);

  void setItems(std::vector<DockItem> items);
  void setScheme(Scheme scheme);

  /// Brings it and keeps it, as often as it is told so, until it was released as often.
  void hold();
  void release();

  /// What can be seen of the whole surface now, without the dock as far as is known what is behind it.
  QPixmap pictureWithout() const;

  /// Something else is behind the dock until uncover(): what it shines through.
  void cover(const QPixmap& cover);
  void uncover();

  /// Comes for the first time.
  void greet();

  /// Where the icon of an item is once the dock is shown and not pointed at, on the surface.
  QRect iconPlace(std::size_t item) const;

 private:
  using Time = Reveal::Time;

  void hideEvent(QHideEvent* /*event*/) override { onDock_ = false; }
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

  void place();
  void placeTiles();
  void setPointer(bool onDock, bool atEdge);
  void wakeUp();
  void show(double share);
  void lookBehind();
  bool isBouncing(Time now) const;
  void growTowards(Time now);
  ShelfPainter::Frame currentFrame() const;
  std::optional<std::size_t> itemAt(QPointF place) const;

  Surface& surface_;
  Look look_ = Look::of(Scheme::light);
  ShelfPainter painter_;
  Actions actions_;
  std::vector<DockItem> items_;
  std::vector<DockTile*> tiles_;  // at least one for each item
  ShelfLayout layout_{{}, 0};
  Reveal reveal_;
  int holders_ = 0;
  bool onDock_ = false;
  bool atEdge_ = false;
  double pointer_ = 0;
  double strength_ = 0;  // of the growth below the pointer
  Time lastFrame_;
  bool isMoving_ = false;  // so that another frame follows
  double shown_ = 0;
  QPixmap backdrop_;  // what was behind the dock when it came
  QPixmap blurred_;
  QPixmap uncovered_;
  QRegion outline_;
  QTimer alarm_;  // for the next frame, or for what is due
  std::optional<std::size_t> pressed_;
  ScrollGesture& scrolling_;
};

}  // namespace tarnwell::standin
