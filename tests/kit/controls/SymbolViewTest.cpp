#include "kit/controls/SymbolView.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

TEST(SymbolViewTest, aSetterTellsThePeerOnce) {
  ShownControl<SymbolView> symbol;
  for (int i = 0; i < 2; ++i) {
    symbol->setSymbol("timer");
    symbol->setColor(ColorRole::secondary);
  }
  EXPECT_EQ(symbol.told(), (Lines{"symbol: value", "symbol: style"}));
}

TEST(SymbolViewTest, itIsASquareCentredOnACapitalLetter) {
  ShownControl<SymbolView> symbol;
  EXPECT_EQ(symbol->measure(symbol.host(), {.width = 100}),
            (Measurement{.size = {.width = 18, .height = 18}, .firstBaseline = 13.5}));
}

}  // namespace
}  // namespace tarnwell::kit
