#include "host/painted/SliderGeometry.h"

#include <algorithm>

#include "host/painted/ControlMetrics.h"
#include "kit/controls/ranges/Slider.h"

namespace tarnwell::host_painted {

double SliderGeometry::centreAt(double share) const { return metrics::sliderKnobWidth / 2 + trackLength() * share; }

double SliderGeometry::knobCentre() const {
  const double range = slider_.maxValue() - slider_.minValue();
  return centreAt(range > 0 ? (slider_.doubleValue() - slider_.minValue()) / range : 0);
}

kit::Rect SliderGeometry::tickMark(int index) const {
  const int intervals = slider_.numberOfTickMarks() - 1;
  const double centre = centreAt(intervals > 0 ? static_cast<double>(index) / intervals : 0.5);
  return {.x = centre - metrics::tickWidth / 2,
          .y = size().height - metrics::tickHeight,
          .width = metrics::tickWidth,
          .height = metrics::tickHeight};
}

kit::Point SliderGeometry::turned(kit::Point place) const {
  return slider_.isUpsideDown() ? kit::Point{.x = size().width - place.x, .y = size().height - place.y} : place;
}

double SliderGeometry::valueAt(kit::Point onScreen) const {
  const double length = trackLength();
  const double share = length > 0 ? (turned(onScreen).x - metrics::sliderKnobWidth / 2) / length : 0;
  return slider_.minValue() + share * (slider_.maxValue() - slider_.minValue());
}

kit::Size SliderGeometry::size() const { return slider_.bounds() == kit::Size{} ? metrics::slider : slider_.bounds(); }

double SliderGeometry::trackLength() const { return std::max(0.0, size().width - metrics::sliderKnobWidth); }

}  // namespace tarnwell::host_painted
