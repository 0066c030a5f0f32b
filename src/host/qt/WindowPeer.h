#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "host/qt/Container.h"
#include "kit/WindowPeer.h"

namespace tarnwell::kit {
class Window;
}

namespace tarnwell::host::qt {

class KeyRoute;

/// A window on the screen: of a fixed size, placed by the window manager.
class WindowPeer final : public kit::WindowPeer, public Container {
 public:
  WindowPeer(kit::Window& window, KeyRoute& keys);
  ~WindowPeer() override;

  /// Null only when Qt has closed down before the window.
  QWidget* widget() const { return widget_; }
  QWidget* content() const override { return widget_; }

  /// The window that `widget` stands in; null for a widget that stands in none of ours.
  static kit::Window* windowOf(const QWidget& widget);

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;
  double availableHeight() const override;
  void reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept override;

 private:
  kit::Window& window_;
  QPointer<QWidget> widget_;
};

}  // namespace tarnwell::host::qt
