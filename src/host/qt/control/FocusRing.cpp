#include "host/qt/control/FocusRing.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include "host/qt/control/ControlLink.h"
#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {
namespace {

constexpr int thickness = 3;

}  // namespace

FocusRing::FocusRing(QWidget& target, ControlLink& link, const Theme& theme)
    : QFocusFrame(target.parentWidget()), target_(&target), link_(link), theme_(theme) {
  target.installEventFilter(this);
  link.setFollower([this] { follow(); });
  follow();
}

FocusRing::~FocusRing() {
  if (target_) {
    link_.setFollower(nullptr);
  }
}

bool FocusRing::eventFilter(QObject* object, QEvent* event) {
  const bool moved = event->type() == QEvent::Move || event->type() == QEvent::Resize ||
                     event->type() == QEvent::Show || event->type() == QEvent::Hide ||
                     event->type() == QEvent::ZOrderChange;
  if (object == target_ && moved) {
    follow();
  }
  return false;
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr double half = thickness / 2.0;
  painter.setPen(QPen(theme_.palette().focusRing, thickness));
  painter.setBrush(Qt::NoBrush);
  const double radius = link_.cornerRadius() + half;
  painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius, radius);
}

void FocusRing::follow() {
  const QRect shape = link_.focusShape().toAlignedRect().translated(target_->pos());
  setGeometry(shape.adjusted(-thickness, -thickness, thickness, thickness));
  setVisible(target_->isVisibleTo(parentWidget()));
  raise();
}

}  // namespace tarnwell::host_qt
