#include "host/qt/accessibility/AccessibleTextField.h"

#include <QtGui/QFontMetrics>
#include <QtWidgets/QLineEdit>

namespace tarnwell::host_qt {

AccessibleTextField::AccessibleTextField(QLineEdit* edit, ControlLink& link) : AccessibleControl(edit, link) {}

QLineEdit* AccessibleTextField::edit() const { return static_cast<QLineEdit*>(widget()); }

void* AccessibleTextField::interface_cast(QAccessible::InterfaceType type) {
  switch (type) {
    case QAccessible::TextInterface:
      return static_cast<QAccessibleTextInterface*>(this);
    case QAccessible::EditableTextInterface:
      return static_cast<QAccessibleEditableTextInterface*>(this);
    default:
      return AccessibleControl::interface_cast(type);
  }
}

QAccessible::State AccessibleTextField::state() const {
  QAccessible::State state = AccessibleControl::state();
  state.editable = true;
  state.selectableText = true;
  return state;
}

void AccessibleTextField::selection(int index, int* start, int* end) const {
  const bool isSelected = index == 0 && edit()->hasSelectedText();
  *start = isSelected ? edit()->selectionStart() : 0;
  *end = isSelected ? edit()->selectionEnd() : 0;
}

int AccessibleTextField::selectionCount() const { return edit()->hasSelectedText() ? 1 : 0; }

void AccessibleTextField::removeSelection(int index) {
  if (index == 0) {
    edit()->deselect();
  }
}

void AccessibleTextField::setSelection(int index, int start, int end) {
  if (index == 0) {
    edit()->setSelection(start, end - start);
  }
}

int AccessibleTextField::cursorPosition() const { return edit()->cursorPosition(); }

void AccessibleTextField::setCursorPosition(int position) { edit()->setCursorPosition(position); }

QString AccessibleTextField::text(int start, int end) const { return edit()->text().mid(start, end - start); }

int AccessibleTextField::characterCount() const { return static_cast<int>(edit()->text().size()); }

// The toolkit tells where the caret is; every character is as far from there as the text between is wide.
QRect AccessibleTextField::characterRect(int offset) const {
  const QString shown = edit()->text();
  const QFontMetrics metrics(edit()->font());
  const QRectF caret = edit()->inputMethodQuery(Qt::ImCursorRectangle).toRectF();
  const auto distance = [&](int count) { return metrics.horizontalAdvance(shown.left(count)); };
  const double left = caret.center().x() + distance(offset) - distance(edit()->cursorPosition());
  const QPoint corner(static_cast<int>(left), static_cast<int>(caret.top()));
  return {edit()->mapToGlobal(corner), QSize(metrics.horizontalAdvance(shown.mid(offset, 1)), metrics.height())};
}

int AccessibleTextField::offsetAtPoint(const QPoint& point) const {
  return edit()->cursorPositionAt(edit()->mapFromGlobal(point));
}

void AccessibleTextField::scrollToSubstring(int start, int end) {
  setCursorPosition(end);
  setCursorPosition(start);
}

// The same over the whole text.
QString AccessibleTextField::attributes(int /*offset*/, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

void AccessibleTextField::replaceText(int start, int end, const QString& text) {
  setText(QAccessible::Value, edit()->text().replace(start, end - start, text));
}

}  // namespace tarnwell::host_qt
