#pragma once

#include <deque>
#include <functional>

#include "kit/events/Event.h"
#include "kit/turn/Action.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {

/// What waits for a turn of the main loop: posted events and work. Main thread only.
class EventQueue {
 public:
  /// `keyDown` is given the keys that were posted; `wakeUp` makes the host run a turn soon. The turn is borrowed.
  EventQueue(Turn& turn, std::function<void(const KeyEvent&)> keyDown, Action wakeUp);

  /// To be handled in a later turn, after what was posted before.
  void post(const Event& event);
  const std::deque<Event>& posted() const { return posted_; }

  /// Work for a later turn, in the order in which it came.
  void async(Action work);

  bool isEmpty() const { return posted_.empty() && work_.empty(); }

  /// The event being handled; null between events.
  const Event* currentEvent() const { return current_; }
  /// Runs `handle` with `event` as the current one.
  void send(const Event& event, const Action& handle);

  /// One turn of the main loop: the first posted event, then the work that waits by then; what that queues waits for
  /// the next turn. Everything settles after each.
  void runTurn();

 private:
  Turn& turn_;
  std::function<void(const KeyEvent&)> keyDown_;
  Action wakeUp_;
  std::deque<Event> posted_;
  std::deque<Action> work_;
  const Event* current_ = nullptr;
};

}  // namespace tarnwell::kit
