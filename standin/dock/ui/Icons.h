#pragma once

#include <QtGui/QPixmap>
#include <map>
#include <string>
#include <utility>

namespace tarnwell::standin {

/// The drawings of the applications and of the trash, each drawn once for each size that is asked for.
class Icons {
 public:
  /// A square picture of `points`, sharp on a screen of `ratio` pixels a point. `name` is that of a file in icons/.
  const QPixmap& icon(const std::string& name, double points, double ratio);

 private:
  std::map<std::pair<std::string, int>, QPixmap> drawn_;
};

}  // namespace tarnwell::standin
