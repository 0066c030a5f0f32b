#include "kit/turn/MainQueue.h"

namespace tarnwell::kit {

void MainQueue::drain() {
  for (const Action& work : std::exchange(waiting_, {})) {
    work();
  }
}

}  // namespace tarnwell::kit
