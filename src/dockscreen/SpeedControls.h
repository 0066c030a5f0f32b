#pragma once

#include <string>
#include <tuple>

#include "view/state/Environment.h"
#include "view/values/Binding.h"
#include "view/values/EnvironmentKeys.h"
#include "view/values/View.h"

namespace tarnwell::dockscreen {

/// The control column of a speed row: a turned slider between a tortoise and a hare, and the number with a stepper.
/// The slider covers 0 to 1 second, its long end on the left; field and stepper go on to 100. Needs a number format in
/// its environment.
struct SpeedControls {
  std::string name = {};        ///< The row's label, for screen readers to tell the twins apart.
  std::string leftLabel = {};   ///< Under the slider's long end.
  std::string rightLabel = {};  ///< Under its short end.
  view::Binding<double> value = {};
  view::Environment<view::NumberFormatKey> numberFormat = {};

  auto stored() { return std::tie(numberFormat); }
  view::View body() const;

 private:
  view::View sliderGroup() const;
  view::View numberGroup() const;
};

}  // namespace tarnwell::dockscreen
