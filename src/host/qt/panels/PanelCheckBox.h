#pragma once

#include <QtWidgets/QAbstractButton>

namespace tarnwell::host_qt {

class Theme;

/// A choice of yes or no in a panel, with its title beside it.
class PanelCheckBox final : public QAbstractButton {
 public:
  PanelCheckBox(const QString& title, const Theme& theme, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  QRectF box() const;
  void drawMark(QPainter& painter) const;

  const Theme& theme_;
  bool showsFocus_ = false;  // The keyboard brought it here.
};

}  // namespace tarnwell::host_qt
