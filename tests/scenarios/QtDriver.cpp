#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>
#include <cstdlib>
#include <map>
#include <stdexcept>

#include "host/painted/SliderGeometry.h"
#include "host/painted/TabGeometry.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_qt::driver;

Qt::Key keyCode(Key key) {
  switch (key) {
    case Key::enter:
      return Qt::Key_Return;
    case Key::escape:
      return Qt::Key_Escape;
    case Key::tab:
      return Qt::Key_Tab;
    case Key::space:
      return Qt::Key_Space;
  }
  throw std::logic_error("no such key");
}

// What the toolkit's words mean.

kit::AccessibleRole roleOf(QAccessibleInterface& seen) {
  static const std::map<QAccessible::Role, kit::AccessibleRole> roles = {
      {QAccessible::Pane, kit::AccessibleRole::group},
      {QAccessible::StaticText, kit::AccessibleRole::text},
      {QAccessible::Document, kit::AccessibleRole::document},
      {QAccessible::Graphic, kit::AccessibleRole::image},
      {QAccessible::Button, kit::AccessibleRole::button},
      {QAccessible::CheckBox, kit::AccessibleRole::toggle},
      {QAccessible::Slider, kit::AccessibleRole::slider},
      {QAccessible::SpinBox, kit::AccessibleRole::stepper},
      {QAccessible::EditableText, kit::AccessibleRole::textField},
      {QAccessible::ComboBox, kit::AccessibleRole::popUpButton},
      {QAccessible::ProgressBar, kit::AccessibleRole::progressBar},
      {QAccessible::PageTabList, kit::AccessibleRole::tabBar}};
  const bool isLeftOut = seen.parent()->indexOfChild(&seen) < 0;
  return isLeftOut ? kit::AccessibleRole::decoration : roles.at(seen.role());
}

kit::AccessibleValue valueOf(QAccessibleInterface& seen) {
  if (seen.state().checkable) {
    return static_cast<bool>(seen.state().checked);
  }
  if (QAccessibleValueInterface* value = seen.valueInterface()) {
    return value->currentValue().toDouble();
  }
  const bool hasText = seen.state().editable || seen.state().hasPopup || seen.role() == QAccessible::Document;
  return hasText ? kit::AccessibleValue(seen.text(QAccessible::Value).toStdString()) : kit::AccessibleValue();
}

std::optional<kit::AccessibleRange> rangeOf(QAccessibleInterface& seen) {
  QAccessibleValueInterface* value = seen.valueInterface();
  return value == nullptr ? std::nullopt
                          : std::optional(kit::AccessibleRange{.least = value->minimumValue().toDouble(),
                                                               .most = value->maximumValue().toDouble(),
                                                               .step = value->minimumStepSize().toDouble()});
}

const std::map<kit::AccessibleAction, QString>& namedActions() {
  using Names = QAccessibleActionInterface;
  static const std::map<kit::AccessibleAction, QString> names = {
      {kit::AccessibleAction::press, Names::pressAction()},
      {kit::AccessibleAction::toggle, Names::toggleAction()},
      {kit::AccessibleAction::showMenu, Names::showMenuAction()},
      {kit::AccessibleAction::increment, Names::increaseAction()},
      {kit::AccessibleAction::decrement, Names::decreaseAction()}};
  return names;
}

std::vector<kit::AccessibleAction> actionsOf(QAccessibleInterface& seen) {
  std::vector<kit::AccessibleAction> actions;
  for (const auto& [action, name] : namedActions()) {
    if (seen.actionInterface()->actionNames().contains(name)) {
      actions.push_back(action);
    }
  }
  // What goes in no steps is only told.
  const auto range = rangeOf(seen);
  if ((range && range->step > 0) || seen.editableTextInterface() != nullptr) {
    actions.push_back(kit::AccessibleAction::setValue);
  }
  const bool hasLinks = seen.role() == QAccessible::Document && seen.childCount() > 0;
  if (seen.state().hasPopup || seen.role() == QAccessible::PageTabList || hasLinks) {
    actions.push_back(kit::AccessibleAction::choosePart);
  }
  return actions;
}

void doAction(QAccessibleInterface& seen, kit::AccessibleAction action) {
  seen.actionInterface()->doAction(namedActions().at(action));
}

