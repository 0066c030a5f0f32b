#include "host/qt/look/Theme.h"

#include <QtWidgets/QApplication>
#include <utility>

namespace tarnwell::host_qt {

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
