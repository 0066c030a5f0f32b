#include "standin/dock/ui/Blur.h"

#include <QtGui/QImage>
#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tarnwell::standin {
namespace {

constexpr int shrink = 8;
constexpr int blurRadius = 3;  // in pixels of the smaller picture

// The mean of the neighbours on a line, whose pixels lie `stride` apart.
void soften(QRgb* line, int count, qsizetype stride) {
  const std::vector<QRgb> before = [&] {
    std::vector<QRgb> copy(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      copy[static_cast<std::size_t>(i)] = line[i * stride];
    }
    return copy;
  }();
  for (int i = 0; i < count; ++i) {
    std::array<int, 3> sums{};
    for (int offset = -blurRadius; offset <= blurRadius; ++offset) {
      const QRgb color = before[static_cast<std::size_t>(std::clamp(i + offset, 0, count - 1))];
      sums[0] += qRed(color);
      sums[1] += qGreen(color);
      sums[2] += qBlue(color);
    }
    constexpr int weight = 2 * blurRadius + 1;
    line[i * stride] = qRgb(sums[0] / weight, sums[1] / weight, sums[2] / weight);
  }
}

}  // namespace

// Made small, softened twice in both directions, and made large again.
QPixmap blurred(const QPixmap& picture) {
  const QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
  QImage small =
      image.scaled((image.size() / shrink).expandedTo({2, 2}), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  auto* pixels = reinterpret_cast<QRgb*>(small.bits());
  const qsizetype stride = small.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
  constexpr int passes = 2;
  for (int pass = 0; pass < passes; ++pass) {
    for (int y = 0; y < small.height(); ++y) {
      soften(pixels + y * stride, small.width(), 1);
    }
    for (int x = 0; x < small.width(); ++x) {
      soften(pixels + x, small.height(), stride);
    }
  }
  QPixmap result = QPixmap::fromImage(small.scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  result.setDevicePixelRatio(picture.devicePixelRatio());
  return result;
}

}  // namespace tarnwell::standin
