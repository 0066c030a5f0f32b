#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "view/Recipe.h"
#include "view/Stage.h"

namespace tarnwell::view {
namespace {

void append(std::ostream& out, const kit::Rect& frame) {
  out << frame.x << ' ' << frame.y << ' ' << frame.width << ' ' << frame.height << '\n';
}

/// All that can be seen or heard of what stands in the window.
std::string picture(Stage& stage) {
  std::ostringstream out;
  out << stage.dump();
  append(out, {.width = stage.window().contentSize().width, .height = stage.window().contentSize().height});
  for (const kit::Control* control : stage.window().controls()) {
    out << '"' << control->accessibleName() << "\" ";
    append(out, control->frame());
  }
  for (const auto kind : {kit::Box::Kind::group, kit::Box::Kind::separator}) {
    auto boxes = stage.host().boxes(kind);
    // Which was made first depends on what stood there before.
    std::ranges::sort(boxes, {}, [](const kit::Rect& box) { return std::tie(box.y, box.x, box.height, box.width); });
    for (const kit::Rect& box : boxes) {
      append(out, box);
    }
  }
  return out.str();
}

TEST(RandomTreeTest, anUpdatedTreeIsWhatMountingAfreshGives) {
  constexpr int depth = 5;
  for (const unsigned seed : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U}) {
    Cook cook(seed);
    Recipe recipe = cook.invent(depth);
    Stage updated{recipe.view()};
    updated.open();
    for (int step = 0; step < 500; ++step) {
      cook.vary(recipe, depth);
      updated.show(recipe.view());
      Stage fresh{recipe.view()};
      fresh.open();
      ASSERT_EQ(picture(updated), picture(fresh)) << "seed " << seed << ", step " << step;
    }
  }
}

TEST(RandomTreeTest, anUpdateWithTheSameTellsThePlatformNothing) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    const Recipe recipe = Cook(seed).invent(5);
    Stage stage{recipe.view()};
    stage.open();
    stage.told();
    stage.show(recipe.view());
    ASSERT_EQ(stage.told(), Lines{}) << "seed " << seed;
  }
}

}  // namespace
}  // namespace tarnwell::view
