#pragma once

#include "kit/controls/Control.h"
#include "kit/host/TextStyle.h"

namespace tarnwell::kit {

/// A symbol of the system's set, by its name, drawn in the colour of the text around it.
class SymbolView final : public Control {
 public:
  /// Every symbol has a square of that side, in points, whatever its own shape, so that texts beside symbols line up.
  static constexpr double side = 18;

  const std::string& symbol() const { return symbol_; }
  void setSymbol(std::string name);

  ColorRole color() const { return color_; }
  void setColor(ColorRole color);

  std::unique_ptr<Peer> makePeer(Host& host, Peer& parent) override;

 protected:
  /// Decoration unless it has a name: beside a title that says the same it needs none.
  Accessible ownAccessible() const override;
  std::vector<Aspect> aspects() const override { return {Aspect::value, Aspect::style}; }

 private:
  std::string symbol_;
  ColorRole color_ = ColorRole::primary;
};

}  // namespace tarnwell::kit
