#include "view/state/StateObject.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "kit/controls/buttons/Toggle.h"
#include "view/Stage.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

/// A plain object that tells of its changes.
struct Lamp {
  explicit Lamp(kit::Action whoListens) : changed(std::move(whoListens)) {}

  template <class F>
  void set(F Lamp::*field, std::type_identity_t<F> value) {
    this->*field = value;
    changed();
  }

  kit::Action changed = {};
  bool lit = false;
};

struct Room {
  std::shared_ptr<std::vector<std::weak_ptr<Lamp>>> made = std::make_shared<std::vector<std::weak_ptr<Lamp>>>();
  StateObject<Lamp> lamp{[made = made](const EnvironmentValues& /*environment*/, kit::Action changed) {
    auto fresh = std::make_shared<Lamp>(std::move(changed));
    made->push_back(fresh);
    return fresh;
  }};

  auto stored() { return std::tie(lamp); }
  View body() const {
    return VStack{
        .children = {Text{lamp->lit ? "light" : "dark"}, Toggle{.title = "lamp", .isOn = lamp.binding(&Lamp::lit)}}};
  }
};

TEST(StateObjectTest, itIsMadeOnceForThePlace) {
  const Room room;
  Stage stage{room};
  stage.show(room);
  stage.find<kit::Toggle>("lamp").press();
  EXPECT_EQ(room.made->size(), 1U);
}

TEST(StateObjectTest, aChangeOfTheObjectMakesTheBodyAnew) {
  const Room room;
  Stage stage{room};
  stage.find<kit::Toggle>("lamp").press();
  EXPECT_TRUE(room.made->front().lock()->lit);
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Text \"light\"\n  Toggle \"lamp\": on\n");
  stage.perform([&] { room.made->front().lock()->set(&Lamp::lit, false); });
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Text \"dark\"\n  Toggle \"lamp\": off\n");
}

TEST(StateObjectTest, itGoesWithThePlaceAndIsMadeAnewForTheNext) {
  const Room room;
  Stage stage{room};
  stage.find<kit::Toggle>("lamp").press();
  stage.show(Text{"outside"});
  EXPECT_TRUE(room.made->front().expired());
  stage.show(room);
  EXPECT_EQ(room.made->size(), 2U);
  EXPECT_FALSE(room.made->back().lock()->lit);
}

TEST(StateObjectTest, oneThatOutlivesItsPlaceCanStillBeChanged) {
  const Room room;
  Stage stage{room};
  const auto lamp = room.made->front().lock();
  stage.show(Text{"outside"});
  stage.perform([&] { lamp->set(&Lamp::lit, true); });
  EXPECT_EQ(stage.dump(), "Text \"outside\"\n");
}

struct Named {
  std::string name = {};
};

struct LabelKey {
  using Value = std::string;
  static Value initial() { return "none"; }
};

struct Sign {
  StateObject<Named> named{[](const EnvironmentValues& environment, const kit::Action& /*changed*/) {
    return std::make_shared<Named>(Named{.name = environment.get<LabelKey>()});
  }};

  auto stored() { return std::tie(named); }
  View body() const { return Text{named->name}; }
};

TEST(StateObjectTest, itsMakerSeesTheEnvironmentOfItsFirstMoment) {
  Stage stage{View(Sign{}).environment<LabelKey>("first")};
  stage.show(View(Sign{}).environment<LabelKey>("second"));
  EXPECT_EQ(stage.dump(), "Text \"first\"\n");
}

TEST(StateObjectDeathTest, usingItOutsideOfAMountedViewIsAFault) {
  const Sign sign;
  EXPECT_DEATH((void)sign.named.get(), "tarnwell: a state object was used outside of a mounted view");
  EXPECT_DEATH((void)sign.body(), "tarnwell: a state object was used outside of a mounted view");
}

}  // namespace
}  // namespace tarnwell::view
