#include "host/qt/panels/PanelScrollBar.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {
namespace {

constexpr int thinWidth = 12;
constexpr double aroundThumb = 3;
constexpr double shortestThumb = 28;
constexpr int quietAlpha = 110;
constexpr int livelyAlpha = 170;

}  // namespace

PanelScrollBar::PanelScrollBar(const Theme& theme, QWidget* parent) : QScrollBar(Qt::Vertical, parent), theme_(theme) {
  setAttribute(Qt::WA_Hover);
  setAttribute(Qt::WA_OpaquePaintEvent, false);
}

QSize PanelScrollBar::sizeHint() const { return {thinWidth, thinWidth}; }

void PanelScrollBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor color = theme_.palette().secondaryText;
  color.setAlpha(grab_ || underMouse() ? livelyAlpha : quietAlpha);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const QRectF shape = thumb();
  painter.drawRoundedRect(shape, shape.width() / 2, shape.width() / 2);
}

void PanelScrollBar::mousePressEvent(QMouseEvent* event) {
  const double y = event->position().y();
  const QRectF shape = thumb();
  const bool onThumb = y >= shape.top() && y <= shape.bottom();
  grab_ = onThumb ? y - shape.top() : shape.height() / 2;
  dragThumbTo(y - *grab_);
}

void PanelScrollBar::mouseMoveEvent(QMouseEvent* event) {
  if (grab_) {
    dragThumbTo(event->position().y() - *grab_);
  }
}

void PanelScrollBar::mouseReleaseEvent(QMouseEvent* /*event*/) {
  grab_.reset();
  update();
}

QRectF PanelScrollBar::thumb() const {
  const double room = height() - 2 * aroundThumb;
  const double whole = maximum() - minimum() + pageStep();
  const double length =
      std::clamp(room * pageStep() / std::max(1.0, whole), shortestThumb, std::max(shortestThumb, room));
  const double share = maximum() > minimum() ? double(value() - minimum()) / (maximum() - minimum()) : 0;
  return {aroundThumb, aroundThumb + (room - length) * share, width() - 2 * aroundThumb, length};
}

void PanelScrollBar::dragThumbTo(double top) {
  const double way = height() - 2 * aroundThumb - thumb().height();
  if (way > 0) {
    setValue(minimum() + static_cast<int>(std::lround((top - aroundThumb) / way * (maximum() - minimum()))));
  }
  update();
}

}  // namespace tarnwell::host_qt
