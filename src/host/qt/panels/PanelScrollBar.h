#pragma once

#include <QtWidgets/QScrollBar>
#include <optional>

namespace tarnwell::host_qt {

class Theme;

/// A thin upright bar without arrows, as beside the settings.
class PanelScrollBar final : public QScrollBar {
 public:
  PanelScrollBar(const Theme& theme, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QRectF thumb() const;
  void dragThumbTo(double top);

  const Theme& theme_;
  std::optional<double> grab_;  // From the thumb's top to where it was taken hold of.
};

}  // namespace tarnwell::host_qt
