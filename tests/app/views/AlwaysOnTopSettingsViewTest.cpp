#include <gtest/gtest.h>

#include "app/views/AlwaysOnTopSettingsView.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "kit/application/SettingsShortcut.h"
#include "kit/control/Window.h"
#include "view/Dump.h"
#include "view/controls/buttons/SettingsLink.h"
#include "view/controls/text/Text.h"
#include "view/scenes/HostedWindow.h"
#include "view/scenes/SceneRunner.h"
#include "view/state/State.h"
#include "view/tree/Composite.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::app {
namespace {

using view::View;

constexpr int floatingLevel = 3;

struct Screen {
  void show(const View& content) {
    window = std::make_unique<view::HostedWindow>(application->turn(), platform.host(),
                                                  view::HostedWindow::Content{.identifier = "test", .view = content});
    window->open();
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::unique_ptr<view::HostedWindow> window;
};

/// Shows its number, and a wrapper around the same number.
struct Counting {
  std::shared_ptr<view::Binding<int>> outlet;
  view::State<int> count = 1;

  auto stored() { return std::tie(count); }
  View body() const {
    *outlet = count.binding();
    return AlwaysOnTopSettingsView{.content = view::Text{std::to_string(count.get())}};
  }
};

TEST(AlwaysOnTopSettingsView, putsItsWindowBackToTheNormalLevelOneTurnLater) {
  Screen screen;
  screen.show(AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}});
  screen.window->window().setLevel(floatingLevel);
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_EQ(screen.window->window().level(), 0);
}

TEST(AlwaysOnTopSettingsView, setsTheLevelOnce) {
  Screen screen;
  screen.show(AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}});
  screen.platform.runUntilIdle(*screen.application);
  screen.window->window().setLevel(floatingLevel);
  screen.window->close();
  screen.window->open();
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_EQ(screen.window->window().level(), floatingLevel);
}

TEST(AlwaysOnTopSettingsView, doesNothingOutsideOfAWindow) {
  Screen screen;
  AlwaysOnTopSettingsView::Context context{.coordinator = nullptr, .host = screen.platform.host()};
  const auto hostingView = AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}}.makeNSView(context);
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_EQ(hostingView->window(), nullptr);
}

TEST(AlwaysOnTopSettingsView, comesTooLateIntoAWindowToSetItsLevel) {
  Screen screen;
  AlwaysOnTopSettingsView::Context context{.coordinator = nullptr, .host = screen.platform.host()};
  const auto hostingView = AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}}.makeNSView(context);
  screen.platform.runUntilIdle(*screen.application);
  kit::Window window("late", {});
  window.setLevel(floatingLevel);
  window.setControls({hostingView.get()});
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_EQ(window.level(), floatingLevel);
  window.setControls({});
}

TEST(AlwaysOnTopSettingsView, outlivedByItsWorkDoesNothing) {
  Screen screen;
  AlwaysOnTopSettingsView::Context context{.coordinator = nullptr, .host = screen.platform.host()};
  AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}}.makeNSView(context).reset();
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_TRUE(screen.application->events().isEmpty());
}

TEST(AlwaysOnTopSettingsView, keepsTheContentItWasMadeWith) {
  Screen screen;
  const auto outlet = std::make_shared<view::Binding<int>>();
  screen.show(Counting{.outlet = outlet});
  screen.application->turn().perform([&] { outlet->set(2); });
  const auto controls = screen.window->tree().controls();
  ASSERT_EQ(controls.size(), 2U);
  const auto& hosting = dynamic_cast<view::HostingView&>(*controls.front());
  EXPECT_EQ(view::dump(hosting.tree()->root()), "Text \"1\"\n");
}

TEST(AlwaysOnTopSettingsView, isAsLargeAsItsContent) {
  Screen screen;
  screen.show(AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}});
  EXPECT_EQ(screen.window->window().contentSize(), (kit::Size{.width = 42, .height = 16}));
}

const kit::KeyEvent commandComma{.charactersIgnoringModifiers = ",", .modifierFlags = kit::commandFlag};

/// An application whose settings are the wrapper, and whose windows come up at a floating level.
struct FloatingSettings {
  FloatingSettings() {
    scenes.install({view::MenuBarExtra{.title = "extra", .content = view::SettingsLink{.label = view::Text{"Open"}}},
                    view::Settings{.content = AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}}}});
  }

  void chooseFromStatusMenu() {
    platform.setMenuScript([](host_headless::OpenMenu& menu) { menu.choose("Open"); });
    platform.statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  view::SceneRunner scenes{*application, {}};
  kit::Subscription lifting = application->windows().observe([](const kit::WindowList& changed) {
    for (kit::Window* window : changed.all()) {
      window->setLevel(floatingLevel);
    }
  });
};

struct WayIn {
  const char* name;
  void (*open)(FloatingSettings& settings);
};

std::ostream& operator<<(std::ostream& out, const WayIn& way) { return out << way.name; }

class AlwaysOnTopSettingsWayIn : public testing::TestWithParam<WayIn> {};

TEST_P(AlwaysOnTopSettingsWayIn, theWorkOfOneTurnLaterFindsItsWindow) {
  FloatingSettings settings;
  GetParam().open(settings);
  settings.platform.runUntilIdle(*settings.application);
  ASSERT_NE(settings.scenes.settingsWindow(), nullptr);
  EXPECT_EQ(settings.scenes.settingsWindow()->window().level(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    waysIn, AlwaysOnTopSettingsWayIn,
    testing::Values(WayIn{"postedKey",
                          [](FloatingSettings& settings) { kit::postSettingsShortcut(*settings.application); }},
                    WayIn{"pressedKey",
                          [](FloatingSettings& settings) {
                            settings.application->responders().performKeyEquivalent(commandComma);
                          }},
                    WayIn{"mainMenu",
                          [](FloatingSettings& settings) {
                            settings.application->responders().choose(
                                settings.application->responders().itemMatching(commandComma));
                          }},
                    WayIn{"statusMenu", [](FloatingSettings& settings) { settings.chooseFromStatusMenu(); }},
                    WayIn{"code", [](FloatingSettings& settings) { settings.scenes.openSettings(); }},
                    WayIn{"queuedWork",
                          [](FloatingSettings& settings) {
                            settings.application->events().async([&settings] { settings.scenes.openSettings(); });
                          }}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace tarnwell::app
