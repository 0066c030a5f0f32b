#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "kit/controls/ranges/Slider.h"

using tarnwell::host_macos::toKeyEvent;
using tarnwell::host_macos::toNSRect;
using tarnwell::host_macos::toRect;
using tarnwell::host_macos::ViewPeer;
namespace kit = tarnwell::kit;

/// Its keys move the knob by the steps that every host has, and its tick marks are where the control says.
@interface TWSlider : NSSlider {
  kit::Slider* slider_;
}
- (void)showSlider:(kit::Slider*)slider;
- (void)cut;
- (NSRect)ownRectOfTickMarkAtIndex:(NSInteger)index;
@end

namespace {

// A slider that is turned by half a turn is laid out from right to left, with its tick marks above. Its own
// coordinates turn with it, those of the view do not.
kit::Rect turned(const kit::Slider& slider, NSView* view, kit::Rect rect) {
  if (slider.isUpsideDown()) {
    const NSSize size = [view bounds].size;
    rect.x = size.width - rect.right();
    rect.y = size.height - rect.bottom();
  }
  return rect;
}

}  // namespace

@implementation TWSlider
- (void)showSlider:(kit::Slider*)slider {
  slider_ = slider;
  [self setContinuous:YES];
  [self setMinValue:slider->minValue()];
  [self setMaxValue:slider->maxValue()];
  [self setNumberOfTickMarks:slider->numberOfTickMarks()];
  [self setAllowsTickMarkValuesOnly:NO];
  const bool turns = slider->isUpsideDown();
  [self setUserInterfaceLayoutDirection:turns ? NSUserInterfaceLayoutDirectionRightToLeft
                                              : NSUserInterfaceLayoutDirectionLeftToRight];
  [self setTickMarkPosition:turns ? NSTickMarkPositionAbove : NSTickMarkPositionBelow];
}
- (void)cut {
  slider_ = nullptr;
}
- (void)keyDown:(NSEvent*)event {
  if (slider_ == nullptr || !slider_->keyDown(toKeyEvent(event))) {
    [super keyDown:event];
  }
}
- (BOOL)accessibilityPerformIncrement {
  return ViewPeer::perform(self, {.action = kit::AccessibleAction::increment});
}
- (BOOL)accessibilityPerformDecrement {
  return ViewPeer::perform(self, {.action = kit::AccessibleAction::decrement});
}
- (void)setAccessibilityValue:(id)value {
  ViewPeer::perform(self, {.action = kit::AccessibleAction::setValue, .value = [value doubleValue]});
}
- (NSRect)ownRectOfTickMarkAtIndex:(NSInteger)index {
  return [super rectOfTickMarkAtIndex:index];
}
- (NSRect)rectOfTickMarkAtIndex:(NSInteger)index {
  if (slider_ == nullptr) {
    return [super rectOfTickMarkAtIndex:index];
  }
  return toNSRect(turned(*slider_, self, slider_->rectOfTickMarkAtIndex(static_cast<int>(index))));
}
@end

namespace tarnwell::host_macos {
namespace {

class SliderPeer final : public PeerOf<kit::Slider, TWSlider> {
 public:
  SliderPeer(kit::Slider& slider, NSView* parent) : PeerOf(slider, makeView<TWSlider>(), parent) {
    connect([this] { control().choose([view() doubleValue]); });
  }
  ~SliderPeer() override { [view() cut]; }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::style) {
      [view() showSlider:&control()];
    } else if (aspect == kit::Aspect::value) {
      [view() setDoubleValue:control().doubleValue()];
    }
  }
};

kit::Size usualSize(NSSlider* slider) { return {.width = 200, .height = [slider intrinsicContentSize].height}; }

// Of a slider that stands nowhere yet: one that is made for the question.
TWSlider* sliderFor(const kit::Slider& slider) {
  auto* shown = static_cast<TWSlider*>(ViewPeer::viewOf(slider));
  if (shown == nil) {
    shown = makeView<TWSlider>();
    [shown showSlider:const_cast<kit::Slider*>(&slider)];
    const kit::Size size = slider.bounds() == kit::Size{} ? usualSize(shown) : slider.bounds();
    [shown setFrame:[shown frameForAlignmentRect:NSMakeRect(0, 0, size.width, size.height)]];
    [shown cut];
  }
  return shown;
}

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::Slider& slider, NSView* parent) {
  return std::make_unique<SliderPeer>(slider, parent);
}

kit::Rect rectOfTickMark(const kit::Slider& slider, int index) {
  TWSlider* view = sliderFor(slider);
  return turned(slider, view, toRect([view ownRectOfTickMarkAtIndex:index]));
}

}  // namespace tarnwell::host_macos
