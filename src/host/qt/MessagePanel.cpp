#include "host/qt/MessagePanel.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <utility>

#include "host/qt/Conversions.h"
#include "kit/ControlMetrics.h"

namespace tarnwell::host_qt {
namespace {

constexpr Qt::WindowFlags panelFlags =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
constexpr int margin = 20;
constexpr int messageWidth = 340;
constexpr double buttonRadius = 6;
constexpr int pressedShade = 112;

/// The one button that there is, in the colours of a default button.
class CloseButton final : public QAbstractButton {
 public:
  explicit CloseButton(QWidget* parent) : QAbstractButton(parent) {
    setText(QStringLiteral("OK"));
    setFocusPolicy(Qt::NoFocus);
  }

  QSize sizeHint() const override {
    const double wanted = fontMetrics().horizontalAdvance(text()) + 2 * kit::metrics::buttonInset;
    return QSizeF(std::max(wanted, kit::metrics::buttonLeastWidth), kit::metrics::buttonHeight).toSize();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor face = palette().color(QPalette::Highlight);
    painter.setBrush(isDown() ? face.darker(pressedShade) : face);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(rect(), buttonRadius, buttonRadius);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(rect(), Qt::AlignCenter, text());
  }
};

}  // namespace

MessagePanel::MessagePanel(const std::string& title, const std::string& message, kit::Action closed)
    : QWidget(nullptr, panelFlags), closed_(std::move(closed)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(toQString(title));
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(margin, margin, margin, margin);
  lines->setSpacing(margin);
  lines->setSizeConstraint(QLayout::SetFixedSize);
  auto* text = new QLabel(toQString(message), this);
  text->setWordWrap(true);
  text->setFixedWidth(messageWidth);
  lines->addWidget(text);
  auto* button = new CloseButton(this);
  connect(button, &QAbstractButton::clicked, this, &QWidget::close);
  lines->addWidget(button, 0, Qt::AlignRight);
}

void MessagePanel::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn || event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close)) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void MessagePanel::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (const kit::Action closed = std::exchange(closed_, nullptr)) {
    closed();
  }
}

void showMessage(const std::string& title, const std::string& message, kit::Action closed) {
  auto* panel = new MessagePanel(title, message, std::move(closed));
  panel->show();
  panel->raise();
  panel->activateWindow();
}

}  // namespace tarnwell::host_qt
