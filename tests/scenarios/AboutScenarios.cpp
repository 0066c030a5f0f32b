#include <gtest/gtest.h>

#include "about/AboutWindow.h"
#include "app/Product.h"
#include "scenarios/PanelStage.h"

namespace tarnwell::scenarios {
namespace {

using Lines = std::vector<std::string>;

class AboutScenarios : public testing::Test {
 protected:
  void orderFront(bool takesKeyboard = true) {
    about::orderFrontAboutWindow(stage.application(), takesKeyboard);
    stage.system().settle();
  }
  kit::Window* keyWindow() { return stage.application().windows().keyWindow(); }

  PanelStage stage;
};

TEST_F(AboutScenarios, itSaysWhatTheProgramIs) {
  orderFront();
  const kit::Product product = app::product();
  EXPECT_EQ(keyWindow()->title(), "About Tarnwell");
  EXPECT_EQ(stage.names(*keyWindow(), kit::AccessibleRole::text),
            (Lines{"Tarnwell", "Version " + product.version, product.copyright}));
  EXPECT_EQ(stage.system().sizeOf(*keyWindow()).width, 300);
}

TEST_F(AboutScenarios, thereIsOneWhichIsNoneOfTheListedWindows) {
  orderFront();
  const kit::Window* first = keyWindow();
  orderFront();
  EXPECT_EQ(keyWindow(), first);
  EXPECT_TRUE(stage.application().windows().all().empty());
}

TEST_F(AboutScenarios, unaskedForTheKeyboardItLeavesItWhereItIs) {
  orderFront(false);
  EXPECT_EQ(keyWindow(), nullptr);
  orderFront();
  EXPECT_TRUE(keyWindow()->takesKeyboard());
  EXPECT_TRUE(stage.system().isOnScreen(*keyWindow()));
}

TEST_F(AboutScenarios, escapeClosesItAndItCanBeShownAgain) {
  orderFront();
  kit::Window& window = *keyWindow();
  stage.key(window, Key::escape);
  EXPECT_FALSE(stage.system().isOnScreen(window));
  EXPECT_EQ(keyWindow(), nullptr);
  orderFront();
  EXPECT_TRUE(stage.system().isOnScreen(window));
}

TEST_F(AboutScenarios, itIsClosedByTheMenuAndNotMinimized) {
  orderFront();
  const kit::Window& window = *keyWindow();
  auto& responders = stage.application().responders();
  EXPECT_FALSE(responders.sendAction(kit::selectors::performMiniaturize, nullptr, nullptr));
  EXPECT_TRUE(responders.sendAction(kit::selectors::performClose, nullptr, nullptr));
  EXPECT_FALSE(stage.system().isOnScreen(window));
}

}  // namespace
}  // namespace tarnwell::scenarios
