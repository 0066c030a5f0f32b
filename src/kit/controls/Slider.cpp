#include "kit/controls/Slider.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "kit/controls/Coder.h"
#include "kit/controls/ControlMetrics.h"
#include "kit/host/Host.h"

namespace tarnwell::kit {
namespace {

bool isSound(const Rect& frame) {
  return std::isfinite(frame.x + frame.y + frame.width + frame.height) && frame.width >= 0 && frame.height >= 0;
}

}  // namespace

Slider::Slider(double value, double minValue, double maxValue, SliderAction action)
    : action_(std::move(action)), value_(minValue), minValue_(minValue), maxValue_(maxValue) {
  value_ = clamped(value);
  setFrame({.width = metrics::sliderIdealWidth, .height = metrics::sliderHeight});
}

Slider::Slider(const Rect& frame) : Slider(0, Range{}) { setFrame(frame); }

Slider::Slider(const Coder& coder) : Slider(coder.decode("NSValue", 0.0), rangeIn(coder)) {
  if (const auto frame = coder.decode("NSFrame", Slider::frame()); isSound(frame)) {
    setFrame(frame);
  }
  setNumberOfTickMarks(std::max(0, coder.decode("NSNumberOfTickMarks", 0)));
}

Slider::Range Slider::rangeIn(const Coder& coder) {
  const Range range = {.least = coder.decode("NSMinValue", 0.0), .most = coder.decode("NSMaxValue", 1.0)};
  const double length = range.most - range.least;
  return std::isfinite(length) && length >= 0 ? range : Range{};
}

void Slider::setDoubleValue(double value) {
  const double next = clamped(value);
  if (std::exchange(value_, next) != next) {
    changed(Aspect::value);
  }
}

void Slider::setNumberOfTickMarks(int count) {
  if (std::exchange(tickMarks_, count) != count) {
    changed(Aspect::style);
  }
}

Rect Slider::rectOfTickMarkAtIndex(int index) const {
  if (index < 0 || index >= tickMarks_) {
    return {};
  }
  // The ticks stand under the track, from where the knob rests at the minimum to where it rests at the maximum.
  const double share = tickMarks_ > 1 ? static_cast<double>(index) / (tickMarks_ - 1) : 0.5;
  const double centre = metrics::sliderKnobWidth / 2 + trackLength() * share;
  return {.x = centre - metrics::tickWidth / 2,
          .y = bounds().height - metrics::tickHeight,
          .width = metrics::tickWidth,
          .height = metrics::tickHeight};
}

double Slider::knobCentre() const {
  const double range = maxValue_ - minValue_;
  const double share = range > 0 ? (value_ - minValue_) / range : 0;
  return metrics::sliderKnobWidth / 2 + trackLength() * share;
}

void Slider::dragTo(Point onScreen) {
  const double length = trackLength();
  const double share = length > 0 ? (toLocal(onScreen).x - metrics::sliderKnobWidth / 2) / length : 0;
  choose(minValue_ + share * (maxValue_ - minValue_));
}

void Slider::nudge(double fraction) {
  // Turned by more than a quarter, the picture's right is the range's low end.
  const double direction = std::cos(rotation()) < 0 ? -1 : 1;
  choose(value_ + direction * fraction * (maxValue_ - minValue_));
}

void Slider::choose(double value) {
  if (!isEnabled()) {
    return;
  }
  setDoubleValue(value);
  // A copy: the action may end the slider.
  send([this, action = action_] {
    if (action) {
      action(*this);
    }
  });
}

std::unique_ptr<Peer> Slider::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Measurement Slider::measure(const TextMeasurer& text, Proposal proposal) const {
  const double width =
      proposal.width ? std::max(*proposal.width, metrics::sliderLeastWidth) : metrics::sliderIdealWidth;
  return {.size = {.width = width, .height = metrics::sliderHeight},
          .firstBaseline = (metrics::sliderHeight + text.capHeight(FontRole::body)) / 2};
}

Accessible Slider::ownAccessible() const {
  return {.role = AccessibleRole::slider,
          .value = value_,
          .range = AccessibleRange{.least = minValue_, .most = maxValue_, .step = step()},
          .actions = {AccessibleAction::increment, AccessibleAction::decrement, AccessibleAction::setValue}};
}

double Slider::clamped(double value) const {
  return std::isnan(value) ? minValue_ : std::clamp(value, minValue_, maxValue_);
}

double Slider::trackLength() const { return std::max(0.0, bounds().width - metrics::sliderKnobWidth); }

}  // namespace tarnwell::kit
