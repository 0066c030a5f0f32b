#include "standin/dock/ui/EffectOverlay.h"

#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "standin/dock/ui/look/Conversions.h"

namespace tarnwell::standin {
namespace {

// A transparent rim makes the picture's edges smooth where they are bent.
constexpr int rim = 2;

Pixels pixelsOf(const QPixmap& pixmap) {
  const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  Pixels pixels(image.width() + 2 * rim, image.height() + 2 * rim);
  for (int y = 0; y < image.height(); ++y) {
    std::memcpy(pixels.row(y + rim) + rim, image.constScanLine(y), static_cast<std::size_t>(image.bytesPerLine()));
  }
  return pixels;
}

bool isSolid(std::uint32_t color) { return color >> 24U >= 128; }

/// From the first pixel of a line that is more than half opaque to behind the last one; empty where there is none.
struct Solid {
  int begin = 0;
  int end = 0;
};

Solid solidPart(const Pixels& pixels, int line) {
  const std::uint32_t* begin = pixels.row(line);
  const std::uint32_t* end = begin + pixels.width;
  const std::uint32_t* first = std::find_if(begin, end, isSolid);
  while (end > first && !isSolid(*(end - 1))) {
    --end;
  }
  return {.begin = static_cast<int>(first - begin), .end = static_cast<int>(end - begin)};
}

// What is left of a half-opaque pixel where nothing shines through it: the colour alone, or there would be a dark rim.
std::uint32_t opaque(std::uint32_t color) { return qUnpremultiply(color) | 0xff000000U; }

}  // namespace

EffectOverlay::EffectOverlay(Surface& surface) : surface_(surface) {
  setWindowTitle(QStringLiteral("Minimizing"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  surface_.adopt(*this, Surface::Role::effect);
  progress_.setStartValue(0.0);
  progress_.setEndValue(1.0);
  connect(&progress_, &QVariantAnimation::valueChanged, this, [this] {
    draw();
    repaint();
  });
  connect(&progress_, &QVariantAnimation::finished, this, [this] { std::exchange(arrived_, {})(); });
}

void EffectOverlay::start(const QPixmap& picture, const Journey& journey, std::function<void()> arrived) {
  constexpr int margin = 4;
  journey_ = journey;
  arrived_ = std::move(arrived);
  ratio_ = picture.devicePixelRatio();
  picture_.emplace(pixelsOf(picture));
  setGeometry(journey.window.united(journey.icon).adjusted(-margin, -margin, margin, margin));
  canvas_ = Pixels(static_cast<int>(std::ceil(width() * ratio_)), static_cast<int>(std::ceil(height() * ratio_)));
  progress_.setDuration(static_cast<int>(journey.duration.count()));
  progress_.setDirection(journey.direction);
  progress_.start();
  draw();
  show();
  raise();
  repaint();
}

void EffectOverlay::draw() {
  const Warp warp(journey_.effect, rectangleOf(journey_.window), rectangleOf(journey_.icon));
  const double share = progress_.currentValue().toDouble();
  std::ranges::fill(canvas_.values, 0U);
  const double wide = picture_->width() - 2 * rim;
  const double high = picture_->height() - 2 * rim;
  drawBent(canvas_, *picture_, [&](double u, double v) {
    const Point place = warp.at((u * picture_->width() - rim) / wide, (v * picture_->height() - rim) / high, share);
    return Point{(place.x - x()) * ratio_, (place.y - y()) * ratio_};
  });
  if (!surface_.blends()) {
    for (std::uint32_t& color : canvas_.values) {
      color = isSolid(color) ? opaque(color) : color;
    }
    const QRegion region = outline();
    setMask(region.isEmpty() ? QRegion(-2, -2, 1, 1) : region);
  }
}

// Line by line from the first pixel that is more than half opaque to the last. A line of points covers several of
// pixels, of which the narrowest counts: nothing but what is painted may show.
QRegion EffectOverlay::outline() const {
  std::vector<QRect> lines;
  for (int y = 0; y < height(); ++y) {
    const int end = std::min(static_cast<int>(std::ceil((y + 1) * ratio_)), canvas_.height);
    Solid narrowest{.begin = 0, .end = canvas_.width};
    for (int line = static_cast<int>(y * ratio_); line < end; ++line) {
      const Solid solid = solidPart(canvas_, line);
      narrowest = {.begin = std::max(narrowest.begin, solid.begin), .end = std::min(narrowest.end, solid.end)};
    }
    const int left = static_cast<int>(std::ceil(narrowest.begin / ratio_));
    const int right = static_cast<int>(narrowest.end / ratio_);
    if (left < right) {
      lines.emplace_back(left, y, right - left, 1);
    }
  }
  QRegion region;
  region.setRects(lines.data(), static_cast<int>(lines.size()));
  return region;
}

void EffectOverlay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!surface_.blends()) {
    // There is nothing behind it that could shine through, only the frame before.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
  }
  QImage image(reinterpret_cast<const uchar*>(canvas_.values.data()), canvas_.width, canvas_.height,
               QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio_);
  painter.drawImage(0, 0, image);
}

}  // namespace tarnwell::standin
