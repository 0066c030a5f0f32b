#include "kit/events/EventQueue.h"

#include <utility>

namespace tarnwell::kit {

EventQueue::EventQueue(Turn& turn, std::function<void(const KeyEvent&)> keyDown, Action wakeUp)
    : turn_(turn), keyDown_(std::move(keyDown)), wakeUp_(std::move(wakeUp)) {}

void EventQueue::post(const Event& event) {
  posted_.push_back(event);
  wakeUp_();
}

void EventQueue::async(Action work) {
  work_.push_back(std::move(work));
  wakeUp_();
}

void EventQueue::send(const Event& event, const Action& handle) {
  turn_.perform([&] {
    const Event* outer = std::exchange(current_, &event);
    handle();
    current_ = outer;
  });
}

void EventQueue::runTurn() {
  if (!posted_.empty()) {
    const Event event = std::move(posted_.front());
    posted_.pop_front();
    if (event.type == Event::Type::keyDown) {
      send(event, [this, &event] { keyDown_(event.key()); });
    }
  }
  if (!work_.empty()) {
    // An event of its own: the work finds what the first one opened.
    turn_.perform([this] {
      for (const Action& work : std::exchange(work_, {})) {
        work();
      }
    });
  }
  if (!isEmpty()) {
    wakeUp_();
  }
}

}  // namespace tarnwell::kit
