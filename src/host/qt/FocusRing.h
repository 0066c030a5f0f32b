#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QFocusFrame>

namespace tarnwell::host::qt {

class Theme;

/// The ring around the control that has the keyboard. It lies beside the control in the same parent, since it is larger
/// than the control. Only its kind is the toolkit's focus frame: screen readers skip that.
class FocusRing final : public QFocusFrame {
 public:
  FocusRing(QWidget& target, double cornerRadius, const Theme& theme);

  bool eventFilter(QObject* object, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow();

  QWidget& target_;  // A sibling; the ring goes when the target does.
  double cornerRadius_;
  const Theme& theme_;
};

}  // namespace tarnwell::host::qt
