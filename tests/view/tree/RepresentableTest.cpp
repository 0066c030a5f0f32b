#include "view/tree/Representable.h"

#include <gtest/gtest.h>

#include <numbers>

#include "kit/controls/buttons/Button.h"
#include "kit/controls/ranges/Slider.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

using std::numbers::pi;

/// Notes what is asked of it.
struct Bridge {
  struct Coordinator {
    explicit Coordinator(std::shared_ptr<Lines> notes) : notes_(std::move(notes)) {
      notes_->emplace_back("coordinator");
    }
    Coordinator(const Coordinator&) = delete;
    Coordinator& operator=(const Coordinator&) = delete;
    ~Coordinator() { notes_->emplace_back("coordinator gone"); }

   private:
    std::shared_ptr<Lines> notes_;
  };
  using NSView = kit::Button;
  using Context = RepresentableContext<Coordinator>;

  std::string title = {};
  std::shared_ptr<Lines> notes = {};

  std::shared_ptr<Coordinator> makeCoordinator() const { return std::make_shared<Coordinator>(notes); }

  std::unique_ptr<kit::Button> makeNSView(Context& context) const {
    notes->push_back("make with" + std::string(context.coordinator ? "" : "out") + " coordinator");
    return std::make_unique<kit::Button>();
  }

  void updateNSView(kit::Button& button, Context& context) const {
    notes->push_back("update " + title + " with" + std::string(context.coordinator ? "" : "out") + " coordinator");
    button.setTitle(title);
  }
};

/// Bridges to a slider.
struct SliderBridge {
  struct Coordinator {};
  using NSView = kit::Slider;
  using Context = RepresentableContext<Coordinator>;

  std::shared_ptr<Coordinator> makeCoordinator() const { return std::make_shared<Coordinator>(); }
  std::unique_ptr<kit::Slider> makeNSView(Context& /*context*/) const {
    return std::make_unique<kit::Slider>(kit::Rect{});
  }
  void updateNSView(kit::Slider& /*slider*/, Context& /*context*/) const {}
};

class RepresentableTest : public testing::Test {
 protected:
  View bridge(const std::string& title) const { return Bridge{.title = title, .notes = notes}; }

  Lines noted() const { return std::exchange(*notes, {}); }

  std::shared_ptr<Lines> notes = std::make_shared<Lines>();
};

TEST_F(RepresentableTest, mountingMakesTheCoordinatorThenTheViewThenUpdatesIt) {
  const Stage stage{bridge("a")};
  EXPECT_EQ(noted(), (Lines{"coordinator", "make with coordinator", "update a with coordinator"}));
  EXPECT_EQ(stage.dump(), "Button \"a\"\n");
}

TEST_F(RepresentableTest, anUpdateMakesNothingAnew) {
  Stage stage{bridge("a")};
  const kit::Button* button = &stage.first<kit::Button>();
  noted();
  stage.show(bridge("b"));
  EXPECT_EQ(noted(), Lines{"update b with coordinator"});
  EXPECT_EQ(&stage.first<kit::Button>(), button);
  EXPECT_EQ(button->title(), "b");
}

TEST_F(RepresentableTest, theCoordinatorLivesAsLongAsTheControl) {
  Stage stage{bridge("a")};
  noted();
  stage.perform([&] {
    stage.turn().nestedLoop([&] { stage.show(Text{"away"}); });
    EXPECT_EQ(noted(), Lines{});
  });
  EXPECT_EQ(noted(), Lines{"coordinator gone"});
}

TEST_F(RepresentableTest, oneValueUsedTwiceHasTwoControls) {
  const View view = bridge("a");
  Stage stage{VStack{.children = {view, view}}};
  EXPECT_EQ(stage.hosted().tree().controls().size(), 2U);
  EXPECT_EQ(noted().size(), 6U);
}

TEST_F(RepresentableTest, theEnvironmentReachesItsControl) {
  const Stage stage{bridge("a").disabled(true).accessibilityLabel("named")};
  const auto& button = stage.find<kit::Button>("named");
  EXPECT_FALSE(button.isEnabled());
}

TEST(SliderBridgeTest, turnsAddUpToUprightOrUpsideDown) {
  struct Row {
    View view;
    bool upsideDown = false;
  };
  const View slider = SliderBridge{};
  for (const Row& row :
       {Row{slider, false}, Row{slider.rotation(pi), true}, Row{slider.rotation(pi).rotation(pi), false},
        Row{slider.rotation(-pi), true}, Row{slider.rotation(1), false}}) {
    const Stage stage{row.view};
    EXPECT_EQ(stage.first<kit::Slider>().isUpsideDown(), row.upsideDown);
  }
}

TEST(SliderBridgeTest, aTurnComesAndGoesWithAnUpdate) {
  const View slider = SliderBridge{};
  Stage stage{slider.rotation(0)};
  const auto& shown = stage.first<kit::Slider>();
  for (const bool upsideDown : {true, false}) {
    stage.show(slider.rotation(upsideDown ? pi : 0));
    EXPECT_EQ(shown.isUpsideDown(), upsideDown);
  }
}

}  // namespace
}  // namespace tarnwell::view
