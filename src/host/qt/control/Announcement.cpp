#include "host/qt/control/Announcement.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>
#include <algorithm>

#include "host/qt/control/ControlLink.h"
#include "host/qt/look/Conversions.h"
#include "kit/control/Control.h"

namespace tarnwell::host_qt {
namespace {

void add(Announcements& told, std::unique_ptr<QAccessibleEvent> event) { told.push_back(std::move(event)); }

// Each tab says whether it is the chosen one now.
void addTabs(Announcements& told, QWidget& widget, const std::vector<kit::AccessiblePart>& tabs) {
  const auto addOf = [&](QAccessible::Event type, std::size_t tab) {
    add(told, std::make_unique<QAccessibleEvent>(&widget, type));
    told.back()->setChild(static_cast<int>(tab));
  };
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    addOf(QAccessible::Selection, i);
  }
  const auto chosen = std::ranges::find(tabs, true, &kit::AccessiblePart::selected);
  if (widget.hasFocus() && chosen != tabs.end()) {
    addOf(QAccessible::Focus, static_cast<std::size_t>(chosen - tabs.begin()));
  }
}

void addValue(Announcements& told, QWidget& widget, const kit::Control& control) {
  const kit::Accessible shown = control.accessible();
  if (shown.role == kit::AccessibleRole::tabBar) {
    addTabs(told, widget, control.accessibleParts());
  } else if (std::holds_alternative<bool>(shown.value)) {
    QAccessible::State changed;
    changed.checked = true;
    add(told, std::make_unique<QAccessibleStateChangeEvent>(&widget, changed));
  } else if (const auto* number = std::get_if<double>(&shown.value)) {
    add(told, std::make_unique<QAccessibleValueChangeEvent>(&widget, *number));
  } else if (const auto* text = std::get_if<std::string>(&shown.value);
             text != nullptr && shown.role != kit::AccessibleRole::textField) {
    // What stands in a field the toolkit tells by itself.
    add(told, std::make_unique<QAccessibleValueChangeEvent>(&widget, toQString(*text)));
  }
}

}  // namespace

bool isWorthTelling(const QAccessibleEvent& event) {
  const bool comesOrGoes = event.type() == QAccessible::ObjectShow || event.type() == QAccessible::ObjectHide;
  const ControlLink* link = ControlLink::of(event.object());
  if (!comesOrGoes || link == nullptr) {
    return true;
  }
  // A page comes and goes with all that stands in it, and that has been told.
  return link->control() != nullptr && link->control()->accessible().role == kit::AccessibleRole::group;
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
