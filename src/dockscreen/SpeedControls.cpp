#include "dockscreen/SpeedControls.h"

#include <numbers>

#include "core/DecimalText.h"
#include "dockscreen/NSSliderWrapper.h"
#include "dockscreen/TwoDecimals.h"
#include "view/controls/ranges/Stepper.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"
#include "view/controls/text/TextField.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::dockscreen {
namespace {

using view::View;

View caption(const std::string& text) { return View(view::Text{text}).font(kit::FontRole::caption); }

View icon(const std::string& title, const std::string& symbol) {
  return View(view::Label{.title = title, .symbol = symbol}).labelStyle(view::LabelStyle::iconOnly);
}

}  // namespace

View SpeedControls::body() const {
  const View row =
      view::HStack{.alignment = view::VerticalAlignment::firstTextBaseline, .children = {sliderGroup(), numberGroup()}};
  return View(view::VStack{.children = {row}})
      .onChange<double>(value.get(), [value = value, format = numberFormat.get()](const double& changed) {
        value.set(withTwoDecimals(changed, *format));
      });
}

View SpeedControls::sliderGroup() const {
  const View slider = View(NSSliderWrapper{.value = value, .minValue = 0, .maxValue = 1})
                          .rotation(std::numbers::pi)
                          .accessibilityLabel(name + " slider");
  const View ends = view::HStack{.children = {caption(leftLabel), view::Spacer{}, caption(rightLabel)}};
  return view::HStack{.alignment = view::VerticalAlignment::firstTextBaseline,
                      .spacing = 4,
                      .children = {icon("Slow", "tortoise.fill"), view::VStack{.children = {slider, ends}},
                                   icon("Instant", "hare.fill")}};
}

View SpeedControls::numberGroup() const {
  const View field = View(view::TextField{.title = "Speed (seconds)", .value = value})
                         .frame({.width = 50})
                         .accessibilityLabel(name + " seconds");
  const View stepper = View(view::Stepper{.title = core::decimalText(roundedToHundredths(value.get())),
                                          .value = value,
                                          .range = {.least = 0, .most = 100, .step = 0.01}})
                           .accessibilityLabel(name + " stepper");
  return view::VStack{.children = {view::HStack{.spacing = 4, .children = {field, stepper}}, caption("sec")}};
}

}  // namespace tarnwell::dockscreen
