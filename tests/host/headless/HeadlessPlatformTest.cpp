#include "host/headless/HeadlessPlatform.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/headless/JournalPeer.h"
#include "kit/application/Application.h"
#include "kit/application/StatusItem.h"
#include "kit/control/Window.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/Pane.h"

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

TEST(OpenMenuTest, hasItsEntriesInOrder) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  kit::Menu menu;
  menu.addItem(kit::MenuItem::create("Open", "open:", ""));
  menu.addItem(kit::MenuItem::separatorItem());
  menu.addItem(kit::MenuItem::create("Close", "close:", ""));
  EXPECT_EQ(OpenMenu(*application, menu).titles(), (std::vector<std::string>{"Open", "-", "Close"}));
}

TEST(HeadlessPlatformTest, whatStartedItIsKnownWhileItStartsAlone) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  std::vector<kit::FourCharCode> seen;
  struct Delegate : kit::Object {
    Delegate(HeadlessPlatform& platform, std::vector<kit::FourCharCode>& seen) {
      respondTo(kit::selectors::applicationDidFinishLaunching, [&](kit::Object*) {
        seen.push_back(platform.currentAppleEvent().value_or(kit::AppleEvent{}).eventID);
      });
    }
  };
  const auto delegate = std::make_shared<Delegate>(platform, seen);
  application->setDelegate(delegate);
  platform.launch(*application, {.eventID = kit::openApplicationEvent});
  EXPECT_EQ(seen, std::vector<kit::FourCharCode>{kit::openApplicationEvent});
  EXPECT_FALSE(platform.currentAppleEvent());
}

TEST(HeadlessHostTest, notesWhatAControlIsToldUnderItsKindAndName) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  HeadlessHost& host = platform.host();
  kit::Box box(kit::Box::Kind::group);
  kit::Pane pane;
  JournalPeer parent(host.journal(), "parent");
  host.peer(&box, parent)->show(kit::Aspect::visible);
  const auto peer = host.peer(&pane, parent);
  using enum kit::Aspect;
  for (const kit::Aspect aspect :
       {enabled, value, title, style, accessibleName, accessibleDescription, visible, level}) {
    peer->show(aspect);
  }
  EXPECT_EQ(host.journal().lines(),
            (std::vector<std::string>{"box: visible", "box: removed", "pane: enabled", "pane: value", "pane: title",
                                      "pane: style", "pane: accessible name", "pane: accessible description",
                                      "pane: visible", "pane: level"}));
}

TEST(HeadlessHostTest, eachFontHasMeasuresOfItsOwn) {
  using enum kit::FontRole;
  const HeadlessHost host;
  struct Row {
    kit::FontRole font;
    kit::Size size;
    double baseline;
    double capHeight;
  };
  for (const Row& row : {Row{caption, {5, 12}, 9, 7}, Row{subheadline, {6, 14}, 11, 8}, Row{body, {7, 16}, 12, 9},
                         Row{headline, {8, 18}, 14, 10}, Row{title, {10, 22}, 17, 13}}) {
    const kit::Measurement letter = host.measureText("\xc3\xa4", row.font, std::nullopt);
    EXPECT_EQ(letter.size.width, row.size.width);
    EXPECT_EQ(letter.size.height, row.size.height);
    EXPECT_EQ(letter.firstBaseline, row.baseline);
    EXPECT_EQ(host.capHeight(row.font), row.capHeight);
  }
}

TEST(HeadlessHostTest, textIsBrokenWhereItsWidthEnds) {
  const HeadlessHost host;
  const auto sizeIn = [&host](std::string_view text, double width) {
    const kit::Size size = host.measureText(text, kit::FontRole::body, width).size;
    return std::pair(size.width, size.height);
  };
  EXPECT_EQ(sizeIn("nine char", 63), std::pair(63.0, 16.0));
  EXPECT_EQ(sizeIn("nine char", 62), std::pair(62.0, 32.0));
  EXPECT_EQ(sizeIn("nine char", 30), std::pair(30.0, 48.0));
  EXPECT_EQ(sizeIn("two", 0), std::pair(7.0, 48.0));
  EXPECT_EQ(sizeIn("", 30), std::pair(0.0, 16.0));
}

}  // namespace
}  // namespace tarnwell::host_headless
