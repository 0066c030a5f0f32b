#include "host/qt/controls/Announcement.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>

#include "host/qt/controls/ControlLink.h"
#include "kit/controls/PopUpButton.h"
#include "kit/controls/ScrollArea.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/Toggle.h"

namespace tarnwell::host_qt {
namespace {

void add(Announcements& told, std::unique_ptr<QAccessibleEvent> event) { told.push_back(std::move(event)); }

void addTabs(Announcements& told, QWidget& widget, const kit::TabBar& bar) {
  const auto addOf = [&](QAccessible::Event type, int tab) {
    add(told, std::make_unique<QAccessibleEvent>(&widget, type));
    told.back()->setChild(tab);
  };
  for (int i = 0; i < static_cast<int>(bar.tabs().size()); ++i) {
    // Each says whether it is the chosen one now.
    addOf(QAccessible::Selection, i);
  }
  if (widget.hasFocus() && bar.selectedIndex() >= 0) {
    addOf(QAccessible::Focus, bar.selectedIndex());
  }
}

void addValue(Announcements& told, QWidget& widget, const kit::Control& control) {
  if (const auto* slider = dynamic_cast<const kit::Slider*>(&control)) {
    add(told, std::make_unique<QAccessibleValueChangeEvent>(&widget, slider->doubleValue()));
  } else if (const auto* stepper = dynamic_cast<const kit::Stepper*>(&control)) {
    add(told, std::make_unique<QAccessibleValueChangeEvent>(&widget, stepper->value()));
  } else if (dynamic_cast<const kit::PopUpButton*>(&control) != nullptr) {
    const QString chosen = QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Value);
    add(told, std::make_unique<QAccessibleValueChangeEvent>(&widget, chosen));
  } else if (const auto* bar = dynamic_cast<const kit::TabBar*>(&control)) {
    addTabs(told, widget, *bar);
  } else if (dynamic_cast<const kit::Toggle*>(&control) != nullptr) {
    QAccessible::State changed;
    changed.checked = true;
    add(told, std::make_unique<QAccessibleStateChangeEvent>(&widget, changed));
  }
}

}  // namespace

bool isWorthTelling(const QAccessibleEvent& event) {
  const bool comesOrGoes = event.type() == QAccessible::ObjectShow || event.type() == QAccessible::ObjectHide;
  const ControlLink* link = ControlLink::of(event.object());
  // A page comes and goes with all that stands in it, and that has been told.
  return !comesOrGoes || link == nullptr || dynamic_cast<const kit::ScrollArea*>(link->control()) != nullptr;
}

Announcements announcementsOf(QWidget& widget, const kit::Control& control, kit::Aspect aspect) {
  Announcements told;
  // What a control is when it comes is no news.
  if (!widget.isVisible()) {
    return told;
  }
  // A title is the name of what was given none. Of enabledness the toolkit tells by itself.
  const bool isName =
      aspect == kit::Aspect::accessibleName || (aspect == kit::Aspect::title && control.accessibleName().empty());
  if (isName) {
    add(told, std::make_unique<QAccessibleEvent>(&widget, QAccessible::NameChanged));
  } else if (aspect == kit::Aspect::accessibleDescription) {
    add(told, std::make_unique<QAccessibleEvent>(&widget, QAccessible::DescriptionChanged));
  } else if (aspect == kit::Aspect::value) {
    addValue(told, widget, control);
  }
  return told;
}

void announceChange(QWidget& widget, const kit::Control& control, kit::Aspect aspect) {
  if (QAccessible::isActive()) {
    for (const auto& event : announcementsOf(widget, control, aspect)) {
      QAccessible::updateAccessibility(event.get());
    }
  }
}

}  // namespace tarnwell::host_qt
