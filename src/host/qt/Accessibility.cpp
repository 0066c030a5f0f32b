#include "host/qt/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QLineEdit>

#include "host/qt/AccessibleControl.h"
#include "host/qt/AccessiblePressable.h"
#include "host/qt/AccessibleRange.h"
#include "host/qt/AccessibleTabBar.h"
#include "host/qt/ControlLink.h"
#include "host/qt/Conversions.h"
#include "host/qt/ScrollBarOverlay.h"
#include "host/qt/WindowWidget.h"
#include "kit/Box.h"
#include "kit/Button.h"
#include "kit/PopUpButton.h"
#include "kit/Slider.h"
#include "kit/Stepper.h"
#include "kit/SymbolView.h"
#include "kit/TabBar.h"
#include "kit/TextLabel.h"
#include "kit/Toggle.h"

namespace tarnwell::host_qt {
namespace {

class AccessibleLabel final : public AccessibleControl {
 public:
  AccessibleLabel(QWidget* widget, ControlLink& link) : AccessibleControl(widget, link, QAccessible::StaticText) {}

 protected:
  QString ownName() const override { return toQString(control<kit::TextLabel>()->text()); }
};

QAccessible::Role plainRole(const kit::Control& control) {
  if (dynamic_cast<const kit::SymbolView*>(&control) != nullptr) {
    return QAccessible::Graphic;
  }
  const auto* box = dynamic_cast<const kit::Box*>(&control);
  if (box != nullptr && box->kind() == kit::Box::Kind::separator) {
    return QAccessible::Separator;
  }
  return QAccessible::Pane;
}

QAccessibleInterface* accessibleFor(QWidget* widget, ControlLink& link) {
  const kit::Control* control = link.control();
  if (dynamic_cast<const kit::Slider*>(control) != nullptr) {
    return new AccessibleSlider(widget, link);
  }
  if (dynamic_cast<const kit::Stepper*>(control) != nullptr) {
    return new AccessibleStepper(widget, link);
  }
  if (dynamic_cast<const kit::Toggle*>(control) != nullptr) {
    return new AccessibleToggle(widget, link);
  }
  if (dynamic_cast<const kit::Button*>(control) != nullptr) {
    return new AccessibleButton(widget, link);
  }
  if (dynamic_cast<const kit::PopUpButton*>(control) != nullptr) {
    return new AccessiblePopUpButton(widget, link);
  }
  if (dynamic_cast<const kit::TabBar*>(control) != nullptr) {
    return new AccessibleTabBar(widget, link);
  }
  if (dynamic_cast<const kit::TextLabel*>(control) != nullptr) {
    return new AccessibleLabel(widget, link);
  }
  return new AccessibleControl(widget, link, plainRole(*control));
}

QAccessibleInterface* accessible(const QString& className, QObject* object) {
  // Asked for each class of an object, from its own up; a text field is the toolkit's own business.
  if (className != QLatin1String("QWidget") || qobject_cast<QLineEdit*>(object) != nullptr) {
    return nullptr;
  }
  if (dynamic_cast<WindowWidget*>(object) != nullptr) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
  }
  if (dynamic_cast<ScrollBarOverlay*>(object) != nullptr) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::ScrollBar);
  }
  auto* widget = static_cast<QWidget*>(object);
  if (widget->windowType() == Qt::Dialog) {
    return new QAccessibleWidget(widget, QAccessible::Dialog);
  }
  ControlLink* link = ControlLink::of(object);
  const bool shows = link != nullptr && link->control() != nullptr;
  return shows ? accessibleFor(widget, *link) : nullptr;
}

std::unique_ptr<QAccessibleEvent> newValue(QWidget& widget, const kit::Control& control) {
  if (const auto* slider = dynamic_cast<const kit::Slider*>(&control)) {
    return std::make_unique<QAccessibleValueChangeEvent>(&widget, slider->doubleValue());
  }
  if (const auto* stepper = dynamic_cast<const kit::Stepper*>(&control)) {
    return std::make_unique<QAccessibleValueChangeEvent>(&widget, stepper->value());
  }
  if (dynamic_cast<const kit::PopUpButton*>(&control) != nullptr) {
    const QString chosen = QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Value);
    return std::make_unique<QAccessibleValueChangeEvent>(&widget, chosen);
  }
  if (const auto* bar = dynamic_cast<const kit::TabBar*>(&control)) {
    auto chosen = std::make_unique<QAccessibleEvent>(&widget, QAccessible::Selection);
    chosen->setChild(bar->selectedIndex());
    return chosen;
  }
  if (dynamic_cast<const kit::Toggle*>(&control) != nullptr) {
    QAccessible::State changed;
    changed.checked = true;
    return std::make_unique<QAccessibleStateChangeEvent>(&widget, changed);
  }
  return nullptr;
}

}  // namespace

void installAccessibility() { QAccessible::installFactory(&accessible); }

std::unique_ptr<QAccessibleEvent> announcementOf(QWidget& widget, const kit::Control& control, kit::Aspect aspect) {
  if (aspect == kit::Aspect::value) {
    return newValue(widget, control);
  }
  // Qt tells of the names that are given and of enabledness by itself; a title is our own affair.
  const bool renamed = aspect == kit::Aspect::title;
  return renamed ? std::make_unique<QAccessibleEvent>(&widget, QAccessible::NameChanged) : nullptr;
}

void announceChange(QWidget& widget, const kit::Control& control, kit::Aspect aspect) {
  if (!QAccessible::isActive()) {
    return;
  }
  if (const auto announcement = announcementOf(widget, control, aspect)) {
    QAccessible::updateAccessibility(announcement.get());
  }
}

}  // namespace tarnwell::host_qt