/// The rows of a pop-up button's menu can be looked at while it is open.
class Parts {
 public:
  explicit Parts(QAccessibleInterface& seen) {
    if (seen.state().hasPopup) {
      doAction(seen, kit::AccessibleAction::showMenu);
      list_ = seen.child(0);
      menu_ = list_ != nullptr ? qobject_cast<QWidget*>(list_->object()) : nullptr;
    } else if (seen.role() == QAccessible::PageTabList || seen.role() == QAccessible::Document) {
      list_ = &seen;
    }
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;
  ~Parts() {
    if (menu_) {
      menu_->close();
    }
    driver::settle();
  }

  int count() const { return list_ != nullptr ? list_->childCount() : 0; }
  /// Null where there is none.
  QAccessibleInterface* at(int index) const { return list_ != nullptr ? list_->child(index) : nullptr; }

 private:
  QAccessibleInterface* list_ = nullptr;  // None for a menu that does not open.
  QPointer<QWidget> menu_;
};

class QtDriver final : public Driver {
 public:
  kit::Host& host() override { return host_qt::testApplication().host(); }

  void click(kit::Control& control) override { driver::click(control); }

  void drag(kit::Slider& slider, double place) override {
    const host_painted::SliderGeometry geometry(slider);
    const double middle = slider.bounds().height / 2;
    const kit::Point knob = geometry.turned({.x = geometry.knobCentre(), .y = middle});
    const kit::Point to = {.x = geometry.centreAt(place), .y = middle};
    driver::press(slider, knob);
    driver::moveTo(slider, {.x = (knob.x + to.x) / 2, .y = (knob.y + to.y) / 2});
    driver::moveTo(slider, to);
    driver::release(slider, to);
  }

  void nudge(kit::Slider& slider, int steps) override {
    for (int i = 0; i < std::abs(steps); ++i) {
      driver::keyAt(slider, steps < 0 ? Qt::Key_Left : Qt::Key_Right);
    }
  }

  void type(kit::TextField& field, const std::string& text) override { driver::type(field, text); }
  void stepUp(kit::Stepper& stepper) override { driver::clickAt(stepper, {.x = 8, .y = 5}); }
  void stepDown(kit::Stepper& stepper) override { driver::clickAt(stepper, {.x = 8, .y = 16}); }
  void choose(kit::PopUpButton& button, int index) override { driver::choose(button, index); }

  void chooseTab(kit::TabBar& bar, int index) override {
    const kit::Rect tab = host_painted::rectOfTab(bar, index);
    driver::clickAt(bar, {.x = tab.x + tab.width / 2, .y = tab.y + tab.height / 2});
  }

  void pressKey(kit::Window& /*window*/, kit::Control& control, Key key) override {
    driver::keyAt(control, keyCode(key));
  }

  void pressKey(kit::Window& window, Key key) override { driver::key(window, keyCode(key)); }

  kit::Accessible look(kit::Control& control) override {
    QAccessibleInterface& seen = driver::seen(control);
    return {.role = roleOf(seen),
            .name = seen.text(QAccessible::Name).toStdString(),
            .value = valueOf(seen),
            .range = rangeOf(seen),
            .actions = actionsOf(seen),
            .isDefault = static_cast<bool>(seen.state().defaultButton),
            .isEnabled = !seen.state().disabled};
  }

  std::vector<kit::AccessiblePart> parts(kit::Control& control) override {
    std::vector<kit::AccessiblePart> found;
    const Parts shown(driver::seen(control));
    for (int i = 0; i < shown.count(); ++i) {
      QAccessibleInterface& part = *shown.at(i);
      const bool isTab = part.role() == QAccessible::PageTab;
      found.push_back({.name = part.text(QAccessible::Name).toStdString(),
                       .selected = static_cast<bool>(isTab ? part.state().selected : part.state().checked)});
    }
    return found;
  }

  void perform(kit::Control& control, const kit::AccessibleRequest& request) override {
    QAccessibleInterface& seen = driver::seen(control);
    if (request.action == kit::AccessibleAction::choosePart) {
      const Parts parts(seen);
      if (QAccessibleInterface* part = parts.at(request.part)) {
        doAction(*part, kit::AccessibleAction::press);
      }
    } else if (request.action != kit::AccessibleAction::setValue) {
      doAction(seen, request.action);
    } else if (const auto* number = std::get_if<double>(&request.value)) {
      seen.valueInterface()->setCurrentValue(*number);
    } else {
      seen.setText(QAccessible::Value, QString::fromStdString(std::get<std::string>(request.value)));
    }
  }
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<QtDriver>(); }

}  // namespace tarnwell::scenarios
