#include <gtest/gtest.h>

#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"
#include "view/Stage.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/choices/Picker.h"
#include "view/controls/ranges/Stepper.h"
#include "view/controls/text/Text.h"
#include "view/controls/text/TextField.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

// Every closure of the controls runs a loop, as a dialog does, in which another view takes the place of the one whose
// closure is still running. What it captured must be there when the loop has ended.
class NestedLoopTest : public testing::Test {
 protected:
  View controls() {
    return VStack{
        .children = {Button{.title = "button", .action = asking()}, Toggle{.title = "switch", .isOn = asking(false)},
                     Stepper{.title = "stepper", .value = asking(1.0)},
                     TextField{.title = "field", .value = asking(1.0)},
                     Picker{.title = "picker", .items = {{.title = "a"}, {.title = "b"}}, .selectedIndex = asking(0)}}};
  }

  void expectEachControlToShow(const View& answer) {
    shownInLoop = [answer] { return answer; };
    const std::vector<std::function<void()>> inputs = {[this] { stage.find<kit::Button>("button").click(); },
                                                       [this] { stage.find<kit::Toggle>("switch").press(); },
                                                       [this] { stage.find<kit::Stepper>("stepper").increment(); },
                                                       [this] { stage.find<kit::PopUpButton>("picker").choose(1); },
                                                       [this] {
                                                         auto& field = stage.find<kit::TextField>("field");
                                                         field.type("2");
                                                         field.commit();
                                                       }};
    for (const auto& input : inputs) {
      said.clear();
      stage.show(controls());
      input();
      EXPECT_EQ(said, note);
    }
  }

  kit::Action asking() {
    return [this, kept = note] {
      stage.turn().nestedLoop([this] { stage.show(shownInLoop()); });
      said += kept;
    };
  }

  template <class T>
  Binding<T> asking(T value) {
    return {.get = [value] { return value; },
            .set =
                [this, kept = note](T) {
                  stage.turn().nestedLoop([this] { stage.show(shownInLoop()); });
                  said += kept;
                }};
  }

  const std::string note = "a text that is too long to be kept in the closure itself";
  std::string said = {};
  std::function<View()> shownInLoop = {};
  Stage stage = Stage(EmptyView{});
};

TEST_F(NestedLoopTest, aLoopMayRemoveTheViewThatOpenedIt) { expectEachControlToShow(Text{"gone"}); }

TEST_F(NestedLoopTest, aLoopMayUpdateTheViewThatOpenedIt) { expectEachControlToShow(controls()); }

}  // namespace
}  // namespace tarnwell::view
