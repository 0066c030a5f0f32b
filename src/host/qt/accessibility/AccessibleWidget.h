#pragma once

#include <QtCore/QList>
#include <QtWidgets/QAccessibleWidget>

namespace tarnwell::host_qt {

/// A widget without the decoration among its children: a screen reader would stop at each of them, and have nothing to
/// tell.
class AccessibleWidget : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

 protected:
  virtual QList<QAccessibleInterface*> children() const;
};

}  // namespace tarnwell::host_qt
