#pragma once

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>
#include <optional>

#include "kit/controls/Accessible.h"

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::host_qt {

/// One tab of a tab bar, as a screen reader is told of it.
class AccessibleTab final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleTab(QWidget* bar, int index) : bar_(bar), index_(index) {}

  bool isValid() const override { return part().has_value(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(bar_); }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::PageTab; }
  QAccessible::State state() const override;

  void* interface_cast(QAccessible::InterfaceType type) override;
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
  /// Null once the bar is gone.
  kit::Control* bar() const;
  /// None once the bar, or the tab in it, is gone.
  std::optional<kit::AccessiblePart> part() const;

  QPointer<QWidget> bar_;
  int index_;
};

}  // namespace tarnwell::host_qt
