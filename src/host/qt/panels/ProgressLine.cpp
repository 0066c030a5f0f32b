#include "host/qt/panels/ProgressLine.h"

#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {
namespace {

constexpr int lineHeight = 6;
constexpr int leastLineWidth = 160;
constexpr int fullScale = 10'000;
constexpr double movingShare = 0.3;
constexpr int oneCrossing = 1400;  // Milliseconds.

}  // namespace

ProgressLine::ProgressLine(const Theme& theme, QWidget* parent) : QProgressBar(parent), theme_(theme) {
  setTextVisible(false);
  setRange(0, 0);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  motion_.setStartValue(0.0);
  motion_.setEndValue(1.0);
  motion_.setDuration(oneCrossing);
  motion_.setLoopCount(-1);
  connect(&motion_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void ProgressLine::setShare(double share) {
  motion_.stop();
  setRange(0, fullScale);
  setValue(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * fullScale)));
}

QSize ProgressLine::sizeHint() const { return {leastLineWidth, lineHeight}; }

void ProgressLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  drawTrack(painter, track(), filled(), theme_.palette());
}

// Nothing is animated that is not visible.
void ProgressLine::showEvent(QShowEvent* event) {
  if (isUnknown()) {
    motion_.start();
  }
  QProgressBar::showEvent(event);
}

void ProgressLine::hideEvent(QHideEvent* event) {
  motion_.stop();
  QProgressBar::hideEvent(event);
}

QRectF ProgressLine::track() const { return {0, (height() - lineHeight) / 2.0, double(width()), double(lineHeight)}; }

QRectF ProgressLine::filled() const {
  QRectF part = track();
  if (isUnknown()) {
    const double moving = part.width() * movingShare;
    part.setLeft(-moving + (part.width() + moving) * motion_.currentValue().toDouble());
    part.setWidth(moving);
  } else {
    part.setWidth(part.width() * value() / fullScale);
  }
  return part;
}

}  // namespace tarnwell::host_qt
