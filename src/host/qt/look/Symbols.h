#pragma once

#include <QtCore/QHash>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QPixmap>
#include <set>
#include <string>

class QPainter;

namespace tarnwell::host_qt {

/// The symbols by their names, drawn from this program's own pictures. Nothing is read before its first use.
class Symbols {
 public:
  /// Draws `name` into `target` in `color`. A name without a picture draws nothing and is reported once.
  void draw(QPainter& painter, const std::string& name, const QRectF& target, const QColor& color);

  static bool has(const std::string& name);

 private:
  QPixmap pixmap(const std::string& name, int devicePixels, const QColor& color);
  void reportMissing(const std::string& name);

  QHash<QString, QPixmap> drawn_;
  std::set<std::string> reported_;
};

}  // namespace tarnwell::host_qt
