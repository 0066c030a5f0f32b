#include "view/state/ObservableObject.h"

#include <gtest/gtest.h>

#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

class Clock final : public ObservableObject {
 public:
  static constexpr const char* typeName = "Clock";

  int hour() const { return hour_; }
  void setHour(int hour) {
    objectWillChange();
    hour_ = hour;
  }

 private:
  int hour_ = 1;
};

struct Face {
  std::shared_ptr<int> bodies = std::make_shared<int>(0);
  ObservedObject<Clock> clock;

  auto stored() { return std::tie(clock); }
  View body() const {
    ++*bodies;
    return Text{std::to_string(clock->hour())};
  }
};

struct Tower {
  EnvironmentObject<Clock> clock = {};

  auto stored() { return std::tie(clock); }
  View body() const { return Text{std::to_string(clock->hour())}; }
};

class ObservableObjectTest : public testing::Test {
 protected:
  std::shared_ptr<Clock> clock = std::make_shared<Clock>();
};

TEST_F(ObservableObjectTest, aChangeMakesTheBodyAnewOnce) {
  const Face face{.clock = clock};
  Stage stage{face};
  stage.perform([this] {
    clock->setHour(2);
    clock->setHour(3);
  });
  EXPECT_EQ(stage.dump(), "Text \"3\"\n");
  EXPECT_EQ(*face.bodies, 2);
}

TEST_F(ObservableObjectTest, anUpdateFollowsTheNewObjectOnly) {
  const auto other = std::make_shared<Clock>();
  Face face{.clock = clock};
  Stage stage{face};
  stage.show(Face{.bodies = face.bodies, .clock = other});
  stage.perform([this] { clock->setHour(5); });
  EXPECT_EQ(*face.bodies, 2);
  stage.perform([&] { other->setHour(7); });
  EXPECT_EQ(stage.dump(), "Text \"7\"\n");
}

TEST_F(ObservableObjectTest, aViewThatWentFollowsNothing) {
  const Face face{.clock = clock};
  Stage stage{face};
  stage.show(VStack{});
  stage.perform([this] { clock->setHour(5); });
  EXPECT_EQ(*face.bodies, 1);
}

TEST_F(ObservableObjectTest, severalViewsFollowOneObject) {
  Stage stage{View(VStack{.children = {Face{.clock = clock}, Tower{}}}).environmentObject(clock)};
  stage.perform([this] { clock->setHour(9); });
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Text \"9\"\n  Text \"9\"\n");
}

TEST_F(ObservableObjectTest, anotherObjectInTheEnvironmentIsTakenOver) {
  const auto other = std::make_shared<Clock>();
  other->setHour(8);
  Stage stage{View(Tower{}).environmentObject(clock)};
  stage.show(View(Tower{}).environmentObject(other));
  EXPECT_EQ(stage.dump(), "Text \"8\"\n");
  stage.perform([&] { other->setHour(10); });
  EXPECT_EQ(stage.dump(), "Text \"10\"\n");
}

TEST(ObservableObjectDeathTest, withoutTheObjectInTheEnvironmentTheProcessEnds) {
  EXPECT_DEATH((Stage{Tower{}}), "No ObservableObject of type Clock found. A View.environmentObject\\(_:\\) for Clock");
}

}  // namespace
}  // namespace tarnwell::view
