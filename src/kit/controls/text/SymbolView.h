#pragma once

#include "kit/control/Control.h"
#include "kit/host/TextStyle.h"

namespace tarnwell::kit {

/// A symbol of the system's set, by its name, drawn in the colour of the text around it; or the application's own icon.
class SymbolView final : public Control {
 public:
  /// The name of the application's icon, which has colours of its own.
  static constexpr const char* applicationIcon = "NSApplicationIcon";

  /// The side of the square, in points, that a symbol has whatever its own shape, so that texts beside symbols line up.
  static constexpr double usualSide = 18;

  const std::string& symbol() const { return symbol_; }
  void setSymbol(std::string name) { set(symbol_, std::move(name), Aspect::value); }

  double side() const { return side_; }
  void setSide(double side) { set(side_, side, Aspect::style); }

  ColorRole color() const { return color_; }
  void setColor(ColorRole color) { set(color_, color, Aspect::style); }

  AnyControl any() override { return this; }

 protected:
  /// Decoration unless it has a name: beside a title that says the same it needs none.
  Accessible ownAccessible() const override {
    return {.role = accessibleName().empty() ? AccessibleRole::decoration : AccessibleRole::image};
  }
  std::vector<Aspect> aspects() const override { return {Aspect::value, Aspect::style}; }

 private:
  std::string symbol_;
  double side_ = usualSide;
  ColorRole color_ = ColorRole::primary;
};

}  // namespace tarnwell::kit
