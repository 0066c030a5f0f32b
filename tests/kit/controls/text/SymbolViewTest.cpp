#include "kit/controls/text/SymbolView.h"

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

}  // namespace
}  // namespace tarnwell::kit
