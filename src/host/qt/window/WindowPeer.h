#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "host/qt/control/Container.h"
#include "host/qt/window/WindowWidget.h"
#include "kit/host/WindowPeer.h"

namespace tarnwell::host_qt {

/// What stands in a window beside its content, across the whole width: children of the window's widget. Null for
/// nothing.
struct WindowChrome {
  QWidget* above = nullptr;
  QWidget* below = nullptr;
};

/// A window on the screen: of a fixed size, placed by the window manager.
class WindowPeer final : public kit::WindowPeer, public Container {
 public:
  /// What is asked about keys is borrowed, and may be replaced meanwhile.
  WindowPeer(kit::Window& window, const KeyEquivalents& equivalents);
  ~WindowPeer() override;

  /// Null only when Qt has closed down before the window.
  QWidget* widget() const { return widget_; }
  QWidget* content() const override { return content_; }

  /// Takes what stands beside the content, before anything stands in it.
  void setChrome(const WindowChrome& chrome);

  /// To be told when what stands beside the content is higher or lower than it was, is hidden or comes.
  static void chromeChanged(const QWidget& inWindow);

  /// The window that `widget` stands in; null for a widget that stands in none of ours.
  static kit::Window* windowOf(const QWidget& widget);

  /// To be called when the toolkit's focus window is another one: tells the application which of its windows has the
  /// keys. A menu or another program only borrows them.
  static void tellKeyWindow();

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;
  double availableHeight(double width) const override;
  double chromeHeight(double width) const override;
  void reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept override;
  void miniaturize() noexcept override;
  void orderFront() noexcept override;
  void focus(kit::Control* control) noexcept override;

 private:
  void showOrHide();
  void showLevel();

  kit::Window& window_;
  QPointer<WindowWidget> widget_;
  QPointer<QWidget> content_;  // The same unless there is something beside the content.
  QPointer<QWidget> above_;
  QPointer<QWidget> below_;
};

}  // namespace tarnwell::host_qt
