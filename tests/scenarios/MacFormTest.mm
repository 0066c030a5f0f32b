#include <gtest/gtest.h>

#include "host/macos/ViewDriver.h"
#include "kit/control/Window.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/text/TextLabel.h"
#include "kit/host/Host.h"
#include "scenarios/DockTab.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_macos::driver;

/// What is seen and is no ground for others, by its name or text.
std::vector<std::pair<std::string, NSRect>> placesIn(DockTab& tab) {
  std::vector<std::pair<std::string, NSRect>> places;
  for (kit::Control* control : tab.hosted().tree().controls()) {
    const kit::Accessible seen = tab.driver().look(*control);
    if (seen.role != kit::AccessibleRole::decoration && seen.role != kit::AccessibleRole::group) {
      NSView* view = driver::view(*control);
      places.emplace_back(seen.name, [view convertRect:[view bounds] toView:nil]);
    }
  }
  return places;
}

TEST(MacForm, nothingOfTheDockTabCoversAnythingElse) {
  DockTab tab;
  tab.holdingDefaults().open();
  const auto places = placesIn(tab);
  ASSERT_GT(places.size(), 20U);
  for (auto one = places.begin(); one != places.end(); ++one) {
    for (auto other = one + 1; other != places.end(); ++other) {
      EXPECT_FALSE(NSIntersectsRect(one->second, other->second)) << one->first << " and " << other->first;
    }
  }
}

TEST(MacForm, aBoxThatComesLaterLiesUnderWhatIsThere) {
  const auto hands = makeDriver();
  kit::Window window("form", "Form");
  kit::TextLabel row;
  kit::Box ground(kit::Box::Kind::group);
  window.attach(hands->host().peer(window));
  row.attach(row.makePeer(hands->host(), *window.peer()));
  ground.attach(ground.makePeer(hands->host(), *window.peer()));
  NSArray* fromTheGroundUp = [[driver::view(row) superview] subviews];
  EXPECT_LT([fromTheGroundUp indexOfObject:driver::view(ground)], [fromTheGroundUp indexOfObject:driver::view(row)]);
}

}  // namespace
}  // namespace tarnwell::scenarios
