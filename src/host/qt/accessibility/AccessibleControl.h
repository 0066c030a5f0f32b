#pragma once

#include "host/qt/accessibility/AccessibleWidget.h"
#include "host/qt/controls/ControlLink.h"

namespace tarnwell::host_qt {

/// What a screen reader is told of a control: role, name and state. Qt keeps it as long as the widget, which is a
/// moment longer than the control.
class AccessibleControl : public AccessibleWidget {
 public:
  using Relation = QPair<QAccessibleInterface*, QAccessible::Relation>;

  AccessibleControl(QWidget* widget, ControlLink& link, QAccessible::Role role)
      : AccessibleWidget(widget, role), link_(link) {}

  QString text(QAccessible::Text kind) const override;
  void doAction(const QString& name) override;
  /// With the text that names it.
  QVector<Relation> relations(QAccessible::Relation match) const override;

 protected:
  /// One of the actions, as the user's doing.
  virtual void perform(const QString& name) { QAccessibleWidget::doAction(name); }

  /// Everything that the user does by way of a screen reader goes through here: what is being typed is committed first,
  /// as it is before a press with the mouse. Nothing is done to a control that is gone by then.
  void act(const kit::Action& action) const;

  /// Null once the control is gone.
  template <class Kind>
  Kind* control() const {
    return static_cast<Kind*>(link_.control());
  }

  /// The name of a control that was given none.
  virtual QString ownName() const { return {}; }

 private:
  ControlLink& link_;
};

}  // namespace tarnwell::host_qt
