#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/control/Control.h"
#include "kit/controls/buttons/Button.h"
#include "kit/menus/Menu.h"
#include "settingsaccess/OpenSettingsInjectionView.h"
#include "settingsaccess/PrePostActionsButtonStyle.h"
#include "settingsaccess/PrePostSettingsLink.h"
#include "settingsaccess/SettingsDelegate.h"
#include "view/Dump.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/SettingsLink.h"
#include "view/controls/text/Text.h"
#include "view/scenes/HostedWindow.h"
#include "view/tree/MountedNode.h"
#include "view/tree/MountedTree.h"

namespace tarnwell::settingsaccess {
namespace {

using Lines = std::vector<std::string>;
using view::View;

/// A view in a window, on a system of a given version, with a settings window that is only noted.
class Screen {
 public:
  explicit Screen(int major) { platform_.traits().systemVersion = {.major = major}; }

  void show(const View& content) {
    window_ = std::make_unique<view::HostedWindow>(
        application->turn(), platform_.host(),
        view::HostedWindow::Content{.identifier = "test", .view = content, .environment = environment()});
    window_->open();
  }

  view::EnvironmentValues environment() {
    return view::EnvironmentValues().with<view::OpenSettingsSceneKey>([this] { steps.emplace_back("settings"); });
  }

  void runQueue() { platform_.runUntilIdle(*application); }

  kit::Button& button() {
    for (kit::Control* control : window_->tree().controls()) {
      if (auto* button = dynamic_cast<kit::Button*>(control)) {
        return *button;
      }
    }
    throw std::logic_error("there is no button");
  }

  view::HostedWindow& window() { return *window_; }

  Lines steps = {};

 private:
  host_headless::HeadlessPlatform platform_;

 public:
  std::shared_ptr<kit::Application> application = kit::Application::create(platform_);

