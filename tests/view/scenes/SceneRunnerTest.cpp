#include "view/scenes/SceneRunner.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/headless/HeadlessPlatform.h"
#include "view/Counter.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/SettingsLink.h"
#include "view/controls/text/Text.h"

namespace tarnwell::view {
namespace {

using Lines = std::vector<std::string>;

class SceneRunnerTest : public testing::Test {
 protected:
  Lines identifiers() {
    Lines found;
    for (const kit::Window* window : application->windows().all()) {
      found.push_back(window->identifier());
    }
    return found;
  }

  /// Entries of a menu of the main menu; "(title)" where it cannot be chosen.
  Lines entriesOf(const std::string& title) {
    const auto& menus = application->mainMenu().items();
    const auto menu = std::ranges::find(menus, title, [](const auto& item) { return item->title(); });
    Lines lines;
    for (const auto& item : (*menu)->submenu()->items()) {
      const std::string line = item->isSeparator() ? "-" : item->title();
      lines.push_back(item->isSeparator() || application->responders().canChoose(*item) ? line : "(" + line + ")");
    }
    return lines;
  }

  host_headless::HeadlessPlatform platform{{.name = "Tarnwell"}};
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  SceneRunner scenes{*application, {}};
};

TEST_F(SceneRunnerTest, opensAWindowOfTheFirstGroupAlone) {
  scenes.install({Settings{.content = Text{"settings"}}, WindowGroup{.id = "first", .content = Text{"a"}},
                  WindowGroup{.id = "second", .content = Text{"b"}}});
  EXPECT_EQ(identifiers(), Lines{"first"});
}

TEST_F(SceneRunnerTest, groupsThatAreNotReplacedKeepTheirStandardEntries) {
  scenes.install({WindowGroup{.id = "first", .content = Text{"a"}}});
  EXPECT_EQ(entriesOf("Tarnwell"), (Lines{"About Tarnwell", "-", "Settings…", "-", "Quit Tarnwell"}));
  EXPECT_EQ(entriesOf("File"), (Lines{"(New Window)", "-", "Close"}));
  EXPECT_EQ(entriesOf("View"), Lines{});
  EXPECT_EQ(entriesOf("Help"), Lines{});
}

TEST_F(SceneRunnerTest, commandsStandWhereTheGroupsStoodThatTheyReplace) {
  scenes.install(
      {WindowGroup{.id = "first",
                   .content = Text{"a"},
                   .commands = {{.replacing = CommandGroupPlacement::newItem, .content = Button{.title = "Open"}},
                                {.replacing = CommandGroupPlacement::appSettings}}}});
  EXPECT_EQ(entriesOf("Tarnwell"), (Lines{"About Tarnwell", "-", "Quit Tarnwell"}));
  EXPECT_EQ(entriesOf("File"), (Lines{"Open", "-", "Close"}));
}

TEST_F(SceneRunnerTest, closedSettingsLeaveTheGroupsWindowsAlone) {
  int drawn = 0;
  Binding<int> remote;
  const auto numbered = [&](const State<int>& number) -> View {
    ++drawn;
    remote = number.binding();
    return Text{std::to_string(number.get())};
  };
  scenes.install(
      {WindowGroup{.id = "first", .content = Numbered{.make = numbered}}, Settings{.content = Text{"settings"}}});
  scenes.openSettings();
  scenes.settingsWindow()->window().performClose();
  const int before = drawn;
  application->turn().perform([&remote] { remote.set(1); });
  EXPECT_EQ(drawn, before + 1);
}

TEST_F(SceneRunnerTest, anExtraIsDrawnAnewEachTimeItIsOpened) {
  int drawn = 0;
  const auto titleOfNow = [&drawn](const State<int>& /*state*/) -> View {
    ++drawn;
    return Button{.title = "drawn " + std::to_string(drawn)};
  };
  scenes.install({MenuBarExtra{.title = "extra", .content = Numbered{.make = titleOfNow}}});
  Lines seen;
  platform.setMenuScript([&seen](auto& menu) { seen.push_back(menu.titles().front()); });
  for (int i = 0; i < 2; ++i) {
    platform.statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
  }
  EXPECT_EQ(seen, (Lines{"drawn 2", "drawn 3"}));
}

TEST_F(SceneRunnerTest, aLinkToTheSettingsDoesNothingWithoutThem) {
  scenes.install({WindowGroup{.id = "first", .content = SettingsLink{.label = Text{"Settings"}}}});
  scenes.openSettings();
  EXPECT_EQ(scenes.settingsWindow(), nullptr);
  EXPECT_EQ(identifiers(), Lines{"first"});
}

TEST_F(SceneRunnerTest, dismissesTheWindowOfThatGroupAndNoOther) {
  scenes.install({WindowGroup{.id = "first", .content = Text{"a"}}, Settings{.content = Text{"settings"}}});
  scenes.openSettings();
  scenes.dismissWindow("second");
  scenes.dismissWindow(SceneRunner::settingsWindowIdentifier);
  EXPECT_EQ(identifiers(), (Lines{"first", SceneRunner::settingsWindowIdentifier}));
  scenes.dismissWindow("first");
  scenes.dismissWindow("first");
  EXPECT_EQ(identifiers(), Lines{SceneRunner::settingsWindowIdentifier});
}

TEST_F(SceneRunnerTest, thereIsOneSettingsWindow) {
  scenes.install({Settings{.content = Text{"settings"}}});
  scenes.openSettings();
  const HostedWindow* window = scenes.settingsWindow();
  scenes.settingsWindow()->window().performClose();
  EXPECT_EQ(identifiers(), Lines{});
  scenes.openSettings();
  scenes.openSettings();
  EXPECT_EQ(scenes.settingsWindow(), window);
  EXPECT_EQ(identifiers(), Lines{SceneRunner::settingsWindowIdentifier});
}

TEST_F(SceneRunnerTest, aWindowThatIsOpenAlreadyComesToTheFront) {
  scenes.install({WindowGroup{.id = "first", .content = Text{"a"}}, Settings{.content = Text{"settings"}}});
  scenes.openSettings();
  application->windows().all().front()->peer()->orderFront();
  EXPECT_EQ(application->windows().keyWindow()->identifier(), "first");
  platform.journal().clear();
  scenes.openSettings();
  EXPECT_EQ(application->windows().keyWindow(), &scenes.settingsWindow()->window());
  EXPECT_EQ(platform.journal().lines(), Lines{"window com_apple_SwiftUI_Settings_window: in front"});
}

TEST_F(SceneRunnerTest, aWindowThatComesBehindAnotherProgramHasNoKeys) {
  platform.traits().isInBackground = true;
  scenes.install({Settings{.content = Text{"settings"}}});
  scenes.openSettings();
  EXPECT_EQ(identifiers(), Lines{SceneRunner::settingsWindowIdentifier});
  EXPECT_EQ(application->windows().keyWindow(), nullptr);
  scenes.openSettings();
  EXPECT_EQ(application->windows().keyWindow(), nullptr);
}

}  // namespace
}  // namespace tarnwell::view
