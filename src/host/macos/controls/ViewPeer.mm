#include "host/macos/controls/ViewPeer.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "host/macos/look/Conversions.h"
#include "host/macos/look/TextLook.h"
#include "kit/control/Window.h"

namespace tarnwell::host_macos {
namespace {

// The width of what does not say how wide it is and is offered none: there is room for a slider beside what a row says.
constexpr double idealWidth = 128;

// The platform has no place for it at a view.
std::map<NSView*, kit::Control*>& controls() {
  static std::map<NSView*, kit::Control*> all;
  return all;
}

NSControl* asControl(NSView* view) {
  return [view isKindOfClass:[NSControl class]] ? static_cast<NSControl*>(view) : nil;
}

NSString* orNil(const std::string& text) { return text.empty() ? nil : toNSString(text); }

}  // namespace

ViewPeer::ViewPeer(kit::Control& control, NSView* view, NSView* parent)
    : control_(control), view_(view), isAccessibilityElement_([view isAccessibilityElement]) {
  [parent addSubview:view];
  controls()[view] = &control;
}

ViewPeer::~ViewPeer() {
  controls().erase(view_.get());
  [asControl(view_.get()) setTarget:nil];
  [view_.get() removeFromSuperview];
}

void ViewPeer::show(kit::Aspect aspect) noexcept {
  if (aspect == kit::Aspect::enabled) {
    showEnabled();
  } else if (aspect == kit::Aspect::accessibleName) {
    showAccessibleName();
  } else if (aspect == kit::Aspect::accessibleDescription) {
    [view_.get() setAccessibilityHelp:orNil(control_.accessibleDescription())];
  }
  showState(aspect);
}

void ViewPeer::showEnabled() {
  if (NSControl* control = asControl(view_.get())) {
    [control setEnabled:control_.isEnabled()];
  } else {
    [view_.get() setAccessibilityEnabled:control_.isEnabled()];
  }
}

void ViewPeer::showAccessibleName() {
  [view_.get() setAccessibilityLabel:orNil(control_.accessibleName())];
  const bool isDecoration = control_.accessible().role == kit::AccessibleRole::decoration;
  [view_.get() setAccessibilityElement:isAccessibilityElement_ && !isDecoration];
}

void ViewPeer::place(const kit::Rect& frame) noexcept {
  // The layout speaks of what is seen; a control of the platform's has a shadow around it.
  [view_.get() setFrame:[view_.get() frameForAlignmentRect:toNSRect(frame)]];
  // Rows tell their controls before each layout which text names them.
  if (const kit::Control* label = control_.label()) {
    [view_.get() setAccessibilityTitleUIElement:viewOf(*label)];
  }
}

std::optional<kit::Measurement> ViewPeer::measure(kit::Proposal proposal) const {
  const NSSize natural = [view_.get() intrinsicContentSize];
  const double width = natural.width >= 0 ? std::ceil(natural.width) : proposal.width.value_or(idealWidth);
  const double height = std::ceil(std::max(natural.height, 0.0));
  return kit::Measurement{.size = {.width = width, .height = height}, .firstBaseline = baselineBesideText(height)};
}

NSView* ViewPeer::viewOf(const kit::Control& control) {
  const auto* peer = dynamic_cast<const ViewPeer*>(control.peer());
  return peer != nullptr ? peer->nsView() : nil;
}

kit::Control* ViewPeer::controlOf(NSView* view) {
  for (; view != nil; view = [view superview]) {
    if (const auto found = controls().find(view); found != controls().end()) {
      return found->second;
    }
  }
  return nullptr;
}

BOOL ViewPeer::perform(NSView* view, const kit::AccessibleRequest& request) {
  kit::Control* control = controlOf(view);
  if (control == nullptr) {
    return NO;
  }
  kit::perform(*control, request);
  return YES;
}

void ViewPeer::connect(std::function<void()> report) {
  // A screen reader presses without the click that would have ended what is being typed elsewhere.
  action_.emplace([this, report] { kit::afterCommit(control_, report); });
  [asControl(view_.get()) setTarget:action_->target()];
  [asControl(view_.get()) setAction:ActionTarget::action()];
}

}  // namespace tarnwell::host_macos
