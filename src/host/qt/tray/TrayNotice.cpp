#include "host/qt/tray/TrayNotice.h"

#include <QtGui/QHideEvent>
#include <QtGui/QPainter>
#include <cmath>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/tray/TrayWatch.h"
#include "host/qt/window/WindowPeer.h"
#include "kit/control/Window.h"

namespace tarnwell::host_qt {
namespace {

constexpr int padding = 8;
constexpr kit::FontRole noticeFont = kit::FontRole::subheadline;

double roomIn(int width) { return width - 2.0 * padding; }

}  // namespace

TrayNotice::TrayNotice(const std::string& product, const Theme& theme, const host_painted::TextMeasurer& measurer,
                       TrayWatch& watch, QWidget& window)
    : QWidget(&window),
      notice_("There is no place for a status icon. To come back after closing, start " + product + " again."),
      theme_(theme),
      measurer_(measurer),
      watch_(watch) {
  setAccessibleName(toQString(notice_));
  hide();
  changes_ = watch_.observe([this] { follow(); });
  follow();
}

int TrayNotice::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(measurer_.measureText(notice_, noticeFont, roomIn(width)).size.height)) +
         2 * padding;
}

void TrayNotice::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(onDevicePixels(painter, QRectF(0, 0, width(), hairlineWidth(painter))), theme_.palette().hairline);
  const WrappedText text(notice_, theme_.font(noticeFont), roomIn(width()));
  painter.setPen(theme_.palette().secondaryText);
  text.draw(painter, {std::round((width() - text.size().width()) / 2), padding});
}

void TrayNotice::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  // With its window; one that is only put away comes back.
  const kit::Window* window = WindowPeer::windowOf(*this);
  if (window != nullptr && !window->isVisible()) {
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
