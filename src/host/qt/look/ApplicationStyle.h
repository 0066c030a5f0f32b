#pragma once

#include <QtWidgets/QProxyStyle>

namespace tarnwell::host_qt {

/// What our widgets leave to the toolkit follows our palette on every desktop.
class ApplicationStyle final : public QProxyStyle {
 public:
  ApplicationStyle();

  /// The arrows behind a menu bar that is too narrow are drawn here: the toolkit makes them at each start, out of SVG,
  /// whose libraries nothing else wants.
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace tarnwell::host_qt
