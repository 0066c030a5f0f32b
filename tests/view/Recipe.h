#pragma once

#include <random>
#include <vector>

#include "view/values/View.h"

namespace tarnwell::view {

/// How a small view without a state of its own is made. It can be changed a little, which a view cannot.
struct Recipe {
  enum class Kind {
    text,
    toggle,
    button,
    label,
    empty,
    spacer,
    row,
    column,
    section,
    labeledRow,
    form,
    frame,
    fixedSize,
    background,
    font,
    disabled,
    iconOnly,
    turned,
    watched,
    composite,
  };

  Kind kind = Kind::empty;
  int choice = 0;  ///< Picks a text, a length, an alignment.
  std::vector<Recipe> parts = {};

  View view() const;
};

/// Thinks up recipes, the same ones from the same seed.
class Cook {
 public:
  explicit Cook(unsigned seed) : random_(seed) {}

  /// With at most `depth` containers and modifiers in one another.
  Recipe invent(int depth);
  /// Changes one place of the recipe: another choice, another part, one more, one less.
  void vary(Recipe& recipe, int depth);

 private:
  int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  void varyHere(Recipe& recipe, int depth);

  std::mt19937 random_;
};

}  // namespace tarnwell::view
