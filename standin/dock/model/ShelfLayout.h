#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "standin/dock/model/Geometry.h"

namespace tarnwell::standin {

enum class SlotKind { icon, separator };

/// The places of icons on a shelf, in points from the left and from the bottom of the screen upwards; and how they grow
/// under the pointer. What is below the pointer stays below it, so that the shelf swells around it.
class ShelfLayout {
 public:
  static constexpr double largestIcon = 52;
  static constexpr double growth = 0.36;  // of the icon right below the pointer

  /// A shelf in the middle of `width` points, with smaller icons when there are too many for it.
  ShelfLayout(std::vector<SlotKind> slots, double width);

  /// How large icons are at rest.
  double iconSize() const { return iconSize_; }

  /// The heights above the bottom of the screen.
  double shelfBottom() const { return gap; }
  double iconBottom() const;
  double shelfTop() const;
  /// What no icon reaches above, however it grows.
  double grownTop() const { return iconBottom() + iconSize_ * (1 + growth); }

  struct Placed {
    double center = 0;
    double size = 0;  // of the icon's square; the width of a separator
  };

  /// Where the pointer is, and how much of the growth has happened yet: 0 at rest, 1 in full.
  struct Attention {
    double pointer = 0;
    double strength = 0;
  };

  std::vector<Placed> placed(const Attention& attention) const;

  /// The ends of the shelf below them.
  struct Ends {
    double left = 0;
    double right = 0;
  };
  Ends ends(const Attention& attention) const;

  /// The ends of a slot at rest.
  Ends slot(std::size_t slot) const { return {.left = rest_[slot], .right = rest_[slot + 1]}; }

  /// Which slot is at a place; nothing on a separator or beside the shelf. Growing does not change the answer.
  std::optional<std::size_t> slotAt(double x) const;

 private:
  static constexpr double gap = 6;  // between shelf and screen edge
  static constexpr double spacing = 8;
  static constexpr double padding = 7;  // between the outermost slots and the shelf's ends
  static constexpr double separatorWidth = 17;

  double widthAtRest(SlotKind kind) const;
  // The edges of the slots, one more than there are slots.
  std::vector<double> edges(const Attention& attention) const;
  double factorAt(double x, const Attention& attention) const;

  std::vector<SlotKind> slots_;
  double iconSize_ = largestIcon;
  std::vector<double> rest_;  // the edges at rest
};

}  // namespace tarnwell::standin
