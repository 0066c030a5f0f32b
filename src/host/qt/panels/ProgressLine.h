#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QProgressBar>

namespace tarnwell::host_qt {

class Theme;

/// How far something has come: a line that fills, or one with something moving in it while the share is unknown.
class ProgressLine final : public QProgressBar {
 public:
  /// Indeterminate until it is told a share.
  ProgressLine(const Theme& theme, QWidget* parent);

  /// From 0 to 1.
  void setShare(double share);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  bool isUnknown() const { return minimum() == maximum(); }
  QRectF track() const;
  QRectF filled() const;

  const Theme& theme_;
  QVariantAnimation motion_;
};

}  // namespace tarnwell::host_qt
