#include "dockscreen/HelpButton.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessHost.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"

namespace tarnwell::dockscreen {
namespace {

class HelpButtonTest : public testing::Test {
 protected:
  HelpButton noting(const std::string& title, const std::string& note) {
    return {.title = title, .action = [this, note] { notes.push_back(note); }};
  }

  view::Lines notes = {};
};

TEST_F(HelpButtonTest, aClickRunsTheActionOnce) {
  const view::Stage stage{noting("", "help")};
  stage.first<kit::Button>().click();
  EXPECT_EQ(notes, view::Lines{"help"});
}

TEST_F(HelpButtonTest, itIsRoundWithOrWithoutATitle) {
  for (const auto* title : {"", "More"}) {
    view::Stage stage{noting(title, "help")};
    stage.open();
    EXPECT_EQ(stage.first<kit::Button>().title(), title);
    EXPECT_EQ(stage.first<kit::Button>().bezelStyle(), kit::Button::BezelStyle::help);
    EXPECT_EQ(stage.window().contentSize(), (kit::Size{22, 22}));
  }
}

TEST_F(HelpButtonTest, anotherTitleShowsAndAnotherActionDoesNot) {
  view::Stage stage{noting("first", "first")};
  stage.show(noting("second", "second"));
  EXPECT_EQ(stage.dump(), "Button \"second\"\n");
  stage.first<kit::Button>().click();
  EXPECT_EQ(notes, view::Lines{"first"});
}

TEST_F(HelpButtonTest, itIsMadeWithItsTitle) {
  const HelpButton help = noting("More", "help");
  const host_headless::HeadlessHost host;
  HelpButton::Context context{.coordinator = help.makeCoordinator(), .host = host};
  EXPECT_EQ(help.makeNSView(context)->title(), "More");
}

TEST_F(HelpButtonTest, aButtonMadeAnewHasTheNewAction) {
  view::Stage stage{noting("", "first")};
  stage.show(view::Text{"away"});
  stage.show(noting("", "second"));
  stage.first<kit::Button>().click();
  EXPECT_EQ(notes, view::Lines{"second"});
}

TEST_F(HelpButtonTest, aDisabledOneIgnoresClicks) {
  const view::Stage stage{view::View(noting("", "help")).disabled(true)};
  stage.first<kit::Button>().click();
  EXPECT_EQ(notes, view::Lines{});
}

TEST(HelpButtonDeathTest, theCoordinatorsPlainInitialiserIsNotSupported) {
  EXPECT_DEATH(HelpButton::Coordinator(),
               "use of unimplemented initializer 'init\\(\\)' for class 'HelpButton.Coordinator'");
}

}  // namespace
}  // namespace tarnwell::dockscreen
