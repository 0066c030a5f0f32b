#include "host/qt/Palette.h"

#include <algorithm>
#include <cmath>

namespace tarnwell::host_qt {
namespace {

constexpr int lightRingAlpha = 140;
constexpr int darkRingAlpha = 190;
// What a control needs to stand out from its ground.
constexpr double leastContrast = 3;

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

void setColors(QPalette& palette, QPalette::ColorGroup group, const Palette& colors, const QColor& text) {
  palette.setColor(group, QPalette::WindowText, text);
  palette.setColor(group, QPalette::Text, text);
  palette.setColor(group, QPalette::ButtonText, text);
  palette.setColor(group, QPalette::Highlight, colors.accent);
  palette.setColor(group, QPalette::HighlightedText, colors.accentText);
}

}  // namespace

Palette Palette::light() {
  return {.window = QColor(0xefeff2),
          .groupFill = QColor(0xfafafc),
          .hairline = QColor(0xdfdfe3),
          .primaryText = QColor(0x1d1d20),
          .secondaryText = QColor(0x66666c),
          .accent = QColor(0x1268e3),
          .accentText = QColor(0xffffff),
          .accentOnWindow = QColor(0x0f5bc8),
          .destructive = QColor(0xc81e1e),
          .controlFace = QColor(0xffffff),
          .controlFacePressed = QColor(0xe4e4e9),
          .controlBorder = QColor(0xcdcdd3),
          .fieldFace = QColor(0xffffff),
          .track = QColor(0xd3d3d9),
          .tick = QColor(0xa9a9b1),
          .knob = QColor(0xffffff),
          .knobBorder = QColor(0, 0, 0, 46),
          .shadow = QColor(0, 0, 0, 40),
          .focusRing = QColor(0x12, 0x68, 0xe3, lightRingAlpha),
          .menuFace = QColor(0xf8f8fa),
          .chosenTab = QColor(0, 0, 0, 18)};
}

Palette Palette::dark() {
  return {.window = QColor(0x1f1f22),
          .groupFill = QColor(0x29292d),
          .hairline = QColor(0x3a3a3f),
          .primaryText = QColor(0xf1f1f4),
          .secondaryText = QColor(0xa5a5ad),
          .accent = QColor(0x2a74e8),
          .accentText = QColor(0xffffff),
          .accentOnWindow = QColor(0x6aa6ff),
          .destructive = QColor(0xff7a70),
          .controlFace = QColor(0x47474d),
          .controlFacePressed = QColor(0x5a5a61),
          .controlBorder = QColor(0x58585f),
          .fieldFace = QColor(0x1b1b1e),
          .track = QColor(0x4a4a50),
          .tick = QColor(0x77777f),
          .knob = QColor(0xe6e6ea),
          .knobBorder = QColor(0, 0, 0, 90),
          .shadow = QColor(0, 0, 0, 90),
          .focusRing = QColor(0x4d, 0x92, 0xff, darkRingAlpha),
          .menuFace = QColor(0x2c2c30),
          .chosenTab = QColor(255, 255, 255, 24)};
}

Palette Palette::of(ColorScheme scheme) { return scheme == ColorScheme::dark ? dark() : light(); }

Palette Palette::withAccent(const QColor& color) const {
  Palette changed = *this;
  changed.accent = color;
  changed.accentText = contrast(Qt::white, color) >= leastContrast ? QColor(Qt::white) : QColor(Qt::black);
  changed.accentOnWindow = contrast(color, window) >= leastContrast ? color : primaryText;
  changed.focusRing = color;
  changed.focusRing.setAlpha(focusRing.alpha());
  return changed;
}

QPalette Palette::toolkitPalette() const {
  QPalette palette(primaryText, controlFace, groupFill, hairline, track, primaryText, destructive, fieldFace, window);
  palette.setColor(QPalette::AlternateBase, groupFill);
  palette.setColor(QPalette::ToolTipBase, menuFace);
  palette.setColor(QPalette::ToolTipText, primaryText);
  palette.setColor(QPalette::PlaceholderText, secondaryText);
  palette.setColor(QPalette::Link, accent);
  palette.setColor(QPalette::LinkVisited, accent);
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    setColors(palette, group, *this, primaryText);
  }
  setColors(palette, QPalette::Disabled, *this, secondaryText);
  return palette;
}

double contrast(const QColor& one, const QColor& other) {
  const double first = luminance(one);
  const double second = luminance(other);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

ColorScheme schemeOf(const QPalette& palette) {
  const bool dark = palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
  return dark ? ColorScheme::dark : ColorScheme::light;
}

}  // namespace tarnwell::host_qt
