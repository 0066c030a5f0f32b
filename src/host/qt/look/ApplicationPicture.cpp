#include "host/qt/look/ApplicationPicture.h"

#include <QtGui/QPainter>

#include "host/qt/look/ApplicationIcon.h"

namespace tarnwell::host_qt {

ApplicationPicture::ApplicationPicture(int side, QWidget* parent) : QWidget(parent) { setFixedSize(side, side); }

void ApplicationPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).drawPixmap(0, 0, applicationPicture(width(), devicePixelRatioF()));
}

}  // namespace tarnwell::host_qt
