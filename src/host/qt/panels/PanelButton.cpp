#include "host/qt/panels/PanelButton.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

#include "host/painted/ControlMetrics.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/panels/PanelFocus.h"

namespace tarnwell::host_qt {
namespace {

constexpr double cornerRadius = 6;

}  // namespace

PanelButton::PanelButton(const QString& title, Kind kind, const Theme& theme, QWidget* parent)
    : QAbstractButton(parent), kind_(kind), theme_(theme) {
  setText(title);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PanelButton::sizeHint() const {
  const WrappedText title(text().toStdString(), theme_.font(kit::FontRole::body), std::nullopt);
  const double width =
      std::max(title.size().width() + 2 * host_painted::metrics::buttonInset, host_painted::metrics::buttonLeastWidth);
  const double height =
      std::max(host_painted::metrics::buttonHeight, title.size().height() + 2 * host_painted::metrics::buttonPadding);
  return QSizeF(width + 2 * panelRing, height + 2 * panelRing).toSize();
}

void PanelButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Palette& colors = theme_.palette();
  const bool isDefault = kind_ == Kind::defaultButton;
  const QColor plain = isDown() ? colors.controlFacePressed : colors.controlFace;
  const QColor accent = isDown() ? pressedShade(colors.accent, colors.accentText) : colors.accent;
  drawFace(painter, face(), cornerRadius, isDefault ? accent : plain, colors);
  painter.setPen(isDefault ? colors.accentText : colors.primaryText);
  const WrappedText title(text().toStdString(), theme_.font(kit::FontRole::body), std::nullopt);
  const double left = std::round((width() - title.size().width()) / 2);
  title.draw(painter, {left, title.topAround(face().center().y())});
  if (hasFocus() && showsFocus_) {
    drawPanelRing(painter, face(), cornerRadius, theme_);
  }
}

void PanelButton::focusInEvent(QFocusEvent* event) {
  showsFocus_ = isFromKeyboard(event->reason());
  QAbstractButton::focusInEvent(event);
}

void PanelButton::focusOutEvent(QFocusEvent* event) {
  showsFocus_ = false;
  QAbstractButton::focusOutEvent(event);
}

// The shadow below it is part of the button.
QRectF PanelButton::face() const { return QRectF(rect()).adjusted(panelRing, panelRing, -panelRing, -panelRing - 1); }

}  // namespace tarnwell::host_qt
