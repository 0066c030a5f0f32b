#pragma once

#include <QtCore/QRect>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>
#include <functional>
#include <utility>
#include <vector>

#include "standin/dock/ui/look/Look.h"

namespace tarnwell::standin {

/// Where the dock and its windows are put. On a desktop where programs place their windows, that is the screen; on any
/// other, it is one ordinary window that plays the screen.
class Surface {
 public:
  enum class Role {
    dock,      // above everything, takes no focus
    overlay,   // for a while above everything but the dock, takes no focus
    effect,    // for a while above all of it, takes neither focus nor pointer
    menu,      // a menu of the dock's, above everything until something was chosen
    document,  // an ordinary window
  };

  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  /// In the coordinates that widgets which were put here have.
  virtual QRect area() const = 0;

  /// Makes a fresh widget a window of the screen, or a part of the window that plays it.
  virtual void adopt(QWidget& widget, Role role) = 0;

  /// Whether what is transparent in a widget shows what is behind it.
  virtual bool blends() const = 0;

  /// What can be seen now.
  virtual QPixmap picture(const QRect& part) const = 0;

  /// Puts every adopted dock above whatever else there is.
  virtual void raiseDock() = 0;

  /// How far up from the lower edge the pointer counts as being at the edge, in points.
  virtual void setEdgeHeight(int points) = 0;

  virtual void setScheme(Scheme /*scheme*/) {}

  /// Whether onEscape() hears of the key, wherever the focus is: nothing here may take it from another program's
  /// window. Another program may have asked for the key before; then nothing is heard.
  virtual void watchEscape(bool isWatched) = 0;

  /// Forgets everything that it was told to call, and is ready for another dock.
  virtual void reset() {
    watchEscape(false);
    edgeChanged_ = [](bool) {};
    areaChanged_.clear();
    escapePressed_ = [] {};
  }

  /// Whether the pointer is at the lower edge, and called with that when it changes.
  bool isAtEdge() const { return isAtEdge_; }
  void onEdge(std::function<void(bool)> changed) { edgeChanged_ = std::move(changed); }

  void onEscape(std::function<void()> pressed) { escapePressed_ = std::move(pressed); }

  /// Adds what is called when the area has changed.
  void onArea(std::function<void()> changed) { areaChanged_.push_back(std::move(changed)); }

 protected:
  void tellEdge(bool isThere) {
    isAtEdge_ = isThere;
    edgeChanged_(isThere);
  }
  void tellArea() const {
    for (const auto& changed : areaChanged_) {
      changed();
    }
  }
  void tellEscape() const { escapePressed_(); }

 private:
  bool isAtEdge_ = false;
  std::function<void(bool)> edgeChanged_ = [](bool) {};
  std::vector<std::function<void()>> areaChanged_;
  std::function<void()> escapePressed_ = [] {};
};

}  // namespace tarnwell::standin
