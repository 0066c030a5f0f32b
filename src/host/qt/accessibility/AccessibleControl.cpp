#include "host/qt/accessibility/AccessibleControl.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMenu>
#include <algorithm>
#include <optional>

#include "host/qt/control/WidgetPeer.h"
#include "host/qt/look/Conversions.h"
#include "kit/control/Control.h"
#include "kit/control/Window.h"

namespace tarnwell::host_qt {
namespace {

QAccessible::Role roleFor(kit::AccessibleRole role) {
  switch (role) {
    case kit::AccessibleRole::group:
      return QAccessible::Pane;
    case kit::AccessibleRole::text:
      return QAccessible::StaticText;
    case kit::AccessibleRole::document:
      return QAccessible::Document;
    // A symbol without a name is decoration until it gets one.
    case kit::AccessibleRole::decoration:
    case kit::AccessibleRole::image:
      return QAccessible::Graphic;
    case kit::AccessibleRole::button:
      return QAccessible::Button;
    case kit::AccessibleRole::toggle:
      return QAccessible::CheckBox;
    case kit::AccessibleRole::slider:
      return QAccessible::Slider;
    case kit::AccessibleRole::stepper:
      return QAccessible::SpinBox;
    case kit::AccessibleRole::textField:
      return QAccessible::EditableText;
    case kit::AccessibleRole::popUpButton:
      return QAccessible::ComboBox;
    case kit::AccessibleRole::progressBar:
      return QAccessible::ProgressBar;
    case kit::AccessibleRole::tabBar:
      return QAccessible::PageTabList;
  }
  return QAccessible::NoRole;
}

std::optional<QAccessible::Role> roleOfParts(QAccessible::Role role) {
  switch (role) {
    case QAccessible::PageTabList:
      return QAccessible::PageTab;
    case QAccessible::Document:
      return QAccessible::Link;
    default:
      return std::nullopt;
  }
}

// Empty for what other interfaces do.
QString nameOf(kit::AccessibleAction action) {
  switch (action) {
    case kit::AccessibleAction::press:
      return QAccessibleActionInterface::pressAction();
    case kit::AccessibleAction::toggle:
      return QAccessibleActionInterface::toggleAction();
    case kit::AccessibleAction::showMenu:
      return QAccessibleActionInterface::showMenuAction();
    case kit::AccessibleAction::increment:
      return QAccessibleActionInterface::increaseAction();
    case kit::AccessibleAction::decrement:
      return QAccessibleActionInterface::decreaseAction();
    case kit::AccessibleAction::setValue:
    case kit::AccessibleAction::choosePart:
      return {};
  }
  return {};
}

bool opensMenu(const kit::Accessible& told) {
  return std::ranges::count(told.actions, kit::AccessibleAction::showMenu) > 0;
}

QString inWords(const kit::AccessibleValue& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    return QString::number(*number);
  }
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? toQString(*text) : QString();
}

QString sentences(const QString& first, const QString& second) {
  return first + (first.isEmpty() || second.isEmpty() ? "" : ". ") + second;
}

/// One tab of a tab bar, or one link in a text, as a screen reader is told of it.
class AccessiblePartOfControl final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessiblePartOfControl(QWidget* widget, QAccessible::Role role, int index)
      : widget_(widget), role_(role), index_(index) {}

  bool isValid() const override { return part().has_value(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(widget_); }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? toQString(part()->name) : QString();
  }

  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    if (!isValid()) {
      return {};
    }
    const QRect inWidget = ControlLink::of(widget_)->partRect(index_).toAlignedRect();
    return {widget_->mapToGlobal(inWidget.topLeft()), inWidget.size()};
  }

  QAccessible::Role role() const override { return role_; }

  QAccessible::State state() const override {
    QAccessible::State state;
    const auto shown = part();
    state.selectable = role_ == QAccessible::PageTab;
    state.linked = role_ == QAccessible::Link;
    state.invalid = !shown;
    state.selected = shown && shown->selected;
    state.focusable = true;
    state.focused = shown && widget_->hasFocus() && ControlLink::of(widget_)->focusedPart() == index_;
    state.disabled = shown && !control()->isEnabled();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  QStringList actionNames() const override { return {pressAction()}; }

  void doAction(const QString& name) override {
    if (isValid() && name == pressAction()) {
      kit::perform(*control(), {.action = kit::AccessibleAction::choosePart, .part = index_});
    }
  }

  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
  /// Null once it is gone.
  kit::Control* control() const {
    const ControlLink* link = ControlLink::of(widget_);
    return link != nullptr ? link->control() : nullptr;
  }

  /// None once the control, or the part of it, is gone.
  std::optional<kit::AccessiblePart> part() const {
    const auto parts = control() != nullptr ? control()->accessibleParts() : std::vector<kit::AccessiblePart>();
    const auto index = static_cast<std::size_t>(index_);
    return index < parts.size() ? std::optional(parts[index]) : std::nullopt;
  }

  QPointer<QWidget> widget_;
  QAccessible::Role role_;
  int index_;
};

}  // namespace

