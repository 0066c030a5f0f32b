#include "host/qt/look/Palette.h"

#include <algorithm>
#include <cmath>

namespace tarnwell::host_qt {
namespace {

// What a text needs to stand out from its ground.
constexpr double textContrast = 4.5;

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& color, const QColor& other, float share) {
  const auto channel = [share](float one, float two) { return one + (two - one) * share; };
  return QColor::fromRgbF(channel(color.redF(), other.redF()), channel(color.greenF(), other.greenF()),
                          channel(color.blueF(), other.blueF()));
}

// `color`, as much darker or lighter as it takes to have that contrast to `ground`.
QColor apartFrom(const QColor& ground, const QColor& color, double least) {
  const QColor end = contrast(Qt::black, ground) > contrast(Qt::white, ground) ? Qt::black : Qt::white;
  constexpr int steps = 32;
  for (int step = 0; step < steps; ++step) {
    const QColor shade = mixed(color, end, static_cast<float>(step) / steps);
    if (contrast(shade, ground) >= least) {
      return shade;
    }
  }
  return end;
}

Palette highLight() {
  const QColor ink(Qt::black);
  const QColor paper(Qt::white);
  const QColor blue(0x0a4aad);
  return {.window = paper,
          .groupFill = paper,
          .hairline = ink,
          .primaryText = ink,
          .secondaryText = QColor(0x333338),
          .accent = blue,
          .accentText = paper,
          .accentOnWindow = blue,
          .destructive = QColor(0x9c0000),
          .controlFace = paper,
          .controlFacePressed = QColor(0xe8e8ec),
          .controlBorder = ink,
          .fieldFace = paper,
          .track = QColor(0x4a4a4f),
          .tick = ink,
          .knob = paper,
          .knobBorder = ink,
          .shadow = Qt::transparent,
          .focusRing = blue,
          .menuFace = paper,
          .chosenTab = QColor(0xf2f2f6),
          .chosenTabBorder = ink,
          .accentContrast = 7};
}

Palette highDark() {
  const QColor ink(Qt::white);
  const QColor paper(Qt::black);
  const QColor blue(0x6aaaff);
  return {.window = paper,
          .groupFill = paper,
          .hairline = ink,
          .primaryText = ink,
          .secondaryText = QColor(0xd6d6da),
          .accent = blue,
          .accentText = paper,
          .accentOnWindow = QColor(0x8cc0ff),
          .destructive = QColor(0xff9d96),
          .controlFace = QColor(0x1a1a1c),
          .controlFacePressed = QColor(0x2a2a2e),
          .controlBorder = ink,
          .fieldFace = paper,
          .track = QColor(0x8c8c92),
          .tick = ink,
          .knob = ink,
          .knobBorder = paper,
          .shadow = Qt::transparent,
          .focusRing = QColor(0x8cc0ff),
          .menuFace = paper,
          .chosenTab = QColor(0x2a2a2e),
          .chosenTabBorder = ink,
          .accentContrast = 7};
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
          .controlBorder = QColor(0x85858d),
          .fieldFace = QColor(0xffffff),
          .track = QColor(0x85858d),
          .tick = QColor(0x85858d),
          .knob = QColor(0xffffff),
          .knobBorder = QColor(0x7c7c84),
          .shadow = QColor(0, 0, 0, 40),
          .focusRing = QColor(0x2f7ae8),
          .menuFace = QColor(0xf8f8fa),
          .chosenTab = QColor(0, 0, 0, 18),
          .chosenTabBorder = Qt::transparent};
}

Palette Palette::dark() {
  return {.window = QColor(0x1f1f22),
          .groupFill = QColor(0x29292d),
          .hairline = QColor(0x3a3a3f),
          .primaryText = QColor(0xf1f1f4),
          .secondaryText = QColor(0xa5a5ad),
          .accent = QColor(0x2872e6),
          .accentText = QColor(0xffffff),
          .accentOnWindow = QColor(0x6aa6ff),
          .destructive = QColor(0xffa098),
          .controlFace = QColor(0x47474d),
          .controlFacePressed = QColor(0x333337),
          .controlBorder = QColor(0x7c7c84),
          .fieldFace = QColor(0x1b1b1e),
          .track = QColor(0x7c7c84),
          .tick = QColor(0x84848c),
          .knob = QColor(0xe6e6ea),
          .knobBorder = QColor(0x2c2c30),
          .shadow = QColor(0, 0, 0, 90),
          .focusRing = QColor(0x4d92ff),
          .menuFace = QColor(0x2c2c30),
          .chosenTab = QColor(255, 255, 255, 24),
          .chosenTabBorder = Qt::transparent};
}

Palette Palette::of(ColorScheme scheme, ContrastLevel level) {
  if (level == ContrastLevel::high) {
    return scheme == ColorScheme::dark ? highDark() : highLight();
  }
  return scheme == ColorScheme::dark ? dark() : light();
}

Palette Palette::withAccent(const QColor& color) const {
  Palette changed = *this;
  changed.accent = color;
  for (const QColor& ground : {window, groupFill, menuFace}) {
    changed.accent = apartFrom(ground, changed.accent, accentContrast);
  }
  const double leastForText = std::max(textContrast, accentContrast);
  // What stands so far from its grounds has that contrast to one of the two.
  changed.accentText = contrast(Qt::white, changed.accent) >= leastForText ? QColor(Qt::white) : QColor(Qt::black);
  // Of all that such texts stand on, the chosen tab is the nearest to them.
  changed.accentOnWindow = apartFrom(over(window, chosenTab), color, leastForText);
  changed.focusRing = changed.accent;
  return changed;
}

QPalette Palette::toolkitPalette() const {
  QPalette palette(primaryText, controlFace, groupFill, hairline, track, primaryText, destructive, fieldFace, window);
  palette.setColor(QPalette::AlternateBase, groupFill);
  palette.setColor(QPalette::ToolTipBase, menuFace);
  palette.setColor(QPalette::ToolTipText, primaryText);
  palette.setColor(QPalette::PlaceholderText, secondaryText);
  palette.setColor(QPalette::Link, accentOnWindow);
  palette.setColor(QPalette::LinkVisited, accentOnWindow);
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    setColors(palette, group, *this, primaryText);
  }
  setColors(palette, QPalette::Disabled, *this, secondaryText);
  return palette;
}

QColor pressedShade(const QColor& fill, const QColor& drawnOnIt) {
  constexpr float share = 0.12F;
  return mixed(fill, luminance(drawnOnIt) > luminance(fill) ? Qt::black : Qt::white, share);
}

QColor over(const QColor& ground, const QColor& color) {
  const QColor opaque = QColor::fromRgb(color.rgb());
  return mixed(ground, opaque, color.alphaF());
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
