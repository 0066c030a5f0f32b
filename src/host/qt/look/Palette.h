#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>

namespace tarnwell::host_qt {

enum class ColorScheme { light, dark };
enum class ContrastLevel { normal, high };

/// Every colour that the widgets paint with. All of our own choosing. Texts keep a contrast of 4.5 to their ground, 7
/// at the high level; what shows where a control is and how it stands keeps 3. Hairlines are decoration.
struct Palette {
  QColor window = {};
  QColor groupFill = {};
  QColor hairline = {};
  QColor primaryText = {};
  QColor secondaryText = {};
  QColor accent = {};
  QColor accentText = {};      ///< On the accent colour.
  QColor accentOnWindow = {};  ///< The accent as a text: links, the title of the chosen tab.
  QColor destructive = {};     ///< The text of a button that cannot be taken back.
  QColor controlFace = {};
  QColor controlFacePressed = {};
  QColor controlBorder = {};
  QColor fieldFace = {};
  QColor track = {};  ///< The ground of a switch that is off.
  QColor tick = {};
  QColor knob = {};
  QColor knobBorder = {};
  QColor shadow = {};
  QColor focusRing = {};
  QColor menuFace = {};
  QColor chosenTab = {};
  QColor chosenTabBorder = {};  ///< None at the normal level, where its ground and its colour do.
  double accentContrast = 3;    ///< What the accent colour keeps to each ground that it fills a part of.

  static Palette light();
  static Palette dark();
  static Palette of(ColorScheme scheme, ContrastLevel level = ContrastLevel::normal);

  /// The same with the user's accent colour, moved as far as it takes to tell it apart from every ground, and a text
  /// on it that can be read.
  Palette withAccent(const QColor& color) const;

  /// For what the toolkit paints itself: menus, tool tips, the selection in a text field.
  QPalette toolkitPalette() const;
};

/// A fill while it is pressed: further away from what is drawn on it.
QColor pressedShade(const QColor& fill, const QColor& drawnOnIt);

/// What is seen where `color`, which may let its ground through, covers it.
QColor over(const QColor& ground, const QColor& color);

/// How far two colours stand apart, from 1 to 21, as the accessibility rules for texts count it.
double contrast(const QColor& one, const QColor& other);

/// What the desktop's own colours look like: text that is lighter than its ground is a dark desktop.
ColorScheme schemeOf(const QPalette& palette);

}  // namespace tarnwell::host_qt
