#include "host/qt/accessibility/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QLineEdit>

#include "host/qt/accessibility/AccessibleControl.h"
#include "host/qt/accessibility/AccessiblePressable.h"
#include "host/qt/accessibility/AccessibleRange.h"
#include "host/qt/accessibility/AccessibleTabBar.h"
#include "host/qt/accessibility/AccessibleTextField.h"
#include "host/qt/controls/Announcement.h"
#include "host/qt/controls/ControlLink.h"
#include "host/qt/controls/ScrollBarOverlay.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/window/WindowWidget.h"
#include "kit/controls/Button.h"
#include "kit/controls/PopUpButton.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/SymbolView.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/TextField.h"
#include "kit/controls/TextLabel.h"
#include "kit/controls/Toggle.h"

namespace tarnwell::host_qt {
namespace {

class AccessibleLabel final : public AccessibleControl {
 public:
  AccessibleLabel(QWidget* widget, ControlLink& link) : AccessibleControl(widget, link, QAccessible::StaticText) {}

 protected:
  QString ownName() const override { return toQString(control<kit::TextLabel>()->text()); }
};

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
  if (dynamic_cast<const kit::TextField*>(control) != nullptr) {
    return new AccessibleTextField(static_cast<QLineEdit*>(widget), link);
  }
  if (dynamic_cast<const kit::TextLabel*>(control) != nullptr) {
    return new AccessibleLabel(widget, link);
  }
  const bool isSymbol = dynamic_cast<const kit::SymbolView*>(control) != nullptr;
  return new AccessibleControl(widget, link, isSymbol ? QAccessible::Graphic : QAccessible::Pane);
}

QAccessibleInterface* accessible(const QString& className, QObject* object) {
  ControlLink* link = ControlLink::of(object);
  // Asked for each class of an object, from its own up; the toolkit has an answer of its own for line edits.
  const bool isField = link != nullptr && className == QLatin1String("QLineEdit");
  if (!isField && className != QLatin1String("QWidget")) {
    return nullptr;
  }
  if (dynamic_cast<WindowWidget*>(object) != nullptr) {
    return new AccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
  }
  if (dynamic_cast<ScrollBarOverlay*>(object) != nullptr) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::ScrollBar);
  }
  auto* widget = static_cast<QWidget*>(object);
  if (widget->windowType() == Qt::Dialog) {
    return new QAccessibleWidget(widget, QAccessible::Dialog);
  }
  const bool shows = link != nullptr && link->control() != nullptr;
  return shows ? accessibleFor(widget, *link) : new AccessibleWidget(widget);
}

// Where a screen reader is active, every event goes through here.
void deliver(QAccessibleEvent* event) {
  if (isWorthTelling(*event)) {
    const auto again = QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(again);
  }
}

}  // namespace

void installAccessibility() {
  QAccessible::installFactory(&accessible);
  QAccessible::installUpdateHandler(&deliver);
}

}  // namespace tarnwell::host_qt
