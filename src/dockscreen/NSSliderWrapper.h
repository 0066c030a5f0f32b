#pragma once

#include <memory>

#include "kit/controls/ranges/Slider.h"
#include "view/tree/Representable.h"
#include "view/values/Binding.h"

namespace tarnwell::dockscreen {

/// A slider with eleven tick marks, bound to a double. Drags are written back in hundredths.
struct NSSliderWrapper {
  class Coordinator;
  using NSView = kit::Slider;
  using Context = view::RepresentableContext<Coordinator>;

  view::Binding<double> value = {};
  double minValue = 0;
  double maxValue = 1;

  std::shared_ptr<Coordinator> makeCoordinator() const;
  /// Prints the rectangle of each tick mark.
  std::unique_ptr<kit::Slider> makeNSView(Context& context) const;
  /// Only the value: a range that changed later does not reach a slider that stands.
  void updateNSView(kit::Slider& slider, Context& context) const;
};

/// One line for each; a negative number of them is a fault.
void printTickMarks(const kit::Slider& slider);

/// The target of one slider's action, alive as long as the slider.
class NSSliderWrapper::Coordinator {
 public:
  /// Not supported: a fault.
  Coordinator();
  explicit Coordinator(NSSliderWrapper wrapper);

  /// Prints the value, and puts its hundredths into the binding and back into the slider.
  void sliderValueChanged(kit::Slider& sender) const;

 private:
  NSSliderWrapper parent_;
};

}  // namespace tarnwell::dockscreen
