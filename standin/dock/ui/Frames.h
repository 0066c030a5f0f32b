#pragma once

#include <QtCore/QTimer>
#include <functional>

namespace tarnwell::standin {

/// Calls a function for each frame as long as it asks for another one. Nothing runs otherwise.
class Frames {
 public:
  enum class Next { wanted, none };

  explicit Frames(std::function<Next()> frame);

  /// Draws a frame soon, unless frames are being drawn already.
  void start();
  bool isRunning() const { return timer_.isActive(); }

 private:
  QTimer timer_;
  std::function<Next()> frame_;
};

}  // namespace tarnwell::standin
