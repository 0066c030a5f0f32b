#pragma once

#include "host/qt/control/ControlWidget.h"

namespace tarnwell::host_qt {

/// A widget that is pressed as a whole: with the left mouse button, released where it was pressed, or with the space
/// bar.
class PressableWidget : public ControlWidget {
 public:
  using ControlWidget::ControlWidget;

  bool isPressed() const { return pressed_; }

 protected:
  /// The user pressed it. May end the control.
  virtual void activated() = 0;

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void setPressed(bool pressed);

  bool held_ = false;  // The button went down here and has not come up.
  bool pressed_ = false;
};

}  // namespace tarnwell::host_qt
