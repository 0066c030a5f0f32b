#pragma once

namespace tarnwell::view::form_metrics {

// Distances in a grouped form, in points.

inline constexpr double padding = 20;
inline constexpr double sectionGap = 18;
inline constexpr double rowInset = 12;
inline constexpr double rowPadding = 9;
inline constexpr double leastRowHeight = 40;
inline constexpr double footerGap = 6;
inline constexpr double columnGap = 12;
inline constexpr double descriptionGap = 2;

}  // namespace tarnwell::view::form_metrics
