#pragma once

#include <QtWidgets/QAbstractButton>

namespace tarnwell::host_qt {

class Theme;

/// A button at the foot of a panel.
class PanelButton final : public QAbstractButton {
 public:
  /// The default one wears the accent colour; Return presses it.
  enum class Kind { plain, defaultButton };

  PanelButton(const QString& title, Kind kind, const Theme& theme, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QRectF face() const;

  Kind kind_;
  const Theme& theme_;
  bool showsFocus_ = false;  // The keyboard brought it here.
};

}  // namespace tarnwell::host_qt
