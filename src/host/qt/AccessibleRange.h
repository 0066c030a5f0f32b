#pragma once

#include "host/qt/AccessibleControl.h"

namespace tarnwell::host_qt {

/// A slider or a stepper: the stored value, whichever way the picture is turned.
class AccessibleRange : public AccessibleControl, public QAccessibleValueInterface {
 public:
  using AccessibleControl::AccessibleControl;

  void* interface_cast(QAccessible::InterfaceType type) override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QString text(QAccessible::Text kind) const override;

 protected:
  virtual void step(int direction) = 0;
};

class AccessibleSlider final : public AccessibleRange {
 public:
  AccessibleSlider(QWidget* widget, ControlLink& link) : AccessibleRange(widget, link, QAccessible::Slider) {}

  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

 protected:
  void step(int direction) override;
};

class AccessibleStepper final : public AccessibleRange {
 public:
  AccessibleStepper(QWidget* widget, ControlLink& link) : AccessibleRange(widget, link, QAccessible::SpinBox) {}

  QVariant currentValue() const override;
  /// One step towards `value`: a stepper knows nothing else.
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

 protected:
  void step(int direction) override;
};

}  // namespace tarnwell::host_qt
