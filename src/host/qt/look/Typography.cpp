#include "host/qt/look/Typography.h"

#include <QtGui/QFontInfo>
#include <algorithm>
#include <cmath>

namespace tarnwell::host_qt {
namespace {

constexpr int leastBody = 12;
constexpr int leastSize = 9;
constexpr double bodyShare = 13;

QFont sized(QFont font, double bodyPixels, double share) {
  font.setPixelSize(std::max(leastSize, static_cast<int>(std::lround(bodyPixels * share / bodyShare))));
  return font;
}

}  // namespace

Typography::Typography(const QFont& applicationFont) {
  const double body = std::max(QFontInfo(applicationFont).pixelSize(), leastBody);
  // In the order of the roles.
  fonts_ = {sized(applicationFont, body, bodyShare), sized(applicationFont, body, 11),
            sized(applicationFont, body, 10)};
}

}  // namespace tarnwell::host_qt
