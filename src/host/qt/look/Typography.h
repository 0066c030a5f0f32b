#pragma once

#include <QtCore/QString>
#include <QtGui/QFont>
#include <array>

#include "kit/host/TextStyle.h"

namespace tarnwell::host_qt {

/// The fonts of the roles, all derived from the application's font. Body is that font itself, though at least 12
/// pixels high; the smaller roles keep the proportions 13 : 11 : 10.
class Typography {
 public:
  explicit Typography(const QFont& applicationFont);

  const QFont& font(kit::FontRole role) const { return fonts_.at(static_cast<std::size_t>(role)); }

 private:
  std::array<QFont, 3> fonts_;
};

}  // namespace tarnwell::host_qt
