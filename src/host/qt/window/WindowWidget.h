#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <memory>

#include "host/qt/window/FixedSizeGuard.h"
#include "host/qt/window/FramePace.h"
#include "kit/host/KeyEvent.h"

namespace tarnwell::kit {
class Control;
class Window;
}  // namespace tarnwell::kit

namespace tarnwell::host_qt {

/// Asked first about a key that the focused control has no use for: true for one that has done its work, which may end
/// the window.
using KeyEquivalents = std::function<bool(const kit::KeyEvent&)>;

/// The toolkit's window of a kit window. Cut off when its peer goes; it is deleted when its events are over.
class WindowWidget final : public QWidget {
 public:
  WindowWidget(kit::Window& window, const KeyEquivalents& equivalents);

  /// Null when cut off.
  kit::Window* kitWindow() const { return window_; }
  void cut() { window_ = nullptr; }

  /// In front again when the next window of ours takes the keyboard, which may have come above a window that came
  /// quietly when the program started.
  void uncoverOnce();

  bool event(QEvent* event) noexcept override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool chooseTab(const QKeyEvent& event);
  bool scroll(int key);
  /// The first control of that kind; null for none.
  template <class Kind>
  Kind* first() const;
  /// The handle of the switch whose label stands there; null for none.
  std::shared_ptr<kit::Control* const> toggleLabelledAt(const QPointF& position) const;

  kit::Window* window_;
  const KeyEquivalents& equivalents_;
  std::shared_ptr<kit::Control* const> pressed_;  // The switch whose label the button went down on.
  QMetaObject::Connection covering_;
  FixedSizeGuard guard_{*this};
  FramePace pace_{*this};
};

}  // namespace tarnwell::host_qt
