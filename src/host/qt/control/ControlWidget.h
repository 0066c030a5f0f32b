#pragma once

#include <QtWidgets/QWidget>

#include "host/qt/control/ControlLink.h"

class QPainter;

namespace tarnwell::host_qt {

class Theme;

/// A widget that this program paints itself. Painting is dimmed while the control is disabled. Wheel events pass on to
/// the page, so that scrolling over a control never changes it.
class ControlWidget : public QWidget, public ControlLink {
 public:
  ControlWidget(kit::Control& control, const Theme& theme, QWidget* parent);

  void showState() override { update(); }
  QRectF focusShape() const override { return bounds(); }
  double cornerRadius() const override { return 6; }
  bool showsFocus() const override { return reachedByKeyboard_; }

  void fontsChanged() override { update(); }

  bool event(QEvent* event) noexcept override;

 protected:
  virtual void draw(QPainter& painter) = 0;

  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

  const Theme& theme() const { return theme_; }
  QRectF bounds() const { return rect(); }

 private:
  const Theme& theme_;
  bool reachedByKeyboard_ = false;
};

}  // namespace tarnwell::host_qt
