#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

class QWidget;

namespace tarnwell::host_qt {

/// Keeps a window of one size from being maximized. A Wayland desktop may maximize it all the same, and ends a program
/// that then paints it in that size. A desktop that insists gets the size that it asks for.
class FixedSizeGuard final : public QObject {
 public:
  /// The window is borrowed and outlives the guard.
  explicit FixedSizeGuard(QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool paintsInTheWrongSize() const;
  void comeAnew();
  void liftTheLimit();

  QWidget& window_;
  QElapsedTimer sinceRefusal_;
  int refusals_ = 0;  // In a row.
};

}  // namespace tarnwell::host_qt
