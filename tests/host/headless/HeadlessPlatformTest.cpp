#include "host/headless/HeadlessPlatform.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

#include "kit/application/Application.h"
#include "kit/application/StatusItem.h"
#include "kit/control/Window.h"

namespace tarnwell::host_headless {
namespace {

TEST(HeadlessPlatformTest, hearsOfADescriptorUntilItsWatchEnds) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  std::array<int, 2> ends = {};
  ASSERT_EQ(::pipe(ends.data()), 0);
  std::string heard;
  kit::Subscription watch = platform.watch(ends[0], [&] {
    std::array<char, 16> bytes = {};
    heard.append(bytes.data(), static_cast<std::size_t>(::read(ends[0], bytes.data(), bytes.size())));
  });
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, "");
  EXPECT_EQ(::write(ends[1], "one", 3), 3);
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, "one");
  watch.invalidate();
  EXPECT_EQ(::write(ends[1], "two", 3), 3);
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, "one");
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(HeadlessPlatformTest, theWindowThatCameLastHasTheKeyboardUntilItGoes) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  kit::Window first("first", "");
  kit::Window second("second", "");
  kit::Window quiet("quiet", "");
  quiet.setTakesKeyboard(false);
  for (kit::Window* window : {&first, &second, &quiet}) {
    window->attach(platform.host().peer(*window));
  }
  const auto key = [&] { return application->windows().keyWindow(); };
  first.setVisible(true);
  EXPECT_EQ(key(), &first);
  second.setVisible(true);
  quiet.setVisible(true);
  quiet.peer()->orderFront();
  EXPECT_EQ(key(), &second);
  first.peer()->orderFront();
  EXPECT_EQ(key(), &first);
  first.peer()->miniaturize();
  EXPECT_EQ(key(), &second);
  second.setVisible(false);
  EXPECT_EQ(key(), nullptr);
  platform.traits().isInBackground = true;
  second.setVisible(true);
  EXPECT_EQ(key(), nullptr);
}

TEST(HeadlessPlatformTest, notesWhatItIsAsked) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  platform.activateIgnoringOtherApps();
  platform.startAgainAtEnd();
  platform.openUrl("https://example.org");
  platform.showMainMenu(*application);
  platform.orderFrontStandardAboutPanel(*application);
  platform.makeUpdaterController(*application, {.startingUpdater = true});
  platform.makeUpdaterController(*application, {.startingUpdater = false});
  platform.terminate(*application);
  EXPECT_EQ(platform.journal().lines(),
            (std::vector<std::string>{"activate", "startAgainAtEnd", "open https://example.org", "main menu shown",
                                      "about panel", "updater controller made", "updater controller made, not started",
                                      "terminate"}));
}

TEST(HeadlessPlatformTest, notesWhatWindowsAreTold) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  kit::Window window("main", "");
  window.setContentSize({.width = 300.4, .height = 200});
  window.attach(platform.host().peer(window));
  platform.journal().clear();
  window.setContentSize({.width = 320.4, .height = 200});
  window.setVisible(true);
  window.peer()->orderFront();
  window.peer()->miniaturize();
  window.setVisible(false);
  window.setTakesKeyboard(false);
  window.setVisible(true);
  EXPECT_EQ(platform.journal().lines(),
            (std::vector<std::string>{"window main: 320 x 200", "window main: shown", "window main: in front",
                                      "window main: miniaturized", "window main: hidden",
                                      "window main: shown without the keyboard"}));
}

TEST(HeadlessPlatformTest, knowsTheIconsThatAreThere) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  {
    kit::StatusItem item(*application, kit::StatusItem::variableLength, "Icon");
    EXPECT_EQ(platform.statusItems(), std::vector<kit::StatusItem*>{&item});
    item.button()->setImage({.symbol = "star"});
  }
  EXPECT_TRUE(platform.statusItems().empty());
  EXPECT_EQ(platform.journal().lines(),
            (std::vector<std::string>{"status item \"Icon\": added", "status item \"Icon\": image star",
                                      "status item \"Icon\": removed"}));
}

TEST(OpenMenuTest, anEntryThatIsNotThereIsAFault) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  kit::Menu menu;
  menu.addItem(kit::MenuItem::create("Open", "open:", ""));
  OpenMenu open(*application, menu);
  open.choose("Open");
  EXPECT_DEATH(open.choose("Close"), "no entry \"Close\" in the open menu");
}

TEST(HeadlessHostTest, smallerFontsAreSmallerInEveryMeasure) {
  using enum kit::FontRole;
  const HeadlessHost host;
  constexpr std::array fonts = {caption, subheadline, body, headline, title};
  for (std::size_t i = 1; i < fonts.size(); ++i) {
    const kit::Measurement smaller = host.measureText("text", fonts.at(i - 1), std::nullopt);
    const kit::Measurement larger = host.measureText("text", fonts.at(i), std::nullopt);
    EXPECT_LT(smaller.size.width, larger.size.width);
    EXPECT_LT(smaller.size.height, larger.size.height);
    EXPECT_LT(smaller.firstBaseline, larger.firstBaseline);
    EXPECT_LT(host.capHeight(fonts.at(i - 1)), host.capHeight(fonts.at(i)));
  }
}

}  // namespace
}  // namespace tarnwell::host_headless