AccessibleControl::AccessibleControl(QWidget* widget, ControlLink& link)
    : AccessibleWidget(widget, roleFor(link.control()->accessible().role)), link_(link) {}

AccessibleControl::~AccessibleControl() {
  for (const QAccessible::Id part : parts_) {
    QAccessible::deleteAccessibleInterface(part);
  }
}

void* AccessibleControl::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ValueInterface && told().range ? static_cast<QAccessibleValueInterface*>(this)
                                                             : AccessibleWidget::interface_cast(type);
}

QString AccessibleControl::text(QAccessible::Text kind) const {
  const kit::Control* control = link_.control();
  if (control == nullptr) {
    return {};
  }
  const kit::Accessible shown = told();
  QString value = inWords(shown.value);
  switch (kind) {
    case QAccessible::Name:
      return toQString(shown.name);
    case QAccessible::Value:
      return value;
    case QAccessible::Description:
      return sentences(opensMenu(shown) ? value : QString(), toQString(control->accessibleDescription()));
    default:
      return AccessibleWidget::text(kind);
  }
}

void AccessibleControl::setText(QAccessible::Text kind, const QString& text) {
  if (kind == QAccessible::Value) {
    perform({.action = kit::AccessibleAction::setValue, .value = text.toStdString()});
  }
}

QAccessible::State AccessibleControl::state() const {
  QAccessible::State state = AccessibleWidget::state();
  const kit::Accessible shown = told();
  const bool* on = std::get_if<bool>(&shown.value);
  state.checkable = on != nullptr;
  state.checked = on != nullptr && *on;
  state.hasPopup = opensMenu(shown);
  state.defaultButton = shown.isDefault;
  return state;
}

QVector<AccessibleControl::Relation> AccessibleControl::relations(QAccessible::Relation match) const {
  QVector<Relation> found = AccessibleWidget::relations(match);
  const kit::Control* label = link_.control() != nullptr ? link_.control()->label() : nullptr;
  QWidget* widget = label != nullptr ? WidgetPeer::widgetOf(*label) : nullptr;
  if (widget != nullptr && match.testFlag(QAccessible::Label)) {
    found.append({QAccessible::queryAccessibleInterface(widget), QAccessible::Label});
  }
  return found;
}

QAccessibleInterface* AccessibleControl::focusChild() const {
  const auto all = parts();
  const auto chosen = std::ranges::find_if(all, [](auto* tab) { return tab->state().focused; });
  return chosen != all.end() ? *chosen : AccessibleWidget::focusChild();
}

QStringList AccessibleControl::actionNames() const {
  QStringList names;
  for (const kit::AccessibleAction action : told().actions) {
    if (const QString name = nameOf(action); !name.isEmpty()) {
      names += name;
    }
  }
  return names + AccessibleWidget::actionNames();
}

void AccessibleControl::doAction(const QString& name) {
  const auto actions = told().actions;
  const auto own = std::ranges::find(actions, name, &nameOf);
  if (own != actions.end()) {
    perform({.action = *own});
    return;
  }
  // The toolkit's own: taking the keyboard.
  if (link_.control() != nullptr) {
    kit::afterCommit(*link_.control(), [&] { AccessibleWidget::doAction(name); });
  }
}

QVariant AccessibleControl::currentValue() const {
  const kit::Accessible shown = told();
  const auto* number = std::get_if<double>(&shown.value);
  return number != nullptr ? *number : 0.0;
}

void AccessibleControl::setCurrentValue(const QVariant& value) {
  perform({.action = kit::AccessibleAction::setValue, .value = value.toDouble()});
}

QList<QAccessibleInterface*> AccessibleControl::children() const {
  if (!opensMenu(told())) {
    return parts() + AccessibleWidget::children();
  }
  // The toolkit counts no menu among the children of a widget.
  auto* menu = widget()->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
  const bool isOpen = menu != nullptr && menu->isVisible();
  return isOpen ? QList{QAccessible::queryAccessibleInterface(menu)} : QList<QAccessibleInterface*>();
}

kit::Accessible AccessibleControl::told() const {
  return link_.control() != nullptr ? link_.control()->accessible() : kit::Accessible();
}

void AccessibleControl::perform(const kit::AccessibleRequest& request) {
  if (link_.control() != nullptr) {
    kit::perform(*link_.control(), request);
  }
}

QList<QAccessibleInterface*> AccessibleControl::parts() const {
  QList<QAccessibleInterface*> found;
  const auto partRole = roleOfParts(role());
  if (!partRole || link_.control() == nullptr) {
    return found;
  }
  const auto count = link_.control()->accessibleParts().size();
  while (parts_.size() < count) {
    auto* part = new AccessiblePartOfControl(widget(), *partRole, static_cast<int>(parts_.size()));
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): what is registered belongs to the registry.
    parts_.push_back(QAccessible::registerAccessibleInterface(part));
  }
  for (std::size_t i = 0; i < count; ++i) {
    found += QAccessible::accessibleInterface(parts_.at(i));
  }
  return found;
}

}  // namespace tarnwell::host_qt
