#pragma once

#include <functional>

#include "kit/control/Control.h"
#include "kit/host/KeyEvent.h"

namespace tarnwell::kit {

class Coder;

/// A horizontal slider over a range of doubles, which grow to the right, upside down to the left.
class Slider : public Control {
 public:
  using SliderAction = std::function<void(Slider&)>;

  /// `action` is copied; it must hold its target weakly, since a drag can outlive what made the slider.
  Slider(double value, double minValue, double maxValue, SliderAction action);
  /// At 0 in a range from 0 to 1, without an action.
  explicit Slider(const Rect& frame);
  /// From the rectangle NSFrame, the doubles NSMinValue, NSMaxValue and NSValue, and the int NSNumberOfTickMarks. What
  /// is missing or makes no sense is as in a slider that was not placed, without ticks, at 0 in a range from 0 to 1.
  explicit Slider(const Coder& coder);

  /// Always within the range; a value that is no number counts as the minimum.
  double doubleValue() const { return value_; }
  void setDoubleValue(double value) { set(value_, clamped(value), Aspect::value); }

  double minValue() const { return minValue_; }
  double maxValue() const { return maxValue_; }

  int numberOfTickMarks() const { return tickMarks_; }
  void setNumberOfTickMarks(int count) { set(tickMarks_, count, Aspect::style); }

  /// Drawn, tick marks and all, turned about its centre by half a turn; its own coordinates turn with it.
  bool isUpsideDown() const { return upsideDown_; }
  void setUpsideDown(bool upsideDown) { set(upsideDown_, upsideDown, Aspect::style); }

  /// `host`, borrowed, says where tick marks are. The one that makes its peer joins by itself.
  void joinHost(const Host& host) { host_ = &host; }

  /// Where tick mark `index` is drawn, in the slider's own coordinates; empty for an index that does not exist, and as
  /// long as there is no host to say.
  virtual Rect rectOfTickMarkAtIndex(int index) const;

  // The user's doing.

  /// Moves the knob as it is seen, by arrows, page keys, Home and End. False for a key that means nothing here.
  bool keyDown(const KeyEvent& key);
  void choose(double value);

  std::unique_ptr<Peer> makePeer(Host& host, Peer& parent) override;
  AnyControl any() override { return this; }
  bool takesFocus() const override { return true; }

 protected:
  /// The stored value, whichever way the picture is turned.
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override;
  std::vector<Aspect> aspects() const override { return {Aspect::style, Aspect::value}; }

 private:
  struct Range {
    double least = 0;
    double most = 1;
  };

  Slider(double value, Range range) : Slider(value, range.least, range.most, nullptr) {}
  static Range rangeIn(const Coder& coder);
  double clamped(double value) const;
  double range() const { return maxValue_ - minValue_; }

  SliderAction action_;
  const Host* host_ = nullptr;
  double value_;
  double minValue_;
  double maxValue_;
  int tickMarks_ = 0;
  bool upsideDown_ = false;
};

}  // namespace tarnwell::kit
