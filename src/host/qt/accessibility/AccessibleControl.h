#pragma once

#include <vector>

#include "host/qt/accessibility/AccessibleWidget.h"
#include "host/qt/control/ControlLink.h"
#include "kit/control/Accessible.h"

namespace tarnwell::host_qt {

/// What a control is and what can be done to it, in the toolkit's words. Qt keeps it as long as the widget, which is a
/// moment longer than the control.
class AccessibleControl : public AccessibleWidget, public QAccessibleValueInterface {
 public:
  using Relation = QPair<QAccessibleInterface*, QAccessible::Relation>;

  /// There is a control.
  AccessibleControl(QWidget* widget, ControlLink& link);
  ~AccessibleControl() override;

  void* interface_cast(QAccessible::InterfaceType type) override;
  /// What is chosen in a pop-up button begins its description as well: not every screen reader asks for values in
  /// words.
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text kind, const QString& text) override;
  QAccessible::State state() const override;
  /// With the text that names it.
  QVector<Relation> relations(QAccessible::Relation match) const override;
  QAccessibleInterface* focusChild() const override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;

  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override { return range().most; }
  QVariant minimumValue() const override { return range().least; }
  QVariant minimumStepSize() const override { return range().step; }

 protected:
  /// Tabs and links; the menu of a pop-up button while it is open.
  QList<QAccessibleInterface*> children() const override;

 private:
  /// Of nothing, once the control is gone.
  kit::Accessible told() const;
  kit::AccessibleRange range() const { return told().range.value_or(kit::AccessibleRange()); }
  void perform(const kit::AccessibleRequest& request);
  QList<QAccessibleInterface*> parts() const;

  ControlLink& link_;
  // They are no widgets, so their interfaces belong to the control's. Made when they are first asked for.
  mutable std::vector<QAccessible::Id> parts_;
};

}  // namespace tarnwell::host_qt
