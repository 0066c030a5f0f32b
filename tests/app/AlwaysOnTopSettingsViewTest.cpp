#include <gtest/gtest.h>

#include "app/AlwaysOnTopSettingsView.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/Application.h"
#include "kit/Window.h"
#include "view/Composite.h"
#include "view/Dump.h"
#include "view/HostedWindow.h"
#include "view/MountedNode.h"
#include "view/State.h"
#include "view/Text.h"

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
  AlwaysOnTopSettingsView::Context context;
  const auto hostingView = AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}}.makeNSView(context);
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_EQ(hostingView->window(), nullptr);
}

TEST(AlwaysOnTopSettingsView, comesTooLateIntoAWindowToSetItsLevel) {
  Screen screen;
  AlwaysOnTopSettingsView::Context context;
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
  AlwaysOnTopSettingsView::Context context;
  AlwaysOnTopSettingsView{.content = view::Text{"Hosted"}}.makeNSView(context).reset();
  screen.platform.runUntilIdle(*screen.application);
  EXPECT_FALSE(screen.application->hasWork());
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

}  // namespace
}  // namespace tarnwell::app
