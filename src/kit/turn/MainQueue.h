#pragma once

#include <deque>
#include <utility>

#include "kit/turn/Action.h"

namespace tarnwell::kit {

/// Work for a later turn of the main loop, in the order in which it came. Main thread only.
class MainQueue {
 public:
  /// `wakeUp` makes the host run a turn soon.
  explicit MainQueue(Action wakeUp) : wakeUp_(std::move(wakeUp)) {}

  void async(Action work) {
    waiting_.push_back(std::move(work));
    wakeUp_();
  }

  bool isEmpty() const { return waiting_.empty(); }

  /// Runs what waits now; what that queues waits for the next turn.
  void drain();

 private:
  Action wakeUp_;
  std::deque<Action> waiting_;
};

}  // namespace tarnwell::kit
