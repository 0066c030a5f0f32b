#pragma once

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// A view onto content that may be taller than itself. Its peer is the parent of the content's peers.
class ScrollArea final : public Control {
 public:
  /// Points; the content is as wide as the area. Set after each new frame: the offset is held to what both allow.
  double contentHeight() const { return contentHeight_; }
  void setContentHeight(double height);

  /// How much of the content's top is scrolled away.
  double offset() const { return offset_; }
  /// Held between the content's top and its end.
  void scrollTo(double offset);
  /// The user's doing, where the platform scrolls by itself: the peer shows it already, springs back at the ends, and
  /// is told nothing.
  void scrolled(double offset) { offset_ = held(offset); }
  /// Scrolls as little as shows `rect` of the content.
  void reveal(const Rect& rect);

  AnyControl any() override { return this; }

 protected:
  Accessible ownAccessible() const override { return {.role = AccessibleRole::group}; }
  Measurement sizeThatFits(Proposal proposal) const override;
  std::vector<Aspect> aspects() const override { return {Aspect::value}; }

 private:
  double held(double offset) const;

  double contentHeight_ = 0;
  double offset_ = 0;
};

}  // namespace tarnwell::kit
