#include "host/qt/TextFieldPeer.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLineEdit>

#include "host/qt/ControlLink.h"
#include "host/qt/Conversions.h"
#include "host/qt/Drawing.h"
#include "host/qt/Theme.h"
#include "kit/ControlMetrics.h"
#include "kit/TextField.h"

namespace tarnwell::host::qt {
namespace {

constexpr double radius = 5;
constexpr double dimmed = 0.5;
// The line edit keeps this much to each side of its text by itself.
constexpr int ownMargin = 2;

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
    const int inset = static_cast<int>(kit::metrics::fieldInset) - ownMargin;
    setTextMargins(inset, 0, inset, 0);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { typed(text); });
  }

  QRectF focusShape() const override { return rect(); }
  double cornerRadius() const override { return radius; }
  bool showsFocus() const override { return true; }

  void fontsChanged() override { setFont(theme_.font(kit::FontRole::body)); }

  bool event(QEvent* event) noexcept override {
    return control() != nullptr ? QLineEdit::event(event) : QObject::event(event);
  }

  void showText() {
    const QString shown = toQString(field_.shownText());
    // Setting a text moves the caret, even the text that is there.
    if (shown != text()) {
      setText(shown);
    }
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setOpacity(isEnabled() ? 1 : dimmed);
      drawRounded(painter, rect(), radius, theme_.palette().fieldFace, theme_.palette().controlBorder);
    }
    QLineEdit::paintEvent(event);
  }

  // Tab commits before it leaves: what the commit enables may be where it goes.
  bool focusNextPrevChild(bool next) override {
    field_.commit();
    return control() != nullptr && QLineEdit::focusNextPrevChild(next);
  }

  void focusOutEvent(QFocusEvent* event) override {
    QLineEdit::focusOutEvent(event);
    // The context menu and another application's window only borrow the focus.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
      field_.commit();
    }
  }

 private:
  void typed(const QString& text) {
    if (control() != nullptr) {
      field_.type(text.toStdString());
    }
  }

  kit::TextField& field_;
  const Theme& theme_;
};

}  // namespace

TextFieldPeer::TextFieldPeer(kit::TextField& field, const Theme& theme, QWidget* parent)
    : WidgetPeer(field, new LineEdit(field, theme, parent)) {}

void TextFieldPeer::showState(kit::Aspect /*aspect*/) { static_cast<LineEdit*>(widget())->showText(); }

}  // namespace tarnwell::host::qt
