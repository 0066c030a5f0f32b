#include "kit/controls/ranges/Slider.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "kit/control/Coder.h"
#include "kit/host/Host.h"

namespace tarnwell::kit {
namespace {

// How far a key moves the knob, as a fraction of the range.
constexpr double arrowStep = 0.01;
constexpr double pageStep = 0.1;
constexpr double wholeRange = 1;

struct KeyStep {
  std::string_view key;
  double toTheRight = 0;
};

constexpr std::array keySteps = {
    KeyStep{.key = rightArrowKey, .toTheRight = arrowStep}, KeyStep{.key = upArrowKey, .toTheRight = arrowStep},
    KeyStep{.key = leftArrowKey, .toTheRight = -arrowStep}, KeyStep{.key = downArrowKey, .toTheRight = -arrowStep},
    KeyStep{.key = pageUpKey, .toTheRight = pageStep},      KeyStep{.key = pageDownKey, .toTheRight = -pageStep},
    KeyStep{.key = endKey, .toTheRight = wholeRange},       KeyStep{.key = homeKey, .toTheRight = -wholeRange}};

bool isSound(const Rect& frame) {
  return std::isfinite(frame.x + frame.y + frame.width + frame.height) && frame.width >= 0 && frame.height >= 0;
}

}  // namespace

Slider::Slider(double value, double minValue, double maxValue, SliderAction action)
    : action_(std::move(action)), value_(minValue), minValue_(minValue), maxValue_(maxValue) {
  value_ = clamped(value);
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

Rect Slider::rectOfTickMarkAtIndex(int index) const {
  const bool exists = index >= 0 && index < tickMarks_;
  return exists && host_ != nullptr ? host_->rectOfTickMark(*this, index) : Rect{};
}

bool Slider::keyDown(const KeyEvent& key) {
  const auto* found = std::ranges::find(keySteps, key.charactersIgnoringModifiers, &KeyStep::key);
  // With Command a key belongs to what the slider stands in.
  if (found == keySteps.end() || (key.modifierFlags & commandFlag) != 0) {
    return false;
  }
  choose(value_ + (upsideDown_ ? -found->toTheRight : found->toTheRight) * range());
  return true;
}

void Slider::choose(double value) {
  if (!isEnabled()) {
    refuse();
    return;
  }
  value_ = clamped(value);
  changed(Aspect::value);
  send(deferred(action_, std::ref(*this)));
}

std::unique_ptr<Peer> Slider::makePeer(Host& host, Peer& parent) {
  joinHost(host);
  return Control::makePeer(host, parent);
}

Accessible Slider::ownAccessible() const {
  return {.role = AccessibleRole::slider,
          .value = value_,
          .range = AccessibleRange{.least = minValue_, .most = maxValue_, .step = arrowStep * range()},
          .actions = {AccessibleAction::increment, AccessibleAction::decrement, AccessibleAction::setValue}};
}

void Slider::act(const AccessibleRequest& request) { choose(valueAfter(request, value_, arrowStep * range())); }

double Slider::clamped(double value) const {
  return std::isnan(value) ? minValue_ : std::clamp(value, minValue_, maxValue_);
}

}  // namespace tarnwell::kit
