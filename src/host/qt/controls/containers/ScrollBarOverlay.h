#pragma once

#include <QtWidgets/QWidget>
#include <optional>

namespace tarnwell::kit {
class ScrollArea;
}

namespace tarnwell::host_qt {

class ControlWidget;
class Theme;

/// A thin bar over the right edge of a scroll area; there only while the content is taller than the area.
class ScrollBarOverlay final : public QWidget {
 public:
  /// `viewport` shows the area.
  ScrollBarOverlay(kit::ScrollArea& area, const Theme& theme, ControlWidget& viewport);

  /// The area's size, its content's or the offset is new.
  void follow();

  bool event(QEvent* event) noexcept override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QRectF thumb() const;
  double hiddenLength() const;
  void dragThumbTo(double top);

  kit::ScrollArea& area_;
  const ControlWidget& viewport_;
  const Theme& theme_;
  std::optional<double> grab_;  // From the thumb's top to where it was taken hold of.
};

}  // namespace tarnwell::host_qt
