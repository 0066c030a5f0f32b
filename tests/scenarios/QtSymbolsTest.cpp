#include <gtest/gtest.h>

#include <set>
#include <string>

#include "app/HeadlessApplication.h"
#include "fixtures/StandardOutputCapture.h"
#include "host/qt/look/Symbols.h"
#include "kit/application/StatusItem.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/text/SymbolView.h"

namespace tarnwell::scenarios {
namespace {

using Names = std::set<std::string>;

void addSymbolsOf(const kit::Control& control, Names& names) {
  if (const auto* symbol = dynamic_cast<const kit::SymbolView*>(&control)) {
    names.insert(symbol->symbol());
  } else if (const auto* popUp = dynamic_cast<const kit::PopUpButton*>(&control)) {
    for (const auto& item : popUp->items()) {
      names.insert(item.symbol);
    }
  } else if (const auto* bar = dynamic_cast<const kit::TabBar*>(&control)) {
    for (const auto& tab : bar->items()) {
      names.insert(tab.symbol);
    }
  }
}

Names symbolsOfSettings(app::HeadlessApplication& application) {
  Names names;
  for (const kit::Control* control : application.settings().controls()) {
    addSymbolsOf(*control, names);
  }
  return names;
}

void expectDrawings(const Names& names) {
  for (const std::string& name : names) {
    EXPECT_TRUE(host_qt::Symbols::has(name)) << '"' << name << '"';
  }
}

TEST(QtSymbols, everySymbolOfTheDockTabAndOfTheTabsHasADrawing) {
  const fixtures::StandardOutputCapture output;
  app::HeadlessApplication application;
  application.start();
  const Names names = symbolsOfSettings(application);
  EXPECT_TRUE(names.contains("dock.arrow.up.rectangle"));
  EXPECT_TRUE(names.contains("tornado"));
  EXPECT_TRUE(names.contains("gear"));
  expectDrawings(names);
}

TEST(QtSymbols, everySymbolOfTheGeneralTabHasADrawing) {
  const fixtures::StandardOutputCapture output;
  app::HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  expectDrawings(symbolsOfSettings(application));
}

TEST(QtSymbols, theMenuBarExtrasSymbolHasADrawing) {
  const fixtures::StandardOutputCapture output;
  app::HeadlessApplication application;
  application.start();
  const std::string name = application.platform().statusItems().at(0)->button()->image().symbol;
  EXPECT_EQ(name, "dock.rectangle");
  EXPECT_TRUE(host_qt::Symbols::has(name));
}

}  // namespace
}  // namespace tarnwell::scenarios
