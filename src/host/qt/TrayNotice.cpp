#include "host/qt/TrayNotice.h"

#include <QtGui/QHideEvent>
#include <QtGui/QPainter>
#include <cmath>

#include "host/qt/Drawing.h"
#include "host/qt/Theme.h"
#include "host/qt/TrayWatch.h"
#include "host/qt/WindowPeer.h"
#include "host/qt/WrappedText.h"

namespace tarnwell::host_qt {
namespace {

constexpr const char* notice = "There is no place for a status icon. To come back after closing, start Tarnwell again.";
constexpr int padding = 8;

}  // namespace

TrayNotice::TrayNotice(const Theme& theme, TrayWatch& watch, QWidget& window)
    : QWidget(&window), theme_(theme), watch_(watch) {
  setAccessibleName(QString::fromUtf8(notice));
  hide();
  changes_ = watch_.observe([this] { follow(); });
  follow();
}

QSize TrayNotice::sizeHint() const {
  const WrappedText line(notice, theme_.font(kit::FontRole::subheadline), std::nullopt);
  return {width(), static_cast<int>(std::ceil(line.size().height())) + 2 * padding};
}

void TrayNotice::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(onDevicePixels(painter, QRectF(0, 0, width(), hairlineWidth(painter))), theme_.palette().hairline);
  const WrappedText line(notice, theme_.font(kit::FontRole::subheadline), std::nullopt);
  painter.setPen(theme_.palette().secondaryText);
  line.draw(painter, {std::round((width() - line.size().width()) / 2), padding});
}

void TrayNotice::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  // With its window; one that is only put away comes back.
  if (!event->spontaneous() && !window()->isVisible()) {
    said_ = true;
    setShown(false);
  }
}

void TrayNotice::follow() { setShown(!said_ && watch_.tray() == TrayWatch::Tray::none); }

void TrayNotice::setShown(bool shown) {
  if (isHidden() != shown) {
    return;
  }
  setVisible(shown);
  WindowPeer::chromeChanged(*this);
}

}  // namespace tarnwell::host_qt
