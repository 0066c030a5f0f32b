#include "host/qt/accessibility/AccessibleRange.h"

#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"

namespace tarnwell::host_qt {

void* AccessibleRange::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                             : AccessibleControl::interface_cast(type);
}

QStringList AccessibleRange::actionNames() const {
  return QStringList{increaseAction(), decreaseAction()} + AccessibleControl::actionNames();
}

void AccessibleRange::setCurrentValue(const QVariant& value) {
  act([&] { choose(value.toDouble()); });
}

void AccessibleRange::perform(const QString& name) {
  if (name == increaseAction()) {
    step(1);
  } else if (name == decreaseAction()) {
    step(-1);
  } else {
    AccessibleControl::perform(name);
  }
}

void AccessibleRange::step(int direction) {
  choose(currentValue().toDouble() + direction * minimumStepSize().toDouble());
}

QString AccessibleRange::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? QString::number(currentValue().toDouble()) : AccessibleControl::text(kind);
}

QVariant AccessibleSlider::currentValue() const {
  const auto* slider = control<kit::Slider>();
  return slider != nullptr ? slider->doubleValue() : 0.0;
}

void AccessibleSlider::choose(double value) { control<kit::Slider>()->choose(value); }

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

QVariant AccessibleStepper::currentValue() const {
  const auto* stepper = control<kit::Stepper>();
  return stepper != nullptr ? stepper->value() : 0.0;
}

void AccessibleStepper::choose(double value) { control<kit::Stepper>()->choose(value); }

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

}  // namespace tarnwell::host_qt
