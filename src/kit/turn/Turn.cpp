#include "kit/turn/Turn.h"

#include <algorithm>
#include <utility>

#include "diagnostics/Console.h"
#include "diagnostics/Fault.h"

namespace tarnwell::kit {
namespace {

// A tree that is sound needs two or three steps; one whose change handlers chase each other never ends.
constexpr int mostSteps = 100;

// A host that lays out or shows a window may report events of its own, which settle once more.
constexpr int mostRounds = 10;

}  // namespace

void Turn::join(Settler& settler) { settlers_.push_back(&settler); }

void Turn::leave(Settler& settler) { std::erase(settlers_, &settler); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): what it does may release the original
void Turn::perform(Action action) {
  ++depth_;
  action();
  if (depth_ == loopDepth_ + 1 && !settling_) {
    settle();
  } else {
    unsettled_ = true;
  }
  --depth_;
  if (depth_ == 0) {
    // What goes may remove more.
    while (!removed_.empty()) {
      std::exchange(removed_, {}).clear();
    }
  }
}

void Turn::nestedLoop(const Action& loop) {
  if (settling_) {
    diagnostics::fault("a nested loop was started while the views were settling");
  }
  settle();
  const int outerLoopDepth = std::exchange(loopDepth_, depth_);
  loop();
  loopDepth_ = outerLoopDepth;
}

void Turn::releaseLater(std::shared_ptr<void> removed) {
  if (depth_ > 0) {
    removed_.push_back(std::move(removed));
  }
}

void Turn::settle() {
  for (int round = 0; round < mostRounds; ++round) {
    comeToRest();
    unsettled_ = false;
    // NOLINTNEXTLINE(modernize-loop-convert): an observer may open or close a window, which joins or leaves
    for (std::size_t i = 0; i < settlers_.size(); ++i) {
      settlers_[i]->settled();
    }
    if (!unsettled_) {
      return;
    }
  }
}

void Turn::comeToRest() {
  settling_ = true;
  int steps = 0;
  while (takeStep()) {
    if (++steps == mostSteps) {
      diagnostics::reportError("the views did not settle; showing them as they are");
      break;
    }
  }
  settling_ = false;
}

bool Turn::takeStep() {
  bool changed = false;
  // NOLINTNEXTLINE(modernize-loop-convert): a step may open or close a window, which joins or leaves
  for (std::size_t i = 0; i < settlers_.size(); ++i) {
    changed = settlers_[i]->settleStep() || changed;
  }
  return changed;
}

}  // namespace tarnwell::kit
