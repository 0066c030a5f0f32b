#pragma once

#include "kit/host/Geometry.h"

namespace tarnwell::host_painted::metrics {

// In points.

inline constexpr kit::Size slider = {.width = 128, .height = 24};
inline constexpr double sliderLeastWidth = 60;
inline constexpr double sliderKnobWidth = 10;
inline constexpr double tickWidth = 2;
inline constexpr double tickHeight = 5;
// The least height of a field or a button, and what stays free above and below a text that is higher.
inline constexpr double fieldHeight = 22;
inline constexpr double fieldPadding = 2;
inline constexpr double buttonPadding = 3;
inline constexpr double fieldIdealWidth = 80;
inline constexpr double fieldInset = 7;
inline constexpr kit::Size stepper = {.width = 16, .height = 22};
inline constexpr kit::Size toggle = {.width = 38, .height = 22};
inline constexpr double checkBoxSide = 15;
inline constexpr double checkBoxGap = 7;  // From the box to its title.
inline constexpr kit::Size progressBar = {.width = 160, .height = 6};
inline constexpr double buttonHeight = 24;
inline constexpr double buttonInset = 14;
inline constexpr double buttonLeastWidth = 64;
inline constexpr double helpButtonSide = 22;
// A tab with a text of the usual size; all of it grows with a larger one.
inline constexpr kit::Size tab = {.width = 72, .height = 48};
inline constexpr double tabTitleTop = 29;
inline constexpr double tabTitleBelow = 4;
inline constexpr double tabBarInset = 6;
/// Leaves room for a scroll bar that lies over it.
inline constexpr double richTextInset = 12;
inline constexpr double richTextIdealWidth = 320;
inline constexpr double popUpInset = 10;
inline constexpr double popUpSymbolSide = 16;
inline constexpr double popUpGap = 6;
inline constexpr double popUpArrowWidth = 18;

}  // namespace tarnwell::host_painted::metrics
