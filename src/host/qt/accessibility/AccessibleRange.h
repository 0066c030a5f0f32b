#pragma once

#include "host/qt/accessibility/AccessibleControl.h"

namespace tarnwell::host_qt {

/// A slider or a stepper: the stored value, whichever way the picture is turned.
class AccessibleRange : public AccessibleControl, public QAccessibleValueInterface {
 public:
  using AccessibleControl::AccessibleControl;

  void* interface_cast(QAccessible::InterfaceType type) override;
  QStringList actionNames() const override;
  QString text(QAccessible::Text kind) const override;
  void setCurrentValue(const QVariant& value) final;

 protected:
  void perform(const QString& name) override;
  /// The user's choice; there is a control.
  virtual void choose(double value) = 0;

 private:
  void step(int direction);
};

class AccessibleSlider final : public AccessibleRange {
 public:
  AccessibleSlider(QWidget* widget, ControlLink& link) : AccessibleRange(widget, link, QAccessible::Slider) {}

  QVariant currentValue() const override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

 protected:
  void choose(double value) override;
};

class AccessibleStepper final : public AccessibleRange {
 public:
  AccessibleStepper(QWidget* widget, ControlLink& link) : AccessibleRange(widget, link, QAccessible::SpinBox) {}

  QVariant currentValue() const override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

 protected:
  void choose(double value) override;
};

}  // namespace tarnwell::host_qt
