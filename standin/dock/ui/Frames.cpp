#include "standin/dock/ui/Frames.h"

#include <utility>

namespace tarnwell::standin {
namespace {

constexpr int millisecondsPerFrame = 16;

}  // namespace

Frames::Frames(std::function<Next()> frame) : frame_(std::move(frame)) {
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.setInterval(millisecondsPerFrame);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    if (frame_() == Next::none) {
      timer_.stop();
    }
  });
}

void Frames::start() {
  if (!timer_.isActive()) {
    timer_.start();
  }
}

}  // namespace tarnwell::standin