 private:
  std::unique_ptr<view::HostedWindow> window_;
};

PrePostActionsButtonStyleModifier noting(Screen& screen) {
  return {.preAction = [&screen] { screen.steps.emplace_back("before"); },
          .postAction = [&screen] { screen.steps.emplace_back("after"); }};
}

View pressable(Screen& screen, kit::Button::Role role = kit::Button::Role::none) {
  return view::Button{.title = "Press", .role = role, .action = [&screen] { screen.steps.emplace_back("own"); }};
}

TEST(PrePostActionsButtonStyle, runsBeforeOwnAndAfterInThisOrder) {
  Screen screen(14);
  screen.show(noting(screen).body(pressable(screen)));
  screen.button().click();
  EXPECT_EQ(screen.steps, (Lines{"before", "own", "after"}));
  EXPECT_EQ(screen.button().title(), "Press");
}

TEST(PrePostActionsButtonStyle, needsNeitherAction) {
  Screen screen(14);
  screen.show(PrePostActionsButtonStyleModifier{}.body(pressable(screen)));
  screen.button().click();
  EXPECT_EQ(screen.steps, (Lines{"own"}));
}

TEST(PrePostActionsButtonStyle, handsOutThePressOneTurnLaterWithoutTheOtherActions) {
  Screen screen(14);
  std::optional<kit::Action> press;
  auto modifier = noting(screen);
  modifier._performAction = {.get = [&press] { return press; },
                             .set = [&press](const std::optional<kit::Action>& action) { press = action; }};
  screen.show(modifier.body(pressable(screen)));
  EXPECT_FALSE(press.has_value());
  screen.runQueue();
  ASSERT_TRUE(press.has_value());
  (*press)();
  EXPECT_EQ(screen.steps, (Lines{"own"}));
}

TEST(PrePostActionsButtonStyle, keepsTheRoleFromSystem12On) {
  Screen newer(12);
  newer.show(noting(newer).body(pressable(newer, kit::Button::Role::destructive)));
  EXPECT_EQ(newer.button().role(), kit::Button::Role::destructive);
  Screen older(11);
  older.show(noting(older).body(pressable(older, kit::Button::Role::destructive)));
  EXPECT_EQ(older.button().role(), kit::Button::Role::none);
}

TEST(PrePostSettingsLink, opensTheSettingsBetweenItsActionsOnSystem14) {
  Screen screen(14);
  screen.show(PrePostSettingsLink{.label = view::Text{"Settings..."},
                                  .preAction = [&screen] { screen.steps.emplace_back("before"); },
                                  .postAction = [&screen] { screen.steps.emplace_back("after"); }});
  EXPECT_EQ(screen.button().title(), "Settings...");
  screen.button().click();
  EXPECT_EQ(screen.steps, (Lines{"before", "settings", "after"}));
}

TEST(PrePostSettingsLink, doesTheSameAsAnEntryOfAMenu) {
  for (const int system : {13, 14}) {
    Screen screen(system);
    const auto delegate = std::make_shared<SettingsDelegate>(std::set<kit::Selector>{"showSettingsWindow:"});
    screen.application->setDelegate(delegate);
    kit::Menu menu("menu");
    view::MountedTree tree(screen.application->turn(), menu);
    screen.application->turn().perform([&] {
      tree.mount(PrePostSettingsLink{.label = view::Text{"Settings..."},
                                     .preAction = [&screen] { screen.steps.emplace_back("before"); },
                                     .postAction = [&screen] { screen.steps.emplace_back("after"); }},
                 screen.environment());
    });
    ASSERT_EQ(menu.items().size(), 1U);
    EXPECT_EQ(menu.items().front()->title(), "Settings...");
    screen.application->turn().perform([&] { menu.items().front()->handler()(); });
    EXPECT_EQ(screen.steps, system == 14 ? (Lines{"before", "settings", "after"}) : (Lines{"before", "after"}));
    EXPECT_EQ(delegate->received, system == 14 ? Lines{} : Lines{"showSettingsWindow:"});
  }
}

TEST(PrePostSettingsLink, asksTheDelegateOnSystem13) {
  Screen screen(13);
  const auto delegate = std::make_shared<SettingsDelegate>(std::set<kit::Selector>{"showSettingsWindow:"});
  screen.application->setDelegate(delegate);
  screen.show(PrePostSettingsLink{.label = view::Text{"Settings..."},
                                  .preAction = [&screen] { screen.steps.emplace_back("before"); },
                                  .postAction = [&screen] { screen.steps.emplace_back("after"); }});
  screen.button().click();
  EXPECT_EQ(screen.steps, (Lines{"before", "after"}));
  EXPECT_EQ(delegate->received, (std::vector<std::string>{"showSettingsWindow:"}));
}

TEST(PrePostSettingsLink, ignoresAMissingResponderOnSystem13) {
  Screen screen(13);
  screen.show(PrePostSettingsLink{.label = view::Text{"Settings..."},
                                  .preAction = [&screen] { screen.steps.emplace_back("before"); },
                                  .postAction = [&screen] { screen.steps.emplace_back("after"); }});
  screen.button().click();
  EXPECT_EQ(screen.steps, (Lines{"before", "after"}));
}

TEST(OpenSettingsInjectionView, connectsTheActionOnceItsLinkWasDrawn) {
  Screen screen(14);
  const auto action = OpenSettingsKey::initial();
  screen.show(openSettingsAccess(view::Text{"Content"}));
  EXPECT_NE((*action)(), nullptr);
  screen.runQueue();
  EXPECT_EQ((*action)(), nullptr);
  EXPECT_EQ(screen.steps, (Lines{"settings"}));
}

TEST(OpenSettingsInjectionView, hidesItsLinkBehindTheContent) {
  Screen screen(14);
  screen.show(openSettingsAccess(view::Text{"Content"}));
  EXPECT_EQ(screen.window().tree().controls().size(), 1U);
  EXPECT_EQ(screen.window().window().contentSize(), (kit::Size{.width = 49, .height = 16}));
  EXPECT_EQ(view::dump(screen.window().tree().root()),
            "VStack centred, spacing 2\n  Frame width 0 height 0 centred\n  Text \"Content\"\n");
}

TEST(OpenSettingsInjectionView, leavesTheContentAloneOnSystem13) {
  Screen screen(13);
  screen.show(openSettingsAccess(view::Text{"Content"}));
  EXPECT_EQ(view::dump(screen.window().tree().root()), "VStack centred, spacing 2\n  Text \"Content\"\n");
}

TEST(OpenSettingsInjectionView, connectsTheActionOfItsEnvironmentWhichItsContentReadsToo) {
  /// Notes the action that it reads.
  struct Reader {
    std::shared_ptr<OpenSettingsAccessAction>* outlet = nullptr;
    view::Environment<OpenSettingsKey> openSettingsLegacy = {};

    auto stored() { return std::tie(openSettingsLegacy); }
    View body() const {
      *outlet = openSettingsLegacy.get();
      return view::Text{"Content"};
    }
  };
  Screen screen(14);
  const auto own = OpenSettingsAccessAction::create(*screen.application);
  std::shared_ptr<OpenSettingsAccessAction> read;
  screen.show(openSettingsAccess(Reader{.outlet = &read}).environment<OpenSettingsKey>(own));
  screen.runQueue();
  EXPECT_EQ(read, own);
  EXPECT_EQ((*own)(), nullptr);
  EXPECT_EQ(screen.steps, (Lines{"settings"}));
  EXPECT_FALSE(OpenSettingsKey::initial()->closure);
}

TEST(OpenSettingsInjectionView, eachLaterDrawingWritesAFreshPress) {
  Screen screen(14);
  const auto action = OpenSettingsKey::initial();
  screen.show(openSettingsAccess(view::Text{"Content"}));
  screen.runQueue();
  action->closureBinding.set([] { FAIL() << "the press of an earlier drawing"; });
  screen.application->turn().perform([&screen] { screen.window().tree().root().markDirty(); });
  screen.runQueue();
  EXPECT_EQ((*action)(), nullptr);
  EXPECT_EQ(screen.steps, (Lines{"settings"}));
}

TEST(PrePostSettingsLink, needsNoActions) {
  for (const int major : {13, 14}) {
    Screen screen(major);
    screen.show(PrePostSettingsLink{.label = view::Text{"Settings..."}});
    screen.button().click();
    EXPECT_EQ(screen.steps, major == 14 ? Lines{"settings"} : Lines{});
  }
}

}  // namespace
}  // namespace tarnwell::settingsaccess
