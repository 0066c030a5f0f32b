#pragma once

#include "host/qt/accessibility/AccessibleControl.h"

class QLineEdit;

namespace tarnwell::host_qt {

/// A text field: what is shown in it, the caret and the selection. A text that is set counts as typed.
class AccessibleTextField final : public AccessibleControl,
                                  public QAccessibleTextInterface,
                                  public QAccessibleEditableTextInterface {
 public:
  AccessibleTextField(QLineEdit* edit, ControlLink& link);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::State state() const override;
  using AccessibleControl::text;

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override;
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  QString text(int start, int end) const override;
  int characterCount() const override;
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int start, int end) override;
  QString attributes(int offset, int* start, int* end) const override;

  void deleteText(int start, int end) override { replaceText(start, end, {}); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
  void replaceText(int start, int end, const QString& text) override;

 private:
  QLineEdit* edit() const;
};

}  // namespace tarnwell::host_qt
