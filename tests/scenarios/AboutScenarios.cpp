#include <gtest/gtest.h>

#include "about/AboutWindow.h"
#include "app/Product.h"
#include "scenarios/PanelStage.h"
#include "view/scenes/Panel.h"

namespace tarnwell::scenarios {
namespace {

using Lines = std::vector<std::string>;

class AboutScenarios : public testing::Test {
 protected:
  void orderFront(bool takesKeyboard = true) {
    about::orderFrontAboutWindow(stage.application(), takesKeyboard);
    stage.system().settle();
  }
  /// Once it was shown.
  kit::Window& window() {
    return stage.application().single<view::Panel>([] { return std::shared_ptr<view::Panel>(); })->window();
  }
  kit::Window* keyWindow() { return stage.application().windows().keyWindow(); }

  PanelStage stage;
};

TEST_F(AboutScenarios, itSaysWhatTheProgramIs) {
  orderFront();
  const kit::Product product = app::product();
  EXPECT_EQ(window().title(), "About Tarnwell");
  EXPECT_EQ(stage.names(window(), kit::AccessibleRole::text),
            (Lines{"Tarnwell", "Version " + product.version, product.copyright}));
  EXPECT_EQ(stage.system().sizeOf(window()).width, 300);
}

TEST_F(AboutScenarios, thereIsOneWhichIsNoneOfTheListedWindows) {
  orderFront();
  const kit::Window* first = &window();
  orderFront();
  EXPECT_EQ(&window(), first);
  EXPECT_EQ(keyWindow(), first);
  EXPECT_TRUE(stage.application().windows().all().empty());
}

TEST_F(AboutScenarios, itTakesTheKeyboardOnlyWhereThatIsAsked) {
  orderFront(false);
  EXPECT_FALSE(window().takesKeyboard());
  orderFront();
  EXPECT_TRUE(window().takesKeyboard());
  EXPECT_EQ(keyWindow(), &window());
  EXPECT_TRUE(stage.system().isOnScreen(window()));
}

TEST_F(AboutScenarios, escapeClosesItAndItCanBeShownAgain) {
  orderFront();
  stage.key(window(), Key::escape);
  EXPECT_FALSE(stage.system().isOnScreen(window()));
  EXPECT_EQ(keyWindow(), nullptr);
  orderFront();
  EXPECT_TRUE(stage.system().isOnScreen(window()));
}

TEST_F(AboutScenarios, itIsClosedByTheMenuAndNotMinimized) {
  orderFront();
  auto& responders = stage.application().responders();
  EXPECT_FALSE(responders.sendAction(kit::selectors::performMiniaturize, nullptr, nullptr));
  EXPECT_TRUE(responders.sendAction(kit::selectors::performClose, nullptr, nullptr));
  EXPECT_FALSE(stage.system().isOnScreen(window()));
}

}  // namespace
}  // namespace tarnwell::scenarios
