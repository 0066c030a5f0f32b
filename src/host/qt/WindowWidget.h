#pragma once

#include <QtWidgets/QWidget>

namespace tarnwell::kit {
class ScrollArea;
class Window;
}  // namespace tarnwell::kit

namespace tarnwell::host_qt {

class KeyRoute;

/// The toolkit's window of a kit window. Cut off when its peer goes; it is deleted when its events are over.
class WindowWidget final : public QWidget {
 public:
  WindowWidget(kit::Window& window, KeyRoute& keys);

  /// Null when cut off.
  kit::Window* kitWindow() const { return window_; }
  void cut() { window_ = nullptr; }

  bool event(QEvent* event) noexcept override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool scroll(int key);
  kit::ScrollArea* scrollArea() const;

  kit::Window* window_;
  KeyRoute& keys_;
};

}  // namespace tarnwell::host_qt
