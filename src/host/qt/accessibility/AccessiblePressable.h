#pragma once

#include "host/qt/accessibility/AccessibleControl.h"

class QMenu;

namespace tarnwell::host_qt {

/// A control with one action, which does what a click does.
class AccessiblePressable : public AccessibleControl {
 public:
  using AccessibleControl::AccessibleControl;

  QStringList actionNames() const override { return QStringList{actionName()} + AccessibleControl::actionNames(); }

 protected:
  void perform(const QString& name) override;
  virtual const QString& actionName() const { return pressAction(); }
  virtual void press() = 0;
};

class AccessibleButton final : public AccessiblePressable {
 public:
  AccessibleButton(QWidget* widget, ControlLink& link) : AccessiblePressable(widget, link, QAccessible::Button) {}

  QAccessible::State state() const override;

 protected:
  QString ownName() const override;
  void press() override;
};

class AccessibleToggle final : public AccessiblePressable {
 public:
  AccessibleToggle(QWidget* widget, ControlLink& link) : AccessiblePressable(widget, link, QAccessible::CheckBox) {}

  QAccessible::State state() const override;

 protected:
  const QString& actionName() const override { return toggleAction(); }
  void press() override;
};

class AccessiblePopUpButton final : public AccessiblePressable {
 public:
  AccessiblePopUpButton(QWidget* widget, ControlLink& link)
      : AccessiblePressable(widget, link, QAccessible::ComboBox) {}

  /// The value is the chosen title, and the description begins with it: not every screen reader asks for values in
  /// words.
  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  /// The menu, while it is open. The toolkit counts no menu among the children of a widget.
  int childCount() const override { return openMenu() != nullptr ? 1 : 0; }
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

 protected:
  const QString& actionName() const override { return showMenuAction(); }
  void press() override;

 private:
  QMenu* openMenu() const;
};

}  // namespace tarnwell::host_qt
