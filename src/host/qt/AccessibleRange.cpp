#include "host/qt/AccessibleRange.h"

#include "kit/Slider.h"
#include "kit/Stepper.h"

namespace tarnwell::host_qt {

void* AccessibleRange::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                             : AccessibleControl::interface_cast(type);
}

QStringList AccessibleRange::actionNames() const {
  return QStringList{increaseAction(), decreaseAction()} + AccessibleControl::actionNames();
}

void AccessibleRange::doAction(const QString& name) {
  if (control<kit::Control>() == nullptr) {
    return;
  }
  if (name == increaseAction()) {
    step(1);
  } else if (name == decreaseAction()) {
    step(-1);
  } else {
    AccessibleControl::doAction(name);
  }
}

QString AccessibleRange::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? QString::number(currentValue().toDouble()) : AccessibleControl::text(kind);
}

QVariant AccessibleSlider::currentValue() const {
  const auto* slider = control<kit::Slider>();
  return slider != nullptr ? slider->doubleValue() : 0.0;
}

void AccessibleSlider::setCurrentValue(const QVariant& value) {
  if (auto* slider = control<kit::Slider>()) {
    slider->choose(value.toDouble());
  }
}

QVariant AccessibleSlider::maximumValue() const {
  const auto* slider = control<kit::Slider>();
  return slider != nullptr ? slider->maxValue() : 0.0;
}

QVariant AccessibleSlider::minimumValue() const {
  const auto* slider = control<kit::Slider>();
  return slider != nullptr ? slider->minValue() : 0.0;
}

QVariant AccessibleSlider::minimumStepSize() const {
  return kit::Slider::arrowStep * (maximumValue().toDouble() - minimumValue().toDouble());
}

void AccessibleSlider::step(int direction) {
  setCurrentValue(currentValue().toDouble() + direction * minimumStepSize().toDouble());
}

QVariant AccessibleStepper::currentValue() const {
  const auto* stepper = control<kit::Stepper>();
  return stepper != nullptr ? stepper->value() : 0.0;
}

void AccessibleStepper::setCurrentValue(const QVariant& value) {
  const double difference = value.toDouble() - currentValue().toDouble();
  if (difference != 0) {
    step(difference > 0 ? 1 : -1);
  }
}

QVariant AccessibleStepper::maximumValue() const {
  const auto* stepper = control<kit::Stepper>();
  return stepper != nullptr ? stepper->range().most : 0.0;
}

QVariant AccessibleStepper::minimumValue() const {
  const auto* stepper = control<kit::Stepper>();
  return stepper != nullptr ? stepper->range().least : 0.0;
}

QVariant AccessibleStepper::minimumStepSize() const {
  const auto* stepper = control<kit::Stepper>();
  return stepper != nullptr ? stepper->range().step : 0.0;
}

void AccessibleStepper::step(int direction) {
  auto* stepper = control<kit::Stepper>();
  if (stepper == nullptr) {
    return;
  }
  if (direction > 0) {
    stepper->increment();
  } else {
    stepper->decrement();
  }
}

}  // namespace tarnwell::host_qt
