#include "host/qt/look/Theme.h"

#include <QtGui/QFontInfo>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwell::host_qt {
namespace {

constexpr int leastBody = 12;
constexpr int leastSize = 9;
constexpr double bodyShare = 13;

QFont sized(QFont font, double bodyPixels, double share) {
  font.setPixelSize(std::max(leastSize, static_cast<int>(std::lround(bodyPixels * share / bodyShare))));
  return font;
}

QFont bold(QFont font) {
  font.setBold(true);
  return font;
}

}  // namespace

Typography::Typography(const QFont& applicationFont) {
  const double body = std::max(QFontInfo(applicationFont).pixelSize(), leastBody);
  // In the order of the roles.
  fonts_ = {sized(applicationFont, body, bodyShare), sized(applicationFont, body, 11), sized(applicationFont, body, 10),
            bold(sized(applicationFont, body, 15)), bold(sized(applicationFont, body, 18))};
}

Theme::Theme() : desktopScheme_(schemeOf(QApplication::palette())), typography_(QApplication::font()) { apply(); }

QColor Theme::textColor(kit::ColorRole role) const {
  return role == kit::ColorRole::secondary ? palette_.secondaryText : palette_.primaryText;
}

void Theme::setColorScheme(std::optional<ColorScheme> scheme) {
  const ColorScheme shown = colorScheme();
  scheme_ = scheme;
  if (colorScheme() != shown) {
    apply();
  }
}

void Theme::setContrastLevel(ContrastLevel level) {
  if (std::exchange(contrastLevel_, level) != level) {
    apply();
  }
}

void Theme::setAccent(std::optional<QColor> accent) {
  if (std::exchange(accent_, accent) != accent) {
    apply();
  }
}

void Theme::takeApplicationFont() { typography_ = Typography(QApplication::font()); }

void Theme::apply() {
  const Palette own = Palette::of(colorScheme(), contrastLevel_);
  palette_ = accent_ ? own.withAccent(*accent_) : own;
  // Tells every widget, and each repaints itself.
  QApplication::setPalette(palette_.toolkitPalette());
}

}  // namespace tarnwell::host_qt
