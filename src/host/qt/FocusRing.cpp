#include "host/qt/FocusRing.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include "host/qt/Theme.h"

namespace tarnwell::host::qt {
namespace {

constexpr int thickness = 3;

}  // namespace

FocusRing::FocusRing(QWidget& target, double cornerRadius, const Theme& theme)
    : QFocusFrame(target.parentWidget()), target_(target), cornerRadius_(cornerRadius), theme_(theme) {
  target.installEventFilter(this);
  follow();
}

bool FocusRing::eventFilter(QObject* object, QEvent* event) {
  const bool moved = event->type() == QEvent::Move || event->type() == QEvent::Resize ||
                     event->type() == QEvent::Show || event->type() == QEvent::Hide ||
                     event->type() == QEvent::ZOrderChange;
  if (object == &target_ && moved) {
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
  painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), cornerRadius_ + half,
                          cornerRadius_ + half);
}

void FocusRing::follow() {
  setGeometry(target_.geometry().adjusted(-thickness, -thickness, thickness, thickness));
  setVisible(target_.isVisibleTo(target_.parentWidget()));
  raise();
}

}  // namespace tarnwell::host::qt
