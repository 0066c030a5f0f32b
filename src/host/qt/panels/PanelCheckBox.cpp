#include "host/qt/panels/PanelCheckBox.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <cmath>

#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/panels/PanelFocus.h"

namespace tarnwell::host_qt {
namespace {

constexpr double boxSide = 15;
constexpr double boxRadius = 4;
constexpr double beforeTitle = 7;
constexpr double markStroke = 1.8;

}  // namespace

PanelCheckBox::PanelCheckBox(const QString& title, const Theme& theme, QWidget* parent)
    : QAbstractButton(parent), theme_(theme) {
  setText(title);
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PanelCheckBox::sizeHint() const {
  const WrappedText title(text().toStdString(), theme_.font(kit::FontRole::body), std::nullopt);
  const double height = std::max(title.size().height(), boxSide) + 2 * panelRing;
  return QSizeF(panelRing + boxSide + beforeTitle + title.size().width(), height).toSize();
}

void PanelCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Palette& colors = theme_.palette();
  const QColor on = isDown() ? pressedShade(colors.accent, colors.accentText) : colors.accent;
  const QColor off = isDown() ? colors.controlFacePressed : colors.controlFace;
  drawFace(painter, box(), boxRadius, isChecked() ? on : off, colors);
  if (isChecked()) {
    drawMark(painter);
  }
  if (hasFocus() && showsFocus_) {
    drawPanelRing(painter, box(), boxRadius, theme_);
  }
  const WrappedText title(text().toStdString(), theme_.font(kit::FontRole::body), std::nullopt);
  painter.setPen(colors.primaryText);
  title.draw(painter, {panelRing + boxSide + beforeTitle, title.topAround(box().center().y())});
}

void PanelCheckBox::focusInEvent(QFocusEvent* event) {
  showsFocus_ = isFromKeyboard(event->reason());
  QAbstractButton::focusInEvent(event);
}

QRectF PanelCheckBox::box() const { return {panelRing, std::round((height() - boxSide) / 2), boxSide, boxSide}; }

void PanelCheckBox::drawMark(QPainter& painter) const {
  const QPointF corner = box().topLeft();
  painter.setPen(QPen(theme_.palette().accentText, markStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(
      QPolygonF({corner + QPointF(3.8, 7.8), corner + QPointF(6.4, 10.6), corner + QPointF(11.2, 4.4)}));
}

}  // namespace tarnwell::host_qt
