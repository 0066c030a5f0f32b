#pragma once

#include <functional>
#include <optional>

#include "host/macos/controls/Container.h"
#include "host/macos/look/ActionTarget.h"
#include "host/macos/look/Retained.h"
#include "kit/control/Control.h"

namespace tarnwell::host_macos {

/// A peer that is a view of the platform's.
class ViewPeer : public kit::Peer, public Container {
 public:
  /// The control is borrowed; it owns this.
  ViewPeer(kit::Control& control, NSView* view, NSView* parent);
  ~ViewPeer() override;

  NSView* nsView() const { return view_.get(); }
  NSView* content() const override { return view_.get(); }

  void show(kit::Aspect aspect) noexcept final;
  void place(const kit::Rect& frame) noexcept override;
  /// As large as the view would like to be, and as wide as is proposed where it does not say.
  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override;

  /// The view that stands for a control; nil for none.
  static NSView* viewOf(const kit::Control& control);
  /// The control that a view stands for, or what it stands in; null for none.
  static kit::Control* controlOf(NSView* view);
  /// What an assistive client asks of the control that a view stands for: done as on every host, where the platform's
  /// own view would do it in its way. NO where there is none.
  static BOOL perform(NSView* view, const kit::AccessibleRequest& request);

 protected:
  virtual void showState(kit::Aspect /*aspect*/) {}
  /// Runs `report` when the user has done something to the view, which is an `NSControl`.
  void connect(std::function<void()> report);

 private:
  void showEnabled();
  void showAccessibleName();

  kit::Control& control_;
  Retained<NSView*> view_;
  // Before any control said that it is decoration.
  const bool isAccessibilityElement_;
  std::optional<ActionTarget> action_;
};

/// The same with the types of both sides.
template <class Control, class View>
class PeerOf : public ViewPeer {
 public:
  PeerOf(Control& control, View* view, NSView* parent) : ViewPeer(control, view, parent), control_(control) {}

 protected:
  Control& control() const { return control_; }
  View* view() const { return static_cast<View*>(nsView()); }

 private:
  Control& control_;
};

/// A new view, autoreleased.
template <class View>
View* makeView() {
  return [[[View alloc] initWithFrame:NSZeroRect] autorelease];
}

}  // namespace tarnwell::host_macos
