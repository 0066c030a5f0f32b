#pragma once

#include <QtCore/QObject>

class QWidget;

namespace tarnwell::host_qt {

/// Paints a window no faster than a Wayland desktop shows its pictures. The toolkit would paint ahead until no buffer
/// is left and wait for one; a size that the desktop asks for meanwhile is then accepted just before a picture of the
/// old size is sent, which ends the program.
class FramePace final : public QObject {
 public:
  /// The window is borrowed and outlives the pace.
  explicit FramePace(QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool waitsForFrame();
  bool isFrameOfOurs();

  QWidget& window_;
  bool isAsked_ = false;
  bool isDue_ = false;
};

}  // namespace tarnwell::host_qt
