#include "standin/dock/model/ShelfLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tarnwell::standin {
namespace {

constexpr double roomForDots = 12;
constexpr double roomAbove = 8;

}  // namespace

ShelfLayout::ShelfLayout(std::vector<SlotKind> slots, double width) : slots_(std::move(slots)) {
  const auto icons = static_cast<double>(std::ranges::count(slots_, SlotKind::icon));
  const double separators = static_cast<double>(slots_.size()) - icons;
  const double room = width - 2 * gap - 2 * padding - separators * separatorWidth;
  constexpr double smallestIcon = 16;
  if (icons > 0) {
    iconSize_ = std::clamp(std::floor(room / icons) - spacing, smallestIcon, largestIcon);
  }
  double total = 0;
  for (const SlotKind slot : slots_) {
    total += widthAtRest(slot);
  }
  // On whole points, so that icons at rest are sharp.
  rest_.push_back(std::round((width - total) / 2));
  for (const SlotKind slot : slots_) {
    rest_.push_back(rest_.back() + widthAtRest(slot));
  }
}

double ShelfLayout::iconBottom() const { return gap + roomForDots; }

double ShelfLayout::shelfTop() const { return iconBottom() + iconSize_ + roomAbove; }

double ShelfLayout::widthAtRest(SlotKind kind) const {
  return kind == SlotKind::separator ? separatorWidth : iconSize_ + spacing;
}

std::vector<ShelfLayout::Placed> ShelfLayout::placed(const Attention& attention) const {
  const std::vector<double> bounds = edges(attention);
  std::vector<Placed> placed;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const double width = bounds[i + 1] - bounds[i];
    const double share = width / widthAtRest(slots_[i]);
    placed.push_back({.center = (bounds[i] + bounds[i + 1]) / 2,
                      .size = slots_[i] == SlotKind::separator ? width : iconSize_ * share});
  }
  return placed;
}

ShelfLayout::Ends ShelfLayout::ends(const Attention& attention) const {
  const std::vector<double> bounds = edges(attention);
  return {.left = bounds.front() - padding, .right = bounds.back() + padding};
}

std::optional<std::size_t> ShelfLayout::slotAt(double x) const {
  const auto after = std::ranges::upper_bound(rest_, x);
  if (after == rest_.begin() || after == rest_.end()) {
    return std::nullopt;
  }
  const auto slot = static_cast<std::size_t>(after - rest_.begin() - 1);
  return slots_[slot] == SlotKind::separator ? std::nullopt : std::optional(slot);
}

std::vector<double> ShelfLayout::edges(const Attention& attention) const {
  std::vector<double> grown = {rest_.front()};
  double shift = 0;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const double width = rest_[i + 1] - rest_[i];
    const double grownWidth =
        width * (slots_[i] == SlotKind::separator ? 1 : factorAt(rest_[i] + width / 2, attention));
    // How far the place below the pointer would have moved: all growth left of it, and its share of its own slot's.
    shift += (grownWidth - width) * std::clamp((attention.pointer - rest_[i]) / width, 0.0, 1.0);
    grown.push_back(grown.back() + grownWidth);
  }
  for (double& edge : grown) {
    edge -= shift;
  }
  return grown;
}

double ShelfLayout::factorAt(double x, const Attention& attention) const {
  const double reach = 2.5 * (iconSize_ + spacing);
  const double distance = std::abs(x - attention.pointer) / reach;
  if (distance >= 1) {
    return 1;
  }
  return 1 + growth * attention.strength * (1 + std::cos(distance * std::numbers::pi)) / 2;
}

}  // namespace tarnwell::standin
