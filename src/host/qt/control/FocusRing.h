#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QFocusFrame>

namespace tarnwell::host_qt {

class ControlLink;
class Theme;

/// The ring around the control that has the keyboard. It lies beside the control in the same parent, since it is larger
/// than the control. It is a focus frame of the toolkit only because screen readers skip those.
class FocusRing final : public QFocusFrame {
 public:
  /// `target` shows the control of `link`.
  FocusRing(QWidget& target, ControlLink& link, const Theme& theme);
  ~FocusRing() override;

  bool eventFilter(QObject* object, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow();

  QPointer<QWidget> target_;
  ControlLink& link_;  // As alive as the target.
  const Theme& theme_;
};

}  // namespace tarnwell::host_qt
