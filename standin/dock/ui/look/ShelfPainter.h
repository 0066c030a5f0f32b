#pragma once

#include <QtCore/QString>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QRegion>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standin/dock/model/ShelfLayout.h"
#include "standin/dock/motion/Bounce.h"
#include "standin/dock/ui/look/Look.h"

namespace tarnwell::standin {

/// One thing on the shelf.
struct DockItem {
  enum class Kind { application, window, separator, trash };

  Kind kind = Kind::application;
  std::string icon = {};  // the name of a file in icons/; a minimized window shows a small one on its picture
  QString label = {};
  bool isRunning = false;
  bool isDimmed = false;
  Bounce bounce = {};
  QPixmap picture = {};  // of a minimized window; none while it is still on its way
};

/// Draws shelf, icons, dots and label on a canvas whose lower edge is that of the screen.
class ShelfPainter {
 public:
  /// What one frame shows.
  struct Frame {
    const std::vector<DockItem>& items;
    const ShelfLayout& layout;
    ShelfLayout::Attention attention = {};
    std::optional<std::size_t> labelled = {};
    QSizeF canvas = {};
    double sunk = 0;  // how far down everything is, in points
    Bounce::Time now = {};
  };

  explicit ShelfPainter(const Look& look) : look_(look) {}

  /// `behind`, where there is one, is what can be seen through the shelf.
  void paint(QPainter& painter, const Frame& frame, const QPixmap& behind);

  /// Whatever paint() may touch, and at the edges of an icon perhaps a point more.
  static QRegion outline(const Frame& frame);

  /// How much of a canvas is needed above the screen's lower edge.
  static int heightFor(const ShelfLayout& layout);

 private:
  void paintSlot(QPainter& painter, const Frame& frame, const DockItem& item, const ShelfLayout::Placed& place);
  void paintPicture(QPainter& painter, const DockItem& item, const QRectF& square);
  void paintLabel(QPainter& painter, const Frame& frame);
  const QPixmap& icon(const std::string& name, double points, double ratio);

  const Look& look_;
  std::map<std::pair<std::string, int>, QPixmap> icons_;  // each drawn once for each size in pixels
};

}  // namespace tarnwell::standin
