#pragma once

#include <QtGui/QIcon>
#include <string>

#include "host/qt/bus/BusTypes.h"

namespace tarnwell::host_qt {

class Theme;

/// A symbol in the colour that can be seen on a panel.
class StatusImage {
 public:
  /// The theme is borrowed.
  explicit StatusImage(const Theme& theme) : theme_(theme) {}

  void setSymbol(const std::string& name) { symbol_ = name; }

  /// In the sizes that panels have.
  QIcon icon() const;
  QList<BusImage> forBus() const;

 private:
  QImage image(int side) const;

  const Theme& theme_;
  std::string symbol_;
};

}  // namespace tarnwell::host_qt
