#include <algorithm>

#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "kit/controls/ranges/Stepper.h"

using tarnwell::host_macos::ViewPeer;
namespace kit = tarnwell::kit;

/// It steps for an assistive client as for every other.
@interface TWStepper : NSStepper
@end
@implementation TWStepper
- (BOOL)accessibilityPerformIncrement {
  return ViewPeer::perform(self, {.action = kit::AccessibleAction::increment});
}
- (BOOL)accessibilityPerformDecrement {
  return ViewPeer::perform(self, {.action = kit::AccessibleAction::decrement});
}
- (void)setAccessibilityValue:(id)value {
  ViewPeer::perform(self, {.action = kit::AccessibleAction::setValue, .value = [value doubleValue]});
}
@end

namespace tarnwell::host_macos {
namespace {

class StepperPeer final : public PeerOf<kit::Stepper, TWStepper> {
 public:
  StepperPeer(kit::Stepper& stepper, NSView* parent) : PeerOf(stepper, makeView<TWStepper>(), parent) {
    [view() setValueWraps:NO];
    [view() setAutorepeat:YES];
    connect([this] { control().choose([view() doubleValue]); });
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::value) {
      // The platform's stepper holds to its range what it is told. Here a value may lie outside, and still has a step
      // in front of it.
      const kit::Stepper::Range& range = control().range();
      [view() setMinValue:std::min(range.least, control().value() - range.step)];
      [view() setMaxValue:std::max(range.most, control().value() + range.step)];
      [view() setIncrement:range.step];
      [view() setDoubleValue:control().value()];
    }
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::Stepper& stepper, NSView* parent) {
  return std::make_unique<StepperPeer>(stepper, parent);
}

}  // namespace tarnwell::host_macos
