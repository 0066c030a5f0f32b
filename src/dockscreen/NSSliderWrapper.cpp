#include "dockscreen/NSSliderWrapper.h"

#include <string>
#include <utility>

#include "core/DecimalText.h"
#include "diagnostics/Console.h"
#include "diagnostics/Fault.h"
#include "dockscreen/TwoDecimals.h"

namespace tarnwell::dockscreen {
namespace {

constexpr int tickMarks = 11;

std::string tickMarkLine(int index, const kit::Rect& rect) {
  return "Tick mark " + std::to_string(index) + " rect: " + core::plainDecimalText(rect.x) + ", " +
         core::plainDecimalText(rect.y) + ", " + core::plainDecimalText(rect.width) + ", " +
         core::plainDecimalText(rect.height);
}

}  // namespace

void printTickMarks(const kit::Slider& slider) {
  const int count = slider.numberOfTickMarks();
  if (count < 0) {
    diagnostics::fault("a slider reported a negative number of tick marks");
  }
  for (int index = 0; index < count; ++index) {
    diagnostics::printLine(tickMarkLine(index, slider.rectOfTickMarkAtIndex(index)));
  }
}

std::shared_ptr<NSSliderWrapper::Coordinator> NSSliderWrapper::makeCoordinator() const {
  return std::make_shared<Coordinator>(*this);
}

std::unique_ptr<kit::Slider> NSSliderWrapper::makeNSView(Context& context) const {
  auto slider = std::make_unique<kit::Slider>(value.get(), minValue, maxValue,
                                              [target = std::weak_ptr(context.coordinator)](kit::Slider& sender) {
                                                if (const auto coordinator = target.lock()) {
                                                  coordinator->sliderValueChanged(sender);
                                                }
                                              });
  slider->setNumberOfTickMarks(tickMarks);
  slider->joinHost(context.host);
  printTickMarks(*slider);
  return slider;
}

void NSSliderWrapper::updateNSView(kit::Slider& slider, Context& /*context*/) const {
  slider.setDoubleValue(value.get());
}

NSSliderWrapper::Coordinator::Coordinator() {
  diagnostics::fault("use of unimplemented initializer 'init()' for class 'NSSliderWrapper.Coordinator'");
}

NSSliderWrapper::Coordinator::Coordinator(NSSliderWrapper wrapper) : parent_(std::move(wrapper)) {}

void NSSliderWrapper::Coordinator::sliderValueChanged(kit::Slider& sender) const {
  diagnostics::printLine("VALUE: " + core::plainDecimalText(sender.doubleValue()));
  const double rounded = roundedToHundredths(sender.doubleValue());
  parent_.value.set(rounded);
  sender.setDoubleValue(rounded);
}

}  // namespace tarnwell::dockscreen
