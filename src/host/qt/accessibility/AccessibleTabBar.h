#pragma once

#include <vector>

#include "host/qt/accessibility/AccessibleControl.h"

namespace tarnwell::host_qt {

/// A tab bar with its tabs as children. The tabs are no widgets, so their interfaces belong to the bar's.
class AccessibleTabBar final : public AccessibleControl {
 public:
  AccessibleTabBar(QWidget* widget, ControlLink& link) : AccessibleControl(widget, link, QAccessible::PageTabList) {}
  ~AccessibleTabBar() override;

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* focusChild() const override;

  /// The user's choice of a tab.
  void choose(int index);

 private:
  mutable std::vector<QAccessible::Id> tabs_;  // Made when they are first asked for.
};

}  // namespace tarnwell::host_qt
