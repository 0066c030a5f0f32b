#include <gtest/gtest.h>

#include "host/macos/Stage.h"
#include "host/macos/ViewDriver.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_macos {
namespace {

TEST(TabBarPeerTest, aTabThatIsPressedWithoutAClickCommitsWhatIsBeingTyped) {
  Stage stage;
  kit::Window window("window", "Window");
  kit::TabBar bar;
  kit::TextField field;
  std::string committed;
  field.setAction([&committed](const std::string& text) { committed = text; });
  bar.setItems({{.title = "Dock"}, {.title = "General"}});
  bar.setSelectedIndex(0);
  window.attach(stage.platform.host().peer(window));
  bar.attach(bar.makePeer(stage.platform.host(), *window.peer()));
  window.setControls({&bar, &field});
  field.type("typed");
  NSToolbarItem* general = [[[driver::window(window) toolbar] items] objectAtIndex:1];
  [NSApp sendAction:[general action] to:[general target] from:general];
  EXPECT_EQ(committed, "typed");
  EXPECT_EQ(bar.selectedIndex(), 1);
  window.setControls({});
}

}  // namespace
}  // namespace tarnwell::host_macos
