#include "host/qt/controls/containers/ScrollBarOverlay.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_qt {
namespace {

constexpr int barWidth = 12;
constexpr double thumbMargin = 3;  // Around the thumb.
constexpr double leastThumb = 28;
constexpr int restingAlpha = 110;
constexpr int heldAlpha = 170;

}  // namespace

ScrollBarOverlay::ScrollBarOverlay(kit::ScrollArea& area, const Theme& theme, ControlWidget& viewport)
    : QWidget(&viewport), area_(area), viewport_(viewport), theme_(theme) {
  setAttribute(Qt::WA_Hover);
}

void ScrollBarOverlay::follow() {
  setGeometry(viewport_.width() - barWidth, 0, barWidth, viewport_.height());
  setVisible(hiddenLength() > 0);
  update();
}

bool ScrollBarOverlay::event(QEvent* event) noexcept {
  const bool heard = viewport_.control() != nullptr || event->type() == QEvent::DeferredDelete;
  return heard && QWidget::event(event);
}

void ScrollBarOverlay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor color = theme_.palette().secondaryText;
  const bool lively = grab_ || underMouse();
  color.setAlpha(lively ? heldAlpha : restingAlpha);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const QRectF bar = thumb();
  painter.drawRoundedRect(bar, bar.width() / 2, bar.width() / 2);
}

void ScrollBarOverlay::mousePressEvent(QMouseEvent* event) {
  const double y = event->position().y();
  const QRectF bar = thumb();
  const bool onThumb = y >= bar.top() && y <= bar.bottom();
  grab_ = onThumb ? y - bar.top() : bar.height() / 2;
  dragThumbTo(y - *grab_);
}

void ScrollBarOverlay::mouseMoveEvent(QMouseEvent* event) {
  if (grab_) {
    dragThumbTo(event->position().y() - *grab_);
  }
}

void ScrollBarOverlay::mouseReleaseEvent(QMouseEvent* /*event*/) {
  grab_.reset();
  update();
}

QRectF ScrollBarOverlay::thumb() const {
  const double room = height() - 2 * thumbMargin;
  const double length =
      std::clamp(room * height() / std::max(1.0, area_.contentHeight()), leastThumb, std::max(leastThumb, room));
  const double share = hiddenLength() > 0 ? area_.offset() / hiddenLength() : 0;
  return {thumbMargin, thumbMargin + (room - length) * share, barWidth - 2 * thumbMargin, length};
}

double ScrollBarOverlay::hiddenLength() const { return area_.contentHeight() - area_.bounds().height; }

void ScrollBarOverlay::dragThumbTo(double top) {
  const double way = height() - 2 * thumbMargin - thumb().height();
  if (way > 0) {
    area_.scrollTo((top - thumbMargin) / way * hiddenLength());
  }
  update();
}

}  // namespace tarnwell::host_qt
