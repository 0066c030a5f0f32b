#include <QtGui/QContextMenuEvent>
#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLineEdit>
#include <algorithm>
#include <array>
#include <string_view>

#include "host/painted/ControlMetrics.h"
#include "host/qt/control/ControlLink.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/menus/ThemedMenu.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_qt {
namespace {

constexpr double fieldRadius = 5;
constexpr double fieldDimmed = 0.5;
// The line edit keeps this much to each side of its text by itself.
constexpr int ownMargin = 2;

// The context menu, the main menu and another application's window give the focus back.
bool onlyBorrows(Qt::FocusReason reason) {
  return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
}

bool hasSelection(const QLineEdit& edit) { return edit.hasSelectedText(); }

/// An editing command: when it can do something, and what.
struct EditingCommand {
  std::string_view selector = {};
  const char* title = "";
  bool (*isPossible)(const QLineEdit&) = nullptr;
  void (*perform)(QLineEdit&) = nullptr;
};

constexpr std::array<EditingCommand, 7> editingCommands = {
    EditingCommand{kit::selectors::undo, "Undo", [](const QLineEdit& edit) { return edit.isUndoAvailable(); },
                   [](QLineEdit& edit) { edit.undo(); }},
    EditingCommand{kit::selectors::redo, "Redo", [](const QLineEdit& edit) { return edit.isRedoAvailable(); },
                   [](QLineEdit& edit) { edit.redo(); }},
    EditingCommand{kit::selectors::cut, "Cut", &hasSelection, [](QLineEdit& edit) { edit.cut(); }},
    EditingCommand{kit::selectors::copy, "Copy", &hasSelection, [](QLineEdit& edit) { edit.copy(); }},
    // What the clipboard holds is its owner's to say, which may take its time.
    EditingCommand{kit::selectors::paste, "Paste", [](const QLineEdit& /*edit*/) { return true; },
                   [](QLineEdit& edit) { edit.paste(); }},
    EditingCommand{kit::selectors::deleteSelection, "Delete", &hasSelection, [](QLineEdit& edit) { edit.del(); }},
    EditingCommand{kit::selectors::selectAll, "Select All",
                   [](const QLineEdit& edit) { return !edit.text().isEmpty(); },
                   [](QLineEdit& edit) { edit.selectAll(); }}};

// Where the context menu has a line.
bool beginsGroup(const EditingCommand& command) {
  return command.selector == kit::selectors::cut || command.selector == kit::selectors::selectAll;
}

const EditingCommand* editingCommand(const kit::Selector& selector) {
  const auto* found = std::ranges::find(editingCommands, selector, &EditingCommand::selector);
  return found != editingCommands.end() ? found : nullptr;
}

class LineEdit final : public QLineEdit, public ControlLink {
 public:
  LineEdit(kit::TextField& field, const Theme& theme, QWidget* parent)
      : QLineEdit(parent), ControlLink(field), field_(field), theme_(theme) {
    setFrame(false);
    // The ground is painted here, with its round corners.
    QPalette seeThrough;
    seeThrough.setColor(QPalette::Base, Qt::transparent);
    setPalette(seeThrough);
    LineEdit::fontsChanged();
    const int inset = static_cast<int>(host_painted::metrics::fieldInset) - ownMargin;
    setTextMargins(inset, 0, inset, 0);
    // Edited or set: assistive technologies do the latter.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { typed(text); });
  }

  QRectF focusShape() const override { return rect(); }
  double cornerRadius() const override { return fieldRadius; }
  bool showsFocus() const override { return true; }

  void fontsChanged() override { setFont(theme_.font(kit::FontRole::body)); }

  bool event(QEvent* event) noexcept override {
    const bool heard = control() != nullptr || event->type() == QEvent::DeferredDelete;
    return heard && QLineEdit::event(event);
  }

  void showState() override {
    const QString shown = toQString(field_.shownText());
    // Setting a text moves the caret, even the text that is there.
    if (shown != text()) {
      setText(shown);
    }
  }

  bool canEdit(const kit::Selector& command) const override {
    const EditingCommand* known = editingCommand(command);
    return known != nullptr && known->isPossible(*this);
  }

  void edit(const kit::Selector& command) override { editingCommand(command)->perform(*this); }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override {
    auto* menu = new ThemedMenu(theme_, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const EditingCommand& command : editingCommands) {
      if (beginsGroup(command)) {
        menu->addSeparator();
      }
      QAction* entry = menu->addAction(QString::fromLatin1(command.title));
      entry->setEnabled(command.isPossible(*this));
      connect(entry, &QAction::triggered, this, [this, &command]() noexcept { command.perform(*this); });
    }
    menu->popup(event->globalPos());
  }

  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setOpacity(isEnabled() ? 1 : fieldDimmed);
      drawRounded(painter, rect(), fieldRadius, theme_.palette().fieldFace, theme_.palette().controlBorder);
    }
    QLineEdit::paintEvent(event);
  }

  // Tab commits before it leaves: what the commit enables may be where it goes.
  bool focusNextPrevChild(bool next) override {
    field_.commit();
    return control() != nullptr && QLineEdit::focusNextPrevChild(next);
  }

  void focusOutEvent(QFocusEvent* event) override {
    const bool comesBack = onlyBorrows(event->reason());
    // The toolkit keeps the selection for a pop-up alone.
    QFocusEvent told(QEvent::FocusOut, comesBack ? Qt::PopupFocusReason : event->reason());
    QLineEdit::focusOutEvent(&told);
    if (!comesBack) {
      field_.commit();
    }
  }

 private:
  void typed(const QString& text) {
    if (control() != nullptr && text != toQString(field_.shownText())) {
      field_.type(text.toStdString());
      // Another field's commit may have ended this one.
      if (control() != nullptr) {
        showState();
      }
    }
  }

  kit::TextField& field_;
  const Theme& theme_;
};

}  // namespace

QWidget* makeWidget(kit::TextField& field, const Theme& theme, QWidget* parent) {
  return new LineEdit(field, theme, parent);
}

}  // namespace tarnwell::host_qt
