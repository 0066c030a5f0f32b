#pragma once

#include <QtGui/QColor>

namespace tarnwell::standin {

enum class Scheme { light, dark };

/// The colours of everything that the dock paints.
struct Look {
  QColor shelf;       // laid over what is behind it
  QColor shelfRim;    // its outermost line
  QColor shelfShine;  // a line within that one
  QColor menu;        // as the shelf, with text on it
  QColor chosen;      // an entry of the menu
  QColor chosenText;
  QColor separator;
  QColor dot;
  QColor label;
  QColor labelRim;
  QColor labelText;
  QColor paper;
  QColor ink;
  QColor faintInk;
  QColor titleBar;
  QColor windowRim;
  QColor button;
  QColor buttonHovered;
  QColor desktopTop;
  QColor desktopBottom;

  static Look of(Scheme scheme);
};

}  // namespace tarnwell::standin
