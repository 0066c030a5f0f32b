#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <array>
#include <optional>

#include "host/qt/look/Palette.h"
#include "host/qt/look/Symbols.h"
#include "kit/host/TextStyle.h"

namespace tarnwell::host_qt {

/// The fonts of the roles, all derived from the application's font. Body is that font itself, though at least 12
/// pixels high; the other roles keep the proportions 13 : 11 : 10 : 15 : 18.
class Typography {
 public:
  explicit Typography(const QFont& applicationFont);

  const QFont& font(kit::FontRole role) const { return fonts_.at(static_cast<std::size_t>(role)); }

 private:
  std::array<QFont, 5> fonts_;
};

/// What all widgets share: colours, fonts, symbols. Must outlive the widgets. Needs the application object.
class Theme {
 public:
  /// Takes the desktop's own colours as a first answer to whether it is dark.
  Theme();
  Theme(const Theme&) = delete;
  Theme& operator=(const Theme&) = delete;

  const Palette& palette() const { return palette_; }
  const QFont& font(kit::FontRole role) const { return typography_.font(role); }
  QColor textColor(kit::ColorRole role) const;
  Symbols& symbols() const { return symbols_; }

  /// Absent: the desktop has no preference, its own colours decide. Every widget is painted anew.
  void setColorScheme(std::optional<ColorScheme> scheme);
  ColorScheme colorScheme() const { return scheme_.value_or(desktopScheme_); }

  /// What the desktop's user asks for; normal until told.
  void setContrastLevel(ContrastLevel level);

  /// Absent: our own accent colour.
  void setAccent(std::optional<QColor> accent);

  /// The application's font has changed.
  void takeApplicationFont();

 private:
  void apply();

  ColorScheme desktopScheme_;
  std::optional<ColorScheme> scheme_;
  std::optional<QColor> accent_;
  ContrastLevel contrastLevel_ = ContrastLevel::normal;
  Palette palette_;
  Typography typography_;
  mutable Symbols symbols_;  // Only a cache of pictures.
};

}  // namespace tarnwell::host_qt
