#include "host/qt/accessibility/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QLineEdit>

#include "host/qt/accessibility/AccessibleControl.h"
#include "host/qt/control/Announcement.h"
#include "host/qt/control/ControlLink.h"
#include "host/qt/controls/containers/ScrollBarOverlay.h"
#include "host/qt/window/WindowWidget.h"
#include "kit/control/Control.h"

namespace tarnwell::host_qt {
namespace {

/// A text field: what is shown in it, the caret and the selection. A text that is set counts as typed.
class AccessibleTextField final : public AccessibleControl,
                                  public QAccessibleTextInterface,
                                  public QAccessibleEditableTextInterface {
 public:
  AccessibleTextField(QLineEdit* edit, ControlLink& link) : AccessibleControl(edit, link) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    switch (type) {
      case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface*>(this);
      case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface*>(this);
      default:
        return AccessibleControl::interface_cast(type);
    }
  }

  QAccessible::State state() const override {
    QAccessible::State state = AccessibleControl::state();
    state.editable = true;
    state.selectableText = true;
    return state;
  }

  using AccessibleControl::text;

  void selection(int index, int* start, int* end) const override {
    const bool isSelected = index == 0 && edit()->hasSelectedText();
    *start = isSelected ? edit()->selectionStart() : 0;
    *end = isSelected ? edit()->selectionEnd() : 0;
  }

  int selectionCount() const override { return edit()->hasSelectedText() ? 1 : 0; }
  void addSelection(int start, int end) override { setSelection(0, start, end); }

  void removeSelection(int index) override {
    if (index == 0) {
      edit()->deselect();
    }
  }

  void setSelection(int index, int start, int end) override {
    if (index == 0) {
      edit()->setSelection(start, end - start);
    }
  }

  int cursorPosition() const override { return edit()->cursorPosition(); }
  void setCursorPosition(int position) override { edit()->setCursorPosition(position); }
  QString text(int start, int end) const override { return edit()->text().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(edit()->text().size()); }

  // The toolkit tells where the caret is; every character is as far from there as the text between is wide.
  QRect characterRect(int offset) const override {
    const QString shown = edit()->text();
    const QFontMetrics metrics(edit()->font());
    const QRectF caret = edit()->inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    const auto distance = [&](int count) { return metrics.horizontalAdvance(shown.left(count)); };
    const double left = caret.center().x() + distance(offset) - distance(edit()->cursorPosition());
    const QPoint corner(static_cast<int>(left), static_cast<int>(caret.top()));
    return {edit()->mapToGlobal(corner), QSize(metrics.horizontalAdvance(shown.mid(offset, 1)), metrics.height())};
  }

  int offsetAtPoint(const QPoint& point) const override {
    return edit()->cursorPositionAt(edit()->mapFromGlobal(point));
  }

  void scrollToSubstring(int start, int end) override {
    setCursorPosition(end);
    setCursorPosition(start);
  }

  // The same over the whole text.
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

  void deleteText(int start, int end) override { replaceText(start, end, {}); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }

  void replaceText(int start, int end, const QString& text) override {
    setText(QAccessible::Value, edit()->text().replace(start, end - start, text));
  }

 private:
  QLineEdit* edit() const { return static_cast<QLineEdit*>(widget()); }
};

/// A text to read in. Where its letters stand is not told; its links say where they are.
class AccessibleDocument final : public AccessibleControl, public QAccessibleTextInterface {
 public:
  using AccessibleControl::AccessibleControl;
  using AccessibleControl::text;

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : AccessibleControl::interface_cast(type);
  }

  QAccessible::State state() const override {
    QAccessible::State state = AccessibleControl::state();
    state.readOnly = true;
    state.multiLine = true;
    return state;
  }

  QString text(int start, int end) const override { return content().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(content().size()); }
  int cursorPosition() const override { return cursor_; }
  void setCursorPosition(int position) override { cursor_ = position; }
  QRect characterRect(int /*offset*/) const override { return rect(); }
  int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

  // What is selected in it is the mouse's.
  void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}

 private:
  QString content() const { return AccessibleControl::text(QAccessible::Value); }

  int cursor_ = 0;  // A screen reader's own.
};

QAccessibleInterface* accessibleFor(QWidget* widget, ControlLink& link) {
  auto* edit = qobject_cast<QLineEdit*>(widget);
  if (edit != nullptr) {
    return new AccessibleTextField(edit, link);
  }
  const bool isDocument = link.control()->accessible().role == kit::AccessibleRole::document;
  return isDocument ? new AccessibleDocument(widget, link) : new AccessibleControl(widget, link);
}

QAccessibleInterface* accessible(const QString& className, QObject* object) {
  ControlLink* link = ControlLink::of(object);
  // Asked for each class of an object, from its own up; the toolkit has an answer of its own for line edits.
  const bool isField = link != nullptr && className == QLatin1String("QLineEdit");
  if (!isField && className != QLatin1String("QWidget")) {
    return nullptr;
  }
  if (const auto* window = dynamic_cast<WindowWidget*>(object)) {
    const bool isDialog = window->windowType() == Qt::Dialog;
    return new AccessibleWidget(static_cast<QWidget*>(object), isDialog ? QAccessible::Dialog : QAccessible::Window);
  }
  if (dynamic_cast<ScrollBarOverlay*>(object) != nullptr) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::ScrollBar);
  }
  auto* widget = static_cast<QWidget*>(object);
  const bool shows = link != nullptr && link->control() != nullptr;
  return shows ? accessibleFor(widget, *link) : new AccessibleWidget(widget);
}

// Where a screen reader is active, every event goes through here.
void deliver(QAccessibleEvent* event) {
  if (isWorthTelling(*event)) {
    const auto again = QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(again);
  }
}

}  // namespace

void installAccessibility() {
  QAccessible::installFactory(&accessible);
  QAccessible::installUpdateHandler(&deliver);
}

}  // namespace tarnwell::host_qt
