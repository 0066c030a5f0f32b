#pragma once

#include <memory>
#include <vector>

#include "kit/turn/Action.h"

namespace tarnwell::kit {

/// What must come to rest after something happened, a view tree for one.
class Settler {
 public:
  virtual ~Settler() = default;

  /// Takes one step towards rest; false when it was at rest already.
  virtual bool settleStep() = 0;

  /// Everything is at rest: lay out, show.
  virtual void settled() = 0;
};

/// The only way in. Every event, action and callback runs through `perform`; when the outermost one ends, everything
/// that it changed settles. Main thread only.
class Turn {
 public:
  Turn() = default;
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  /// Settlers are borrowed until they leave.
  void join(Settler& settler);
  void leave(Settler& settler);

  /// Runs a copy of `action`, since what it does may release the original.
  void perform(Action action);

  /// Whether an event is under way: what it changed has not settled. False in a nested loop between its events.
  bool isPerforming() const { return depth_ > loopDepth_; }

  /// For a loop inside an event (an open menu, a drag, a dialog): settles first, then runs `loop`, in which each
  /// event settles by itself. Calling it while settling is a fault.
  void nestedLoop(const Action& loop);

  /// Keeps `removed` alive until the outermost event has ended: it may be what is running. Outside of an event nothing
  /// is running, and it goes at once.
  void releaseLater(std::shared_ptr<void> removed);

 private:
  void settle();
  void comeToRest();
  bool takeStep();

  std::vector<Settler*> settlers_;
  std::vector<std::shared_ptr<void>> removed_;
  int depth_ = 0;
  int loopDepth_ = 0;
  bool settling_ = false;
  bool unsettled_ = false;
};

}  // namespace tarnwell::kit
