#pragma once

#include <QtWidgets/QWidget>

namespace tarnwell::host_qt {

/// The application's icon as a part of a panel, drawn anew for each screen that it is shown on.
class ApplicationPicture final : public QWidget {
 public:
  /// `side` in points.
  ApplicationPicture(int side, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnwell::host_qt
